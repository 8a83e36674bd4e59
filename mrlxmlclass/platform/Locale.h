#pragma once

#include <cstdint>

#include "mrlxmlclass/runtime/Failure.h"

namespace mrlxmlclass {

/// How dates and numbers are written and read.
struct LocaleSettings {
    String short_date = "M/d/yyyy";  ///< d, dd, M, MM, yyyy and separators; no blanks, no separator at the end
    String decimal = ".";
    String group;  ///< skipped between digits when reading; empty: none. Never written.

    friend bool operator==(const LocaleSettings&, const LocaleSettings&) = default;
};

class Locale {
public:
    virtual ~Locale() = default;
    virtual const LocaleSettings& Settings() = 0;
    /// Differs after every change of the settings, and between any two locales.
    std::uint64_t Stamp() const { return stamp_; }

protected:
    /// For a locale whose settings have changed.
    void Changed() { stamp_ = NewStamp(); }

private:
    /// A stamp that no locale of this process has had.
    static std::uint64_t NewStamp();

    std::uint64_t stamp_ = NewStamp();
};

/// A text with the letters of every script in lower case, one by one, in every locale alike. One that is not UTF-8
/// keeps all but its ASCII letters.
String LowerCaseOfAnyScript(const String& text);

}  // namespace mrlxmlclass
