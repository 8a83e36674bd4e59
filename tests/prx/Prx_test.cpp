#include "tests/prx/Prx.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

#include "tests/prx/Process.h"

namespace prx_test {
namespace {

std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

/// To look for leaks takes a sanitizer build a third of a run: one run in eight does. A few calls tell where memory
/// came from.
std::string SanitizerOptions() {
    constexpr unsigned kEach = 8;
    static unsigned runs = 0;
    const std::string leaks = runs++ % kEach == 0 ? "1" : "0";
    return "ASAN_OPTIONS=malloc_context_size=5:detect_leaks=" + leaks;
}

/// Walks a JSON text by its grammar.
class JsonReader {
public:
    explicit JsonReader(const std::string& text) : text_(text) {}

    std::string Fault() {
        if (!Value()) return "no JSON at byte " + std::to_string(at_);
        Blanks();
        return at_ == text_.size() ? "" : "more behind the value at byte " + std::to_string(at_);
    }

private:
    char Next() const { return at_ < text_.size() ? text_[at_] : '\0'; }
    void Blanks() {
        while (at_ < text_.size() && std::string(" \n\r\t").find(text_[at_]) != std::string::npos) ++at_;
    }
    bool Take(char expected) {
        Blanks();
        if (Next() != expected) return false;
        ++at_;
        return true;
    }
    bool Word(const std::string& word) {
        if (text_.compare(at_, word.size(), word) != 0) return false;
        at_ += word.size();
        return true;
    }
    bool Text() {
        if (!Take('"')) return false;
        while (at_ < text_.size() && Next() != '"') {
            const auto byte = static_cast<unsigned char>(Next());
            if (byte < 0x20) return false;
            ++at_;
            if (byte != '\\') continue;
            const char escape = Next();
            ++at_;
            if (escape == 'u') {
                for (int i = 0; i < 4; ++i, ++at_) {
                    if (std::isxdigit(static_cast<unsigned char>(Next())) == 0) return false;
                }
            } else if (std::string("\"\\/bfnrt").find(escape) == std::string::npos) {
                return false;
            }
        }
        return Take('"');
    }
    bool Digits() {
        const std::size_t first = at_;
        while (std::isdigit(static_cast<unsigned char>(Next())) != 0) ++at_;
        return at_ > first;
    }
    bool Number() {
        if (Next() == '-') ++at_;
        if (!Digits()) return false;
        if (Next() == '.' && (++at_, !Digits())) return false;
        if (Next() != 'e' && Next() != 'E') return true;
        ++at_;
        if (Next() == '+' || Next() == '-') ++at_;
        return Digits();
    }
    template <class Member>
    bool List(char open, char close, Member&& member) {
        if (!Take(open)) return false;
        if (Take(close)) return true;
        do {
            if (!member()) return false;
        } while (Take(','));
        return Take(close);
    }
    bool Value() {
        Blanks();
        switch (Next()) {
            case '{':
                return List('{', '}', [&] { return Text() && Take(':') && Value(); });
            case '[':
                return List('[', ']', [&] { return Value(); });
            case '"':
                return Text();
            case 't':
                return Word("true");
            case 'f':
                return Word("false");
            case 'n':
                return Word("null");
            default:
                return Number();
        }
    }

    const std::string& text_;
    std::size_t at_ = 0;
};

}  // namespace

Folder::Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "prx-test-XXXXXX").string();
    if (mkdtemp(name.data()) != nullptr) path_ = name;
    EXPECT_FALSE(path_.empty());
}

Folder::~Folder() {
    std::error_code ignored;
    if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
}

void Folder::Write(const std::string& name, const std::string& content) const {
    std::ofstream file(Path(name), std::ios::binary);
    file << content;
}

std::string Folder::Read(const std::string& name) const {
    return ReadFile(Path(name));
}

bool Folder::Has(const std::string& name) const {
    return std::filesystem::exists(Path(name));
}

void Folder::CopyExample(const std::string& example, const std::string& name) const {
    const std::string content = ReadFile(std::string(MRLXMLCLASS_SOURCE_DIR) + "/examples/" + example);
    ASSERT_FALSE(content.empty()) << example;
    Write(name, content);
}

Result Folder::PrxInto(const std::string& output, const std::vector<std::string>& arguments) const {
    std::vector<std::string> words = {PRX_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const int status = RunProgram(
        std::move(words), {.folder = path_,
                           .variables = {"XDG_STATE_HOME=" + Path("state"), "LC_ALL=C.UTF-8", SanitizerOptions()},
                           .output = output,
                           .errors = Path(".err")});

    Result result{status, std::filesystem::is_regular_file(output) ? ReadFile(output) : "", Read(".err")};
    EXPECT_LE(result.status, 2) << result.err;
    for (const char* inside : {"terminate called", "what():", "Sanitizer", "runtime error", "std::", "Segmentation"}) {
        EXPECT_EQ(result.err.find(inside), std::string::npos) << result.err;
    }
    return result;
}

std::string Folder::Output(const std::vector<std::string>& arguments) const {
    const Result result = Prx(arguments);
    EXPECT_EQ(result.status, 0) << result.out << result.err;
    return result.out;
}

std::string Folder::Refusal(const std::vector<std::string>& arguments) const {
    const Result result = Prx(arguments);
    EXPECT_EQ(result.status, 2) << result.out << result.err;
    EXPECT_EQ(result.out, "");
    return result.err;
}

std::string JsonFault(const std::string& text) {
    return JsonReader(text).Fault();
}

bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
        text.replace(at, from.size(), to);
    }
    return text;
}

