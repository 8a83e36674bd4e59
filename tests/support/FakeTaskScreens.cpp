#include "tests/support/FakeTaskScreens.h"

namespace mrlxmlclass::testing {

class FakeTaskScreens::View : public EditTaskView {
public:
    View(FakeTaskScreens& screens, EditTask& form) : screens_(screens), form_(form) {}

    void ShowModally() override {
        ++screens_.shown;
        form_.Form_Activate();
        screens_.person(form_);
        if (!closed_) form_.Form_Closed();
    }
    void Close() override {
        closed_ = true;
        ++screens_.closed;
    }
    void Refresh(const Control& control) override { screens_.refreshed.push_back(control.Name()); }
    void SetFocus(const Control& control) override { screens_.focused.push_back(control.Name()); }
    void ResetMousePointer() override { ++screens_.pointer_resets; }
    void PopupMenu() override { ++screens_.menus; }
    bool ClipboardHasText() override {
        if (screens_.clipboard_fails) Raise(failure::kPermissionDenied);
        return screens_.clipboard.has_value();
    }
    void PasteIntoNote() override { form_.txtNote.Text(form_.txtNote.Text() + screens_.clipboard.value()); }
    String ChooseFile(const String& title, const String& folder, const String& filter) override {
        screens_.files_asked.push_back(title + ", " + folder + ", " + filter);
        return screens_.file;
    }
    void ShowModally(frmurl& form) override { screens_.at_address(form); }

private:
    FakeTaskScreens& screens_;
    EditTask& form_;
    bool closed_ = false;
};

std::unique_ptr<EditTaskView> FakeTaskScreens::NewView(EditTask& form) {
    on_new_view();
    return std::make_unique<View>(*this, form);
}

Ref<HelpSystem> RecordingHelp::NewHelpSystem() {
    class Help : public HelpSystem {
    public:
        explicit Help(RecordingHelp& log) : log_(log) {}
        void loadSystem(const Ref<Counted>& owner) override {
            log_.calls.emplace_back(owner ? "loadSystem" : "loadSystem of nothing");
        }
        void OpenHelpPage(const String& page) override { log_.calls.push_back("OpenHelpPage " + page); }

    private:
        RecordingHelp& log_;
    };
    if (missing) Raise(failure::kCannotCreate);
    ++made;
    return Ref<HelpSystem>(Make<Help>(*this).get());
}

}  // namespace mrlxmlclass::testing
