#pragma once
// The program's icon in the desktop's notification area, with the console's tray
// menu. The icon follows the console's TrayIcon (shown while installed, its tool tip);
// the menu is built from the console's mnutray each time it opens, so it always shows
// the entries, check marks and enabled states as they stand. A click on the icon
// itself brings the console forward, as "Show Main" does.
//
// A desktop without a notification area shows no icon; the menu still exists.
// Ownership: the view owns its icon and menu; the console must outlive it. Event
// thread only.

#include <QObject>
#include <memory>

class QMenu;
class QSystemTrayIcon;

namespace brevane {

class Frmmain;
class MenuEntry;

// Fills `menu` with the entries of `root`, sub-entries as submenus. Each action finds
// its entry again when triggered, so a menu left open while the tree is rebuilt
// never reaches an entry that is gone.
void populateMenu(QMenu& menu, MenuEntry& root);

class TrayView final : public QObject {
  public:
    explicit TrayView(Frmmain& console);
    ~TrayView() override;

    QMenu& menu() { return *menu_; }
    // Null when the desktop has no notification area.
    QSystemTrayIcon* icon() { return icon_.get(); }

  private:
    void follow();

    Frmmain& console_;
    std::unique_ptr<QMenu> menu_;
    std::unique_ptr<QSystemTrayIcon> icon_;
    int watchId_ = 0;
};

}  // namespace brevane
