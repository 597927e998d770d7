// The program: Qt, the platform the headless panels run on, the Application with
// its windows, and the one way out.

#include <QApplication>
#include <QTimer>

#include "base/app_path.h"
#include "base/event_loop.h"
#include "base/random.h"
#include "core/application.h"
#include "core/autostart.h"
#include "core/media_control.h"
#include "engine/mix_share.h"
#include "engine/mixer_engine.h"
#include "media/cd_drive.h"
#include "ui/core/application_views.h"
#include "ui/core/main_window.h"
#include "ui/core/qt_desktop.h"
#include "ui/platform/logind_power.h"
#include "ui/platform/mpris_service.h"
#include "ui/platform/program_folder.h"
#include "ui/platform/qt_dialogs.h"
#include "ui/platform/qt_event_loop_driver.h"
#include "ui/platform/qt_settings_store.h"
#include "ui/platform/qt_text.h"
#include "ui/platform/quit_routine.h"
#include "ui/widgets/style.h"

namespace brevane {
namespace {

// Status when the sound engine could not start: the program ends at once.
constexpr int kEngineFailedStatus = 1;

// Builds the Application on the real platform, shows it and runs until the quit
// routine, or a failed start, ends the event loop.
int runProgram(const AppPath& appPath, EventLoop& loop) {
    QtDialogs dialogs;
    QtSettingsStore settings;
    Application* running = nullptr;

    // Every way out (the console's quit, closing its window, a signal, the end of the
    // desktop session) runs the console's quit once; the quit routine then leaves the
    // event loop. Only the console's own commands (its quit, its close button, the tray's
    // "Quit App") ask first. Signals are caught before the sound device is opened, so that the
    // device library finds them taken and leaves them to the program.
    QuitRoutine quitRoutine([&] {
        if (running != nullptr) {
            running->frmmain.quitWithoutAsking();
        }
        settings.sync();
    });
    quitRoutine.catchTermination();

    MixerEngine engine(MixerEngine::Output::Device);
    // The recorder beside the program takes what it plays from here.
    MixShare mixShare(engine.mixer(), mixShareAddress(appPath.root()));
    brevane::Random random;
    random.reseedFromClock();
    QtProgramLauncher launcher;
    QtDesktopServices desktop;
    LogindPower power;
    CdioDrives cdDrives;
    XdgAutostartEntry autostart(XdgAutostartEntry::defaultFolder(),
                                pathFromQt(QCoreApplication::applicationFilePath()));
    Application app(Platform{.appPath = appPath,
                             .engine = engine,
                             .loop = loop,
                             .dialogs = dialogs,
                             .settings = settings,
                             .random = random,
                             .autostart = &autostart,
                             .launcher = launcher,
                             .desktop = desktop,
                             .power = power,
                             .cdDrives = cdDrives});
    running = &app;
    ApplicationViews views(app);
    MprisService mpris(app.media);
    // The close button is the console's quit command: it asks "Really Quit?" when the
    // option says so, and a No leaves everything playing.
    quitRoutine.watchWindow(views.mainWindow(), [&app] { app.frmmain.QuitCommand.click(); });

    app.onExit = [&](ExitKind kind) {
        if (kind == ExitKind::Immediate) {
            // Nothing is cleaned up or written: the session stays as it was.
            QCoreApplication::exit(kEngineFailedStatus);
        } else {
            quitRoutine.quit();
        }
    };

    // The splash starts from inside the event loop: showing it pumps events, and a
    // quit that arrives then must find the loop running to end it.
    QTimer::singleShot(0, &views.mainWindow(), [&app] { app.start(); });
    const int status = QApplication::exec();
    running = nullptr;
    return status;
}

}  // namespace
}  // namespace brevane

int main(int argc, char** argv) {
    QApplication qtApp(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Brevane"));
    QApplication::setApplicationName(QStringLiteral("Brevane"));
    // Wayland compositors and MPRIS clients find the icon and name by the desktop entry.
    QGuiApplication::setDesktopFileName(QString::fromLatin1(brevane::MediaControl::kDesktopEntry));
    // Only the quit routine ends the program, so its shutdown step always runs.
    QApplication::setQuitOnLastWindowClosed(false);
    brevane::style::applyToProgram();

    const auto folder = brevane::programFolder(BREVANE_RELATIVE_STOCK_TREE, BREVANE_VERSION);
    if (!folder) {
        return 1;
    }
    brevane::EventLoop loop;
    brevane::QtEventLoopDriver driver(loop);
    return brevane::runProgram(*folder, loop);
}
