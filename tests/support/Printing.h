#pragma once

#include <array>
#include <cmath>
#include <cstdio>
#include <ostream>

#include "mrlxmlclass/runtime/Currency.h"
#include "mrlxmlclass/runtime/Date.h"
#include "mrlxmlclass/runtime/Numbers.h"
#include "mrlxmlclass/runtime/Ref.h"
#include "mrlxmlclass/runtime/Variant.h"

/// How values read in the message of a failed test. Every test file includes this before its first comparison.
namespace mrlxmlclass {

inline void PrintTo(Boolean value, std::ostream* out) {
    if (value == False) {
        *out << "False";
    } else if (value.full()) {
        *out << "True";
    } else {
        *out << "True (" << value.raw() << ")";
    }
}

template <class Rep>
void PrintTo(Checked<Rep> value, std::ostream* out) {
    *out << value.value();
}

/// yyyy-mm-dd, and hh:mm:ss where there is a time.
inline void PrintTo(Date value, std::ostream* out) {
    constexpr double kFirst = -657434;  // the year 100
    constexpr double kLast = 2958466;   // after the year 9999
    if (!value.set()) {
        *out << "no date";
        return;
    }
    if (!(value.days() >= kFirst && value.days() < kLast)) {
        *out << "day " << value.days();
        return;
    }
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", value.year(), value.month(), value.day_of_month());
    *out << text.data();
    const int seconds = static_cast<int>(std::lround(std::fabs(std::fmod(value.days(), 1.0)) * 86400));
    if (seconds == 0) return;
    std::snprintf(text.data(), text.size(), " %02d:%02d:%02d", seconds / 3600, seconds / 60 % 60, seconds % 60);
    *out << text.data();
}

inline void PrintTo(Currency value, std::ostream* out) {
    const std::int64_t count = value.ten_thousandths();
    const std::uint64_t size = count < 0 ? 0 - static_cast<std::uint64_t>(count) : static_cast<std::uint64_t>(count);
    std::array<char, 8> fraction{};
    std::snprintf(fraction.data(), fraction.size(), "%04u", static_cast<unsigned>(size % Currency::kScale));
    *out << (count < 0 ? "-" : "") << size / Currency::kScale << "." << fraction.data();
}

template <class T>
void PrintTo(const Ref<T>& value, std::ostream* out) {
    if (value) {
        *out << "object " << static_cast<const void*>(value.object());
    } else {
        *out << "nothing";
    }
}

inline void PrintTo(const Variant& value, std::ostream* out) {
    const auto print = [&](const char* kind, const auto& held) {
        *out << kind << " ";
        PrintTo(held, out);
    };
    if (value.is_empty()) {
        *out << "Empty";
    } else if (value.is_null()) {
        *out << "Null";
    } else if (value.is_missing()) {
        *out << "Missing";
    } else if (const auto* flag = value.If<Boolean>()) {
        print("Boolean", *flag);
    } else if (const auto* number = value.If<Long>()) {
        print("Long", *number);
    } else if (const auto* real = value.If<double>()) {
        *out << "Double " << *real;
    } else if (const auto* amount = value.If<Currency>()) {
        print("Currency", *amount);
    } else if (const auto* date = value.If<Date>()) {
        print("Date", *date);
    } else if (const auto* text = value.If<String>()) {
        *out << '"' << *text << '"';
    } else if (const auto* object = value.If<Ref<Counted>>()) {
        PrintTo(*object, out);
    } else if (const auto* array = value.If<VariantArray>()) {
        *out << "{";
        for (const Variant& element : *array) {
            if (&element != &array->front()) *out << ", ";
            PrintTo(element, out);
        }
        *out << "}";
    }
}

}  // namespace mrlxmlclass
