#pragma once

#include <algorithm>
#include <deque>
#include <vector>

#include "mrlxmlclass/runtime/Variant.h"

/// The controls of a form as its rules see them: what each shows, and nothing of how. A control tells its form when it
/// shows something else; what has not changed is not told.
namespace mrlxmlclass {

class Control;

/// A form, as its controls know it.
class ControlWatcher {
public:
    /// The control shows something else than before.
    virtual void Refresh(const Control& control) = 0;
    /// A field got other content, from the person or from the program.
    virtual void Changed(Control& control) = 0;

protected:
    ~ControlWatcher() = default;
};

/// The place in a list of `count`; one that is not there fails (9).
inline std::size_t PlaceOf(Long index, std::size_t count, SourceLine where = SourceLine::Here()) {
    if (index < 0 || std::cmp_greater_equal(index.value(), count)) Raise(failure::kIndexOutOfRange, where);
    return static_cast<std::size_t>(index.value());
}

struct ControlFont {
    String Name;
    String Size;  ///< in points, as text
    friend bool operator==(const ControlFont&, const ControlFont&) = default;
};

/// A label, a frame, a button, a menu entry; and what all others are too.
class Control {
public:
    Control(ControlWatcher& watcher, const char* name, int index = 0) : watcher_(watcher), name_(name), index_(index) {}
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const String& Name() const { return name_; }
    /// Place in the control array, from 0; 0 for one that stands alone.
    int Index() const { return index_; }

    Boolean Enabled() const { return enabled_; }
    void Enabled(Boolean flag) { Store(enabled_, flag); }
    /// Its own: it may stand in a frame that does not show.
    Boolean Visible() const { return visible_; }
    void Visible(Boolean flag) { Store(visible_, flag); }
    const String& Caption() const { return caption_; }
    void Caption(const String& text) { Store(caption_, text); }
    /// An empty name leaves the font to the screen.
    const ControlFont& Font() const { return font_; }
    void Font(const ControlFont& font) { Store(font_, font); }

protected:
    ~Control() = default;

    /// Tells the form when the value is another; whether it is.
    template <class T>
    bool Store(T& place, const T& value) {
        if (place == value) return false;
        place = value;
        Refresh();
        return true;
    }
    /// The same for what the form's rules answer.
    template <class T>
    void StoreContent(T& place, const T& value) {
        if (Store(place, value)) watcher_.Changed(*this);
    }
    void Refresh() { watcher_.Refresh(*this); }

private:
    ControlWatcher& watcher_;
    String name_;
    int index_;
    Boolean enabled_ = True;
    Boolean visible_ = True;
    String caption_;
    ControlFont font_;
};

/// A control without content of its own.
class PlainControl final : public Control {
public:
    using Control::Control;
};

/// A field of text. A list of texts may be offered with it.
class TextControl final : public Control {
public:
    using Control::Control;

    const String& Text() const { return text_; }
    void Text(const String& text) { StoreContent(text_, text); }
    /// How many characters a person may type; 0 = any number. The program is not bound by it.
    Long MaxLength() const { return max_length_; }
    void MaxLength(Long characters) { Store(max_length_, characters); }
    /// Shows its text and takes none.
    Boolean Locked() const { return locked_; }
    void Locked(Boolean flag) { Store(locked_, flag); }
    /// The place of the caret, in characters, which the program sets; wherever a person put it is not told.
    Long SelStart() const { return sel_start_; }
    void SelStart(Long place) {
        sel_start_ = place;
        Refresh();
    }
    const std::vector<String>& List() const { return list_; }
    void AddItem(const String& text) {
        list_.push_back(text);
        Refresh();
    }

private:
    String text_;
    Long max_length_;
    Boolean locked_;
    Long sel_start_;
    std::vector<String> list_;
};

class CheckControl final : public Control {
public:
    using Control::Control;

    Boolean Value() const { return value_; }
    void Value(Boolean ticked) { StoreContent(value_, ticked); }

private:
    Boolean value_;
};

/// A date with a check box: cleared, it has none, and its value is Null. A value that the program puts in is shown,
/// and counts as nobody's choice.
class DateControl final : public Control {
public:
    using Control::Control;

    const Variant& Value() const { return value_; }
    void Value(const Variant& date) { Store(value_, date); }
    /// A format of the host's, such as "dd/MM/yyyy"; empty leaves it to the screen.
    const String& CustomFormat() const { return custom_format_; }
    void CustomFormat(const String& format) { Store(custom_format_, format); }

private:
    Variant value_ = Variant::Null{};
    String custom_format_;
};

/// The tabs, from 0.
class TabControl final : public Control {
public:
    TabControl(ControlWatcher& watcher, const char* name, int count)
        : Control(watcher, name), tabs_(static_cast<std::size_t>(count)) {}

    Long Count() const { return tabs_.size(); }
    const String& TabCaption(Long tab) const { return At(tab).caption; }
    void TabCaption(Long tab, const String& text) { Store(At(tab).caption, text); }
    /// A tab that is off cannot be chosen.
    Boolean TabEnabled(Long tab) const { return At(tab).enabled; }
    void TabEnabled(Long tab, Boolean flag) { Store(At(tab).enabled, flag); }
    Long CurrTab() const { return current_; }
    void CurrTab(Long tab) { Store(current_, tab); }

private:
    struct Tab {
        String caption;
        Boolean enabled = True;
    };
    Tab& At(Long tab) { return tabs_[PlaceOf(tab, tabs_.size())]; }
    const Tab& At(Long tab) const { return tabs_[PlaceOf(tab, tabs_.size())]; }

    std::vector<Tab> tabs_;
    Long current_;
};

/// Controls of one name, from element 0. An element that is not there fails (9).
template <class T>
class ControlArray {
public:
    ControlArray(ControlWatcher& watcher, const char* name, int count) {
        for (int index = 0; index < count; ++index) elements_.emplace_back(watcher, name, index);
    }

    Long Count() const { return elements_.size(); }
    T& operator[](Long index) { return elements_[PlaceOf(index, elements_.size())]; }
    bool Holds(const Control& control) const {
        return std::ranges::any_of(elements_, [&](const T& element) { return &element == &control; });
    }
    auto begin() { return elements_.begin(); }
    auto end() { return elements_.end(); }

private:
    std::deque<T> elements_;
};

}  // namespace mrlxmlclass
