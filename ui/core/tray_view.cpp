#include "ui/core/tray_view.h"

#include <QAction>
#include <QMenu>
#include <QSystemTrayIcon>
#include <vector>

#include "core/frmmain.h"
#include "core/menu.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/program_icon.h"

namespace brevane {

namespace {

// The entry at `path` below `root`, or nullptr when the tree no longer has it.
MenuEntry* entryAt(MenuEntry& root, const std::vector<std::size_t>& path) {
    MenuEntry* entry = &root;
    for (std::size_t index : path) {
        if (index >= entry->entries().size()) {
            return nullptr;
        }
        entry = entry->entries()[index].get();
    }
    return entry;
}

void fill(QMenu& menu, MenuEntry& root, MenuEntry& level, std::vector<std::size_t>& path) {
    for (std::size_t i = 0; i < level.entries().size(); ++i) {
        MenuEntry& entry = *level.entries()[i];
        if (!entry.visible()) {
            continue;
        }
        if (entry.separator()) {
            menu.addSeparator();
            continue;
        }
        path.push_back(i);
        const QString caption = qtText(entry.caption());
        if (!entry.entries().empty()) {
            QMenu* sub = menu.addMenu(caption);
            sub->setEnabled(entry.enabled());
            fill(*sub, root, entry, path);
        } else {
            QAction* action = menu.addAction(caption);
            action->setEnabled(entry.enabled());
            action->setCheckable(entry.checked());
            action->setChecked(entry.checked());
            if (!entry.toolTip().empty()) {
                action->setToolTip(qtText(entry.toolTip()));
            }
            QObject::connect(action, &QAction::triggered, &menu,
                             [&root, at = path, expected = entry.caption()] {
                                 MenuEntry* target = entryAt(root, at);
                                 if (target != nullptr && target->caption() == expected) {
                                     target->click();
                                 }
                             });
        }
        path.pop_back();
    }
}

}  // namespace

void populateMenu(QMenu& menu, MenuEntry& root) {
    menu.clear();
    std::vector<std::size_t> path;
    fill(menu, root, root, path);
}

TrayView::TrayView(Frmmain& console) : console_(console), menu_(std::make_unique<QMenu>()) {
    QMenu* menu = menu_.get();
    QObject::connect(menu, &QMenu::aboutToShow, this,
                     [this, menu] { populateMenu(*menu, console_.mnutray); });
    populateMenu(*menu, console_.mnutray);
    if (QSystemTrayIcon::isSystemTrayAvailable()) {
        icon_ = std::make_unique<QSystemTrayIcon>(programIcon());
        icon_->setContextMenu(menu);
        QObject::connect(icon_.get(), &QSystemTrayIcon::activated, this,
                         [this](QSystemTrayIcon::ActivationReason reason) {
                             if (reason == QSystemTrayIcon::Trigger) {
                                 if (MenuEntry* show = console_.mnutray.find("Show Main")) {
                                     show->click();
                                 }
                             }
                         });
    }
    watchId_ = console_.trayIcon.watch([this] { follow(); });
    follow();
}

TrayView::~TrayView() {
    console_.trayIcon.unwatch(watchId_);
    if (icon_) {
        icon_->hide();
    }
}

void TrayView::follow() {
    if (!icon_) {
        return;
    }
    const QString tip = qtText(console_.trayIcon.toolTip());
    if (icon_->toolTip() != tip) {
        icon_->setToolTip(tip);
    }
    icon_->setVisible(console_.trayIcon.visible());
}

}  // namespace brevane
