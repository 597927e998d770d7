#include "core/startup_splash.h"

#include "core/application.h"

namespace brevane {

StartupSplash::StartupSplash(Application& app) : Timer1(app.loop, kHandOverMs), app_(app) {
    window.setCaption("Brevane");
    Timer1.onTick = [this] {
        Timer1.setEnabled(false);
        app_.frmmain.load();
    };
}

void StartupSplash::show() {
    window.show();
    Timer1.setEnabled(true);
}

void StartupSplash::unload() {
    Timer1.setEnabled(false);
    window.hide();
}

}  // namespace brevane
