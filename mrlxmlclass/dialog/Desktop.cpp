#include "mrlxmlclass/dialog/Desktop.h"

#include <algorithm>

#include "mrlxmlclass/platform/Services.h"
#include "mrlxmlclass/runtime/Text.h"
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
    if (!HasScheme(text)) return False;
    const String scheme = LowerCase(text.substr(0, text.find(':')));
    std::string_view rest = text.substr(scheme.size() + 1);
    const auto nobody_writes = [](char c) {
        return static_cast<unsigned char>(c) <= ' ' || c == '\x7F' || c == '<' || c == '>' || c == '"';
    };
    if (rest.empty() || std::ranges::any_of(rest, nobody_writes)) return False;
    if (scheme != "http" && scheme != "https" && scheme != "ftp") return True;
    if (!rest.starts_with("//")) return False;
    rest.remove_prefix(2);
    const std::string_view authority = rest.substr(0, rest.find_first_of("/?#"));
    const std::string_view host = authority.substr(authority.find('@') + 1);  // from the start where there is none
    return !host.substr(0, host.find(':')).empty();
}

}  // namespace mrlxmlclass::Gloabal
