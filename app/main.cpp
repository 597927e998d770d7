// The program: Qt, the platform the headless panels run on, and the one way out.

#include <QApplication>

#include "base/app_path.h"
#include "base/dialogs.h"
#include "base/event_loop.h"
#include "placeholder_window.h"
#include "ui/platform/qt_dialogs.h"
#include "ui/platform/qt_event_loop_driver.h"
#include "ui/platform/qt_settings_store.h"
#include "ui/platform/qt_text.h"
#include "ui/platform/quit_routine.h"
#include "ui/widgets/style.h"

namespace brevane {
namespace {

// What the program runs on, made once in main().
struct Platform {
    AppPath appPath;
    EventLoop& loop;
    Dialogs& dialogs;
    QtSettingsStore& settings;
};

// Builds the program on its platform, shows it and runs until the quit routine
// ends the event loop.
int runProgram(Platform& platform) {
    PlaceholderPanel panel(platform.loop);
    PlaceholderWindow window(panel);

    QuitRoutine quitRoutine([&] {
        // The program's shutdown, the same for every way out: hide every panel,
        // then write the session files.
        window.hide();
        platform.settings.sync();
    });
    quitRoutine.watchWindow(window);
    quitRoutine.catchTermination();

    window.show();
    return QApplication::exec();
}

}  // namespace
}  // namespace brevane

int main(int argc, char** argv) {
    QApplication qtApp(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Brevane"));
    QApplication::setApplicationName(QStringLiteral("Brevane"));
    // Only the quit routine ends the program, so its shutdown step always runs.
    QApplication::setQuitOnLastWindowClosed(false);
    brevane::style::applyToProgram();

    brevane::EventLoop loop;
    brevane::QtEventLoopDriver driver(loop);
    brevane::QtDialogs dialogs;
    brevane::QtSettingsStore settings;
    brevane::Platform platform{
        brevane::AppPath(brevane::pathFromQt(QCoreApplication::applicationDirPath())), loop,
        dialogs, settings};
    return brevane::runProgram(platform);
}
