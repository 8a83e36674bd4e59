#pragma once

#include <string>
#include <variant>
#include <vector>

#include "mrlxmlclass/runtime/Currency.h"
#include "mrlxmlclass/runtime/Date.h"
#include "mrlxmlclass/runtime/KeyText.h"
#include "mrlxmlclass/runtime/Numbers.h"
#include "mrlxmlclass/runtime/Ref.h"

namespace mrlxmlclass {

class Variant;
using VariantArray = std::vector<Variant>;

/// A tagged value. Whole numbers are Longs, whatever their width; `const char*` is text.
class Variant {
public:
    struct Empty {
        friend constexpr bool operator==(Empty, Empty) = default;
    };
    struct Null {
        friend constexpr bool operator==(Null, Null) = default;
    };
    /// Stands for an optional argument that was left out.
    struct Missing {
        friend constexpr bool operator==(Missing, Missing) = default;
    };

    Variant() = default;
    Variant(Null null) : value_(null) {}
    Variant(Missing missing) : value_(missing) {}
    Variant(std::same_as<bool> auto flag) : value_(Boolean(flag)) {}
    Variant(Boolean flag) : value_(flag) {}
    Variant(Whole auto number, SourceLine where = SourceLine::Here()) : value_(Long(number, where)) {}
    Variant(Integer number) : value_(Long(number)) {}
    Variant(Long number) : value_(number) {}
    Variant(double number) : value_(number) {}
    Variant(Currency amount) : value_(amount) {}
    Variant(Date date) : value_(date) {}
    Variant(const char* text) : value_(String(text)) {}
    Variant(std::string_view text) : value_(String(text)) {}
    Variant(String text) : value_(std::move(text)) {}
    /// An object that is not set, which is not the same as Empty.
    Variant(std::nullptr_t) : value_(Ref<Counted>()) {}
    Variant(Ref<Counted> object) : value_(std::move(object)) {}
    template <class T>
    requires(!std::is_same_v<T, Counted>) Variant(const Ref<T>& object) : value_(Ref<Counted>(object)) {}
    Variant(VariantArray array) : value_(std::move(array)) {}

    bool is_empty() const { return std::holds_alternative<Empty>(value_); }
    bool is_null() const { return std::holds_alternative<Null>(value_); }
    bool is_missing() const { return std::holds_alternative<Missing>(value_); }

    template <class T>
    const T* If() const {
        return std::get_if<T>(&value_);
    }
    template <class T>
    T* If() {
        return std::get_if<T>(&value_);
    }
    /// The value as that very kind; anything else fails (13).
    template <class T>
    const T& As(SourceLine where = SourceLine::Here()) const {
        if (const T* value = If<T>()) return *value;
        Raise(failure::kTypeMismatch, where);
    }
    /// The object as that class; nothing stays nothing, an object of another class fails (13).
    template <class T>
    Ref<T> Object(SourceLine where = SourceLine::Here()) const {
        if (is_empty()) return {};
        Counted* object = As<Ref<Counted>>(where).get();
        if (object == nullptr) return {};
        T* typed = dynamic_cast<T*>(object);
        if (typed == nullptr) Raise(failure::kTypeMismatch, where);
        return Ref<T>(typed);
    }

    /// The value as a number, as far as no locale has a say: any kind of number, a truth value as 0 or its raw bits, a
    /// moment as its days, Empty as 0. Anything else fails (13), texts too.
    Double Number(SourceLine where = SourceLine::Here()) const;
    /// The number that it is compared by as a key: of a text the one that it is, 0 for one that is none.
    double KeyValue(SourceLine where = SourceLine::Here()) const;

    /// The value as text: a number, an amount and a moment in the form of the locale, a truth value as "True" or
    /// "False", Empty as "". Anything else fails (13).
    String Text(SourceLine where = SourceLine::Here()) const;
    /// The key that this value is in text form.
    KeyText Key(SourceLine where = SourceLine::Here()) const;

    friend bool operator==(const Variant&, const Variant&) = default;

private:
    std::variant<Empty, Null, Missing, Boolean, Long, double, Currency, Date, String, Ref<Counted>, VariantArray>
        value_;
};

/// The text of a fraction, an amount or a moment in the form of the locale. The xml floor, which knows locales, defines
/// it.
String TextInLocale(Double value);
String TextInLocale(Currency value);
String TextInLocale(Date value);

}  // namespace mrlxmlclass
