#pragma once

#include <string_view>

#include "mrlxmlclass/xml/XmlRecord.h"

// What the library knows of a kind of record beside its fields.
namespace mrlxmlclass {

/// The label under which the failures of a record stand in the error file.
template <class Record>
struct LabelOf;

/// The default namespace that the text of a record takes on request; "" where asking has no effect.
template <class Record>
constexpr std::string_view kNamespaceOf = {};

/// What a record's reader is given beside the elements.
struct Reading {
    Ref<StaticCls> counters;  ///< held, as whoever hears a yield may write to the variable they came from
    Boolean for_lib;
};

}  // namespace mrlxmlclass
