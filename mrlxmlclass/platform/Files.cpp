#include "mrlxmlclass/platform/Files.h"

namespace mrlxmlclass {

void WriteWhole(Files& files, const String& path, std::string_view bytes) {
    const auto file = files.Create(path);
    file->WriteAt(0, bytes);
    file->Close();
}

String FileNameOf(std::string_view path) {
    return String(path.substr(path.rfind('/') + 1));  // without a "/": npos + 1 is 0
}

String FolderOf(std::string_view path) {
    const std::size_t last = path.rfind('/');
    return last == std::string_view::npos ? String() : String(path.substr(0, last));
}

}  // namespace mrlxmlclass
