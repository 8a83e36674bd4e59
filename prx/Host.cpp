#include "prx/Host.h"

#include <fmt/core.h>

#include <filesystem>

#include "prx/Terminal.h"

namespace prx {

void HostUi::Message(const std::string& text) {
    if (ShowMessage(text)) return;
    progress_.Clear();
    fmt::print(stderr, "prx: {}\n", Plain(text));
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
