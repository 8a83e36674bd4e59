#include "prx/Host.h"

#include <fmt/core.h>

#include <filesystem>
#include <utility>

#include "prx/Terminal.h"

namespace prx {

using mrlxmlclass::Platform;

namespace {

/// Why the log of failures could not be written, where a message of the library tells that; "" where it tells else.
std::string WhyNotRecorded(std::string_view message) {
    if (!message.ends_with(" of Class Module ErrorsHandler")) return {};
    const std::size_t why = message.find('(') + 1;
    return std::string(message.substr(why, message.find(" at time ") - why));
}

}  // namespace

void HostFiles::Keep(const std::string& path) {
    kept_ = files_.Read(path);
    kept_path_ = path;
}

void HostUi::Message(const std::string& text) {
    const std::string why = WhyNotRecorded(text);
    if (!why.empty() && std::exchange(told_of_error_file_, true)) return;
    const std::string words =
        why.empty() ? text : fmt::format("what went wrong could not be recorded in {}: {}", Host::ErrorFile(), why);
    if (ShowMessage(words)) return;
    progress_.Clear();
    fmt::print(stderr, "prx: {}\n", Plain(words));
}

std::string Host::ErrorFile() {
    return Platform().files.ProgramFolder() + "/SendToSupport.xml";
}

mrlxmlclass::Ref<mrlxmlclass::HelpSystem> HostHelp::NewHelpSystem() {
    class NoPages : public mrlxmlclass::HelpSystem {
    public:
        void loadSystem(const mrlxmlclass::Ref<mrlxmlclass::Counted>& /*owner*/) override {}
        void OpenHelpPage(const std::string& /*page*/) override {
            mrlxmlclass::Platform().ui.Message("There are no pages of help on this window.");
        }
    };
    return mrlxmlclass::Ref<mrlxmlclass::HelpSystem>(mrlxmlclass::Make<NoPages>().get());
}

Host::Host() {
    // Where the folder cannot be had, the library says itself that its error file could not be written.
    std::error_code ignored;
    std::filesystem::create_directories(files_.ProgramFolder(), ignored);
}

}  // namespace prx
