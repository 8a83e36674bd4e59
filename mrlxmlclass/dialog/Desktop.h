#pragma once

#include <string_view>

#include "mrlxmlclass/runtime/Numbers.h"
#include "mrlxmlclass/runtime/Ref.h"

namespace mrlxmlclass::Gloabal {

/// A folder of the user's by its number, see Files::SpecialFolder; "" when there is none.
String GetSpecialfolder(Long CSIDL);

/// Opens a page of the host's help, which is made at the first question and kept for the thread. Without any it fails
/// (429). Gives True.
Boolean ShowHelp(const Ref<Counted>& owner_form, const String& page);

/// Whether a text is an address: "scheme:" and what follows, see HasScheme.
Boolean PathIsURL(std::string_view text);
/// Whether an address could be opened at all: something behind the scheme without blanks, control characters and any
/// of <>", and for http, https and ftp "//" and a host.
Boolean IsValidURL(std::string_view text);

}  // namespace mrlxmlclass::Gloabal
