#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>

#include "mrlxmlclass/platform/Posix_internal.h"

namespace mrlxmlclass::platform {
namespace {

String WithoutSlashAtEnd(String folder) {
    while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
    return folder;
}

String Environment(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? String() : String(value);
}

String Home() {
    String home = Environment("HOME");
    if (!home.starts_with('/')) {
        std::array<char, 4096> space{};
        passwd entry{};
        passwd* found = nullptr;
        getpwuid_r(getuid(), &entry, space.data(), space.size(), &found);
        home = found == nullptr || found->pw_dir == nullptr ? "/" : found->pw_dir;
    }
    return WithoutSlashAtEnd(home);
}

// A base folder of the desktop's: its variable counts only when it names a whole path.
String BaseFolder(const char* variable, std::string_view below_home) {
    const String named = Environment(variable);
    return named.starts_with('/') ? WithoutSlashAtEnd(named) : Home().append(below_home);
}

String UserFolder(std::string_view name, std::string_view customary) {
    const String home = Home();
    String user_dirs;
    if (ReadInto(BaseFolder("XDG_CONFIG_HOME", "/.config") + "/user-dirs.dirs", user_dirs)) {
        if (String assigned = AssignedFolder(user_dirs, name, home); !assigned.empty()) return assigned;
    }
    const String folder = home + "/" + String(customary);
    struct stat status {};
    return stat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) ? folder : home;
}

// What stands between the quotes, a backslash keeping the character behind it.
String Unquoted(std::string_view text) {
    String plain;
    for (std::size_t at = 0; at < text.size() && text[at] != '"'; ++at) {
        if (text[at] == '\\' && at + 1 < text.size()) ++at;
        plain += text[at];
    }
    return plain.substr(0, plain.find('\0'));
}

}  // namespace

String AssignedFolder(std::string_view user_dirs, std::string_view name, const String& home) {
    const auto skip_blanks = [](std::string_view& text) {
        text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    };
    const auto skip = [](std::string_view& text, std::string_view expected) {
        if (!text.starts_with(expected)) return false;
        text.remove_prefix(expected.size());
        return true;
    };
    String assigned;
    while (!user_dirs.empty()) {
        std::string_view line = user_dirs.substr(0, user_dirs.find('\n'));
        user_dirs.remove_prefix(std::min(line.size() + 1, user_dirs.size()));
        skip_blanks(line);
        if (!skip(line, name)) continue;
        skip_blanks(line);
        if (!skip(line, "=")) continue;
        skip_blanks(line);
        if (!skip(line, "\"")) continue;
        const bool below_home = line == "$HOME\"" || line.starts_with("$HOME/");
        if (below_home) {
            skip(line, "$HOME");
        } else if (!line.starts_with('/')) {
            continue;
        }
        assigned = WithoutSlashAtEnd((below_home ? home : String()) + Unquoted(line));  // a later line prevails
    }
    return assigned;
}

String ProgramFolderOfProcess() {
    std::array<char, 4096> path{};
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    return length <= 0 ? String() : FolderOf({path.data(), static_cast<std::size_t>(length)});
}

String StateFolderOfUser() {
    return BaseFolder("XDG_STATE_HOME", "/.local/state");
}

String SpecialFolderOfUser(Long number) {
    switch (number.value()) {
        case 0:
            return UserFolder("XDG_DESKTOP_DIR", "Desktop");
        case 5:
            return UserFolder("XDG_DOCUMENTS_DIR", "Documents");
        case 26:
            return BaseFolder("XDG_DATA_HOME", "/.local/share");
        default:
            return {};
    }
}

}  // namespace mrlxmlclass::platform
