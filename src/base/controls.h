#pragma once
// The controls of a panel. A control *is* the state it shows: panels read and write
// each other's controls through the same setters a user's hand drives, and the
// control's change handler does the work.
//
// Contract shared by every control:
// - One setter serves the hand and the code. It runs the change handler
//   synchronously (nested, when a handler sets another control) and only when the
//   value really changes; setting an equal value runs nothing.
// - Views watch a control to follow it (`watch`); watchers are told after the new
//   value is stored and before the change handler runs, so a handler that reads the
//   screen sees the new value there too.
// - Not thread-safe: controls live on the event thread.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace brevane {

// A colour as the session files store it: 0x00BBGGRR.
using Colour = std::uint32_t;

class Control {
  public:
    using Handler = std::function<void()>;
    using WatchId = int;

    Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    bool visible() const { return visible_; }
    void setVisible(bool visible);

    const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);
    const std::string& toolTip() const { return toolTip_; }
    void setToolTip(std::string toolTip);

    // Colours are unset until a panel or a colour scheme gives one; a view then
    // keeps its own style.
    std::optional<Colour> foreColour() const { return foreColour_; }
    void setForeColour(std::optional<Colour> colour);
    std::optional<Colour> backColour() const { return backColour_; }
    void setBackColour(std::optional<Colour> colour);

    // Views register here to repaint when anything of the control changes.
    WatchId watch(Handler onAnyChange);
    void unwatch(WatchId id);

  protected:
    void notifyWatchers();

  private:
    bool enabled_ = true;
    bool visible_ = true;
    std::string caption_;
    std::string toolTip_;
    std::optional<Colour> foreColour_;
    std::optional<Colour> backColour_;
    std::vector<std::pair<WatchId, Handler>> watchers_;
    WatchId nextWatchId_ = 1;
};

// A control with an integer value inside a range. The two kinds differ only in
// what a value outside the range does: a Slider clamps it, a ScrollBar refuses it.
class RangeControl : public Control {
  public:
    int value() const { return value_; }
    int min() const { return min_; }
    int max() const { return max_; }
    // The lower and upper ends whatever the direction of the range.
    int low() const { return min_ < max_ ? min_ : max_; }
    int high() const { return min_ < max_ ? max_ : min_; }
    int smallChange() const { return smallChange_; }
    int largeChange() const { return largeChange_; }
    void setSmallChange(int step) { smallChange_ = step; }
    void setLargeChange(int step) { largeChange_ = step; }

    // Moves the ends; a value left outside is brought to the nearest end (and the
    // change handler runs).
    void setRange(int min, int max);

    // Runs on every real change of the value.
    Handler onChange;
    // Runs the change handler as if the value had changed (a panel "firing" a
    // slider's handler to bring its copies up to date).
    void fireChange();

  protected:
    RangeControl(int min, int max, int value);
    void store(int value);

  private:
    int min_;
    int max_;
    int value_;
    int smallChange_ = 1;
    int largeChange_ = 10;
};

class Slider : public RangeControl {
  public:
    explicit Slider(int min = 0, int max = 255, int value = 0) : RangeControl(min, max, value) {}
    // A value past an end stands at that end.
    void setValue(int value);
};

class ScrollBar : public RangeControl {
  public:
    // min may be above max: the bar then runs the other way (top is the larger value).
    explicit ScrollBar(int min = 0, int max = 100, int value = 0) : RangeControl(min, max, value) {}
    // A value outside the range is refused: the value stays and false is returned.
    bool setValue(int value);
};

// Check box: value 0 or 1. Its click handler runs whenever the value changes, also
// when code sets it, as the panels rely on.
class CheckBox : public Control {
  public:
    int value() const { return value_; }
    bool checked() const { return value_ != 0; }
    void setValue(int value);
    void setChecked(bool checked) { setValue(checked ? 1 : 0); }
    Handler onClick;

  private:
    int value_ = 0;
};

class OptionButton;

// The option buttons of one frame: setting one clears the others.
class OptionGroup {
  public:
    void add(OptionButton& button);
    const std::vector<OptionButton*>& buttons() const { return buttons_; }
    // Index of the set button, -1 when none is set.
    int selectedIndex() const;

  private:
    friend class OptionButton;
    std::vector<OptionButton*> buttons_;
};

class OptionButton : public Control {
  public:
    bool value() const { return value_; }
    // Setting true clears the other buttons of the group first (their handlers do
    // not run), then runs this button's click handler. Setting false only clears.
    void setValue(bool value);
    Handler onClick;

  private:
    friend class OptionGroup;
    bool value_ = false;
    OptionGroup* group_ = nullptr;
};

// A button that stays down or up.
class ToggleButton : public Control {
  public:
    bool value() const { return value_; }
    void setValue(bool value);
    Handler onClick;

  private:
    bool value_ = false;
};

// A push button: no value, its handler runs on each click.
class CommandButton : public Control {
  public:
    void click();
    Handler onClick;
};

class TextBox : public Control {
  public:
    const std::string& text() const { return text_; }
    void setText(std::string text);
    Handler onChange;

  private:
    std::string text_;
};

// An ordered list of entries with a selected index (-1 for none).
class ListControl : public Control {
  public:
    int count() const { return static_cast<int>(items_.size()); }
    const std::vector<std::string>& items() const { return items_; }
    // The entry at `index`, or "" outside the list.
    std::string item(int index) const;
    int listIndex() const { return listIndex_; }

    // Appends, or inserts before `index` when 0 <= index <= count.
    void addItem(std::string text, int index = -1);
    // Removes one entry; a selection on it is cleared, a selection after it follows.
    void removeItem(int index);
    void clear();
    // Replaces the text of an entry in place.
    void setItem(int index, std::string text);
    // Index of the first entry equal to `text`, or -1.
    int find(const std::string& text) const;

    // Selects an entry, -1 for none; an index outside the list is ignored. Runs the
    // click handler on a real change.
    void setListIndex(int index);
    Handler onClick;

  protected:
    virtual void selectionStored() {}

  private:
    std::vector<std::string> items_;
    int listIndex_ = -1;
};

class ListBox : public ListControl {};

// A combo box also has a text: the selected entry's, or what was typed.
class ComboBox : public ListControl {
  public:
    const std::string& text() const { return text_; }
    // Typing into the box: the text changes, the selection does not.
    void setText(std::string text);
    Handler onChange;

  protected:
    void selectionStored() override;

  private:
    std::string text_;
};

class Label : public Control {};

// A panel's own window state: shown or hidden, its caption. Panels are created
// once and only shown or hidden; views follow this state.
class PanelWindow : public Control {
public:
    PanelWindow() { setVisible(false); }
    void show() { setVisible(true); }
    void hide() { setVisible(false); }
};

}  // namespace brevane
