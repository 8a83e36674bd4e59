#include "mrlxmlclass/dialog/Desktop.h"

#include <algorithm>

#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/session/ModuleState.h"

namespace mrlxmlclass::Gloabal {

String GetSpecialfolder(Long CSIDL) {
    return Platform().files.SpecialFolder(CSIDL);
}

Boolean ShowHelp(const Ref<Counted>& owner_form, const String& page) {
    Ref<HelpSystem>& help = Module().help_system;
    if (!help) help = Platform().help_systems.NewHelpSystem();
    const Ref<HelpSystem> asked = help;  // a host may start over meanwhile
    asked->loadSystem(owner_form);
    asked->OpenHelpPage(page);
    return True;
}

Boolean PathIsURL(std::string_view text) {
    return HasScheme(text);
}

Boolean IsValidURL(std::string_view text) {
    const auto ends_an_address = [](char c) { return static_cast<unsigned char>(c) <= ' ' || c == '\x7F'; };
    return HasScheme(text) && !text.ends_with(':') && std::ranges::none_of(text, ends_an_address);
}

}  // namespace mrlxmlclass::Gloabal
