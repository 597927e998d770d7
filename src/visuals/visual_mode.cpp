#include "visuals/visual_mode.h"

#include "core/application.h"

namespace brevane {

VisualMode::VisualMode(Application& app, std::initializer_list<const char*> menuEntries,
                       std::function<void()> leave)
    : Timerinactivity(app.loop, kInactivityCheckMs),
      Timerhidecursor(app.loop, kHideCursorMs),
      app_(app),
      leave_(std::move(leave)) {
    pointer.setCaption("Pointer");
    contextMenu.setCaption("Visual");
    for (const char* caption : menuEntries) {
        MenuEntry& entry = contextMenu.addEntry(caption);
        const std::string c = caption;
        if (c == kShowMain) {
            entry.onClick = [this] {
                showcursor();
                app_.frmmain.window.show();
            };
        } else if (c == kShowRemote) {
            entry.onClick = [this] {
                showcursor();
                app_.frmremote2.showRemote();
            };
        } else if (c == kExitVisualMode) {
            entry.onClick = [this] { escape(); };
        } else if (c == kExitApplication) {
            entry.onClick = [this] {
                showcursor();
                app_.frmmain.QuitCommand.click();
            };
        }
    }
    Timerinactivity.onTick = [this] { checkInactivity(); };
    Timerhidecursor.onTick = [this] {
        Timerhidecursor.setEnabled(false);
        hidecursor();
    };
}

void VisualMode::begin() {
    if (!running_) {
        keptPanel_ = app_.frmmain.window.visible() ? 1 : app_.frmremote2.window.visible() ? 2 : 0;
    }
    running_ = true;
    Timerinactivity.setEnabled(true);
    Timerhidecursor.setEnabled(true);
}

void VisualMode::end() {
    running_ = false;
    Timerinactivity.setEnabled(false);
    Timerhidecursor.setEnabled(false);
    showcursor();
}

void VisualMode::escape() {
    const bool wasRunning = running_;
    showcursor();
    leave_();
    if (wasRunning) {
        showKeptPanel();
    }
}

void VisualMode::input() {
    app_.noteInput();
    showcursor();
}

void VisualMode::hidecursor() {
    pointer.setVisible(false);
}

void VisualMode::showcursor() {
    pointer.setVisible(true);
}

void VisualMode::hideInterface() {
    app_.frmmain.window.hide();
    app_.frmremote2.window.hide();
    for (PanelColours* panel : app_.paintedPanels()) {
        panel->window().hide();
    }
}

void VisualMode::checkInactivity() {
    if (!running_ || app_.FRMOPTIONS.autoHide.value() == 0) {
        return;
    }
    const std::int64_t idleMs = app_.loop.now() - app_.lastInputMs;
    if (idleMs / 1000 > app_.FRMOPTIONS.inactivitySeconds()) {
        hideInterface();
        hidecursor();
    }
}

void VisualMode::showKeptPanel() {
    if (keptPanel_ == 1) {
        app_.frmmain.window.show();
    } else if (keptPanel_ == 2) {
        app_.frmremote2.showRemote();
    }
}

}  // namespace brevane
