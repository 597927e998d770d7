#pragma once
// Menus as panel state: a tree of entries with captions, check marks and click
// handlers, and the tray icon that offers one of them. A view builds the real menu
// from the tree and follows it; a test reads the tree and clicks its entries.
//
// Ownership: an entry owns its sub-entries. Removing entries destroys them, so a view
// must rebuild from the tree when told (every structural change notifies the parent's
// watchers). Not thread-safe: menus live on the event thread.

#include <memory>
#include <string>
#include <vector>

#include "base/controls.h"

namespace brevane {

class MenuEntry : public Control {
  public:
    MenuEntry() = default;
    explicit MenuEntry(std::string caption, bool separator = false);

    // A separator has no caption and no handler; a click on it does nothing.
    bool separator() const { return separator_; }

    // The check mark. Setting it runs nothing; only click() runs the handler.
    bool checked() const { return checked_; }
    void setChecked(bool checked);

    // Runs the handler when the entry is enabled and not a separator, as a hand on
    // the menu would.
    void click();
    Handler onClick;

    // Sub-entries, in menu order. An entry with sub-entries opens a submenu.
    const std::vector<std::unique_ptr<MenuEntry>>& entries() const { return entries_; }
    MenuEntry& addEntry(std::string caption);
    MenuEntry& addSeparator();
    void clearEntries();
    // The first sub-entry with `caption`, or nullptr.
    MenuEntry* find(const std::string& caption) const;
    // The captions of the sub-entries in order, "-" for a separator.
    std::vector<std::string> captions() const;

  private:
    bool separator_ = false;
    bool checked_ = false;
    std::vector<std::unique_ptr<MenuEntry>> entries_;
};

// The program's icon in the desktop's notification area. Visible while installed; its
// tool tip is the control's; its menu is the console's tray menu.
class TrayIcon : public Control {
  public:
    TrayIcon() { setVisible(false); }
};

}  // namespace brevane
