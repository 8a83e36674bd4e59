#pragma once

#include <string>
#include <vector>

/// Runs the command-line host as its users do: as a process of its own, in a folder of its own.
namespace prx_test {

/// How a run ended and what it printed.
struct Result {
    int status = -1;  ///< 124: it had to be stopped; 128 and more: a signal ended it
    std::string out;
    std::string err;
};

/// A folder that goes with the test, and what is done in it.
class Folder {
public:
    Folder();
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string Path(const std::string& name) const { return path_ + "/" + name; }
    void Write(const std::string& name, const std::string& content) const;
    std::string Read(const std::string& name) const;
    bool Has(const std::string& name) const;
    /// A copy of an example plan under that name.
    void CopyExample(const std::string& example, const std::string& name) const;

    /// Runs prx in this folder. Whatever it does, it never ends by a signal, hangs or prints the insides of C++: that
    /// fails the test.
    Result Prx(const std::vector<std::string>& arguments) const { return PrxInto(Path(".out"), arguments); }
    /// The same with its standard output going elsewhere.
    Result PrxInto(const std::string& output, const std::vector<std::string>& arguments) const;
    /// The output of a run that must succeed.
    std::string Output(const std::vector<std::string>& arguments) const;
    /// The error output of a run that must be refused; it must print nothing else.
    std::string Refusal(const std::vector<std::string>& arguments) const;

private:
    std::string path_;
};

/// Why the text is no JSON; "" when it is.
std::string JsonFault(const std::string& text);

/// Whether the part stands in the text.
bool Has(const std::string& text, const std::string& part);

/// The text with every occurrence replaced.
std::string Replaced(std::string text, const std::string& from, const std::string& to);

}  // namespace prx_test