TEST(Prx, NamesItsCommandsInItsHelp) {
    const Folder folder;

    const std::string help = folder.Output({"--help"});

    for (const char* command : {"new", "show", "add", "set", "rename", "milestone", "done", "cost", "link", "unlink",
                                "indent", "outdent", "move", "phase", "shift", "remove", "calendar", "check"}) {
        EXPECT_NE(help.find(std::string("\n  ") + command), std::string::npos) << help;
    }
}

TEST(Prx, RefusesToRunWithoutACommand) {
    const Folder folder;
    EXPECT_NE(folder.Refusal({}), "");
}

TEST(Prx, RefusesAnUnknownCommandAndAnUnknownOption) {
    const Folder folder;
    EXPECT_EQ(folder.Refusal({"paint", "a.prx"}), "prx: there is no command \"paint\"; \"prx --help\" names them\n");
    EXPECT_EQ(folder.Refusal({"sho"}), "prx: there is no command \"sho\"; \"prx --help\" names them\n");
    EXPECT_EQ(folder.Refusal({"person", "a.prx", "paint"}).find("no command"), std::string::npos);
    EXPECT_NE(folder.Refusal({"show", "--loudly", "a.prx"}), "");
}

TEST(Prx, SaysHowATextIsGivenThatLooksLikeAnOption) {
    const Folder folder;
    folder.CopyExample("house.prx", "a.prx");
    const std::string words = "prx: a text that begins with a dash, or is \"++\", has to stand behind \"--\"\n";
    for (const char* name : {"-x", "++"}) {
        EXPECT_TRUE(folder.Refusal({"rename", "a.prx", "2", name}).ends_with(words)) << name;
        folder.Output({"rename", "a.prx", "2", "--", name});
    }
    EXPECT_FALSE(Has(folder.Refusal({"rename", "a.prx", "2"}), words));
    EXPECT_FALSE(Has(folder.Refusal({"link", "a.prx", "2", "3", "--lga", "4"}), words));
    EXPECT_TRUE(Has(folder.Refusal({"show", "-n7.prx"}), words));
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"--foo"}, {"-v"}, {"show", "--version"}, {"show", "--loudly"}}) {
        EXPECT_FALSE(Has(folder.Refusal(command), words)) << command.back();
    }
}

TEST(Prx, TellsInWordsThatAFileIsNotThere) {
    const Folder folder;

    EXPECT_EQ(folder.Refusal({"show", "none.prx"}), "prx: " + folder.Path("none.prx") + ": there is no such file\n");
    EXPECT_FALSE(folder.Has("~none.prxl"));
}

TEST(Prx, TellsThatAFolderIsNoProject) {
    const Folder folder;
    std::filesystem::create_directory(folder.Path("plans"));

    for (const char* command : {"show", "check", "calendar"}) {
        EXPECT_EQ(folder.Refusal({command, "plans"}),
                  "prx: " + folder.Path("plans") + ": this is a folder, not a project\n");
    }
}

TEST(Prx, KeepsItsOwnFilesInTheStateFolderOfTheUser) {
    const Folder folder;

    folder.Output({"new", "a.prx"});

    EXPECT_TRUE(folder.Has("state/prx/SendToSupport.xml"));
    EXPECT_TRUE(folder.Has("state/prx/steps.xml"));
}

TEST(Prx, SaysThatItSavedWhenItsOutputCouldNotBeWritten) {
    const Folder folder;
    folder.Output({"new", "a.prx"});

    const Result added = folder.PrxInto("/dev/full", {"add", "a.prx", "Task"});
    const Result shown = folder.PrxInto("/dev/full", {"show", "a.prx"});
    folder.CopyExample("festival.prx", "b.prx");
    const Result shifted = folder.PrxInto("/dev/full", {"shift", "b.prx", "1"});  // more than a buffer holds

    EXPECT_EQ(added.status, 2);
    EXPECT_EQ(added.err, "prx: the output could not be written, but " + folder.Path("a.prx") + " was saved\n");
    EXPECT_EQ(shifted.err, "prx: the output could not be written, but " + folder.Path("b.prx") + " was saved\n");
    EXPECT_EQ(shown.status, 2);
    EXPECT_EQ(shown.err, "prx: the output could not be written\n");
}

TEST(Prx, TellsOnceInWordsThatItsErrorFileCouldNotBeWritten) {
    const Folder folder;
    folder.CopyExample("house.prx", "a.prx");
    folder.Write("a.prx", Replaced(folder.Read("a.prx"), "<ParentID>16</ParentID>", "<ParentID>999</ParentID>"));
    folder.Write("state", "no folder");

    const Result result = folder.Prx({"check", "a.prx"});

    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "prx: what went wrong could not be recorded in " +
                              folder.Path("state/prx/SendToSupport.xml") + ": The folder was not found\n");
}

TEST(Prx, LeavesNoLockBehind) {
    const Folder folder;
    folder.Output({"new", "a.prx"});
    folder.Output({"show", "a.prx"});
    folder.Output({"add", "a.prx", "Task"});
    folder.Refusal({"set", "a.prx", "Task", "start=never"});
    folder.Refusal({"remove", "a.prx", "Nobody"});

    EXPECT_FALSE(folder.Has("~a.prxl"));
}

TEST(JsonFault, FindsWhatIsNoJson) {
    EXPECT_EQ(JsonFault(R"({"a": [1, -2.5e3, "x\"\u00e4\n", true, null, {}]})"), "");
    for (const char* text : {"", "{", "[1,]", "{\"a\" 1}", "\"\x01\"", "\"\\x\"", "nul", "01x", "[] []", "{a: 1}"}) {
        EXPECT_NE(JsonFault(text), "") << text;
    }
}

}  // namespace prx_test
