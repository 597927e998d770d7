// The recorder: the companion the console's "Rec" starts beside the program. It records
// what the program plays, or renders a saved scenario to a file.

#include <QApplication>
#include <QDir>
#include <QStandardPaths>

#include "base/event_loop.h"
#include "engine/mix_share.h"
#include "recorder/recorder_panel.h"
#include "shell/colour_files.h"
#include "ui/core/kept_window_position.h"
#include "ui/platform/program_folder.h"
#include "ui/platform/qt_dialogs.h"
#include "ui/platform/qt_event_loop_driver.h"
#include "ui/platform/qt_settings_store.h"
#include "ui/platform/qt_text.h"
#include "ui/recorder/recorder_view.h"
#include "ui/widgets/program_icon.h"
#include "ui/widgets/style.h"

int main(int argc, char** argv) {
    QApplication qtApp(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Brevane"));
    QApplication::setApplicationName(QStringLiteral("Brevane Recorder"));
    brevane::style::applyToProgram();

    const auto folder = brevane::programFolder(BREVANE_RELATIVE_STOCK_TREE, BREVANE_VERSION);
    if (!folder) {
        return 1;
    }
    QString music = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    if (music.isEmpty() || !QDir(music).exists()) {
        music = QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
    }
    brevane::EventLoop loop;
    brevane::QtEventLoopDriver driver(loop);
    brevane::QtDialogs dialogs;
    brevane::RecorderPanel panel(*folder, loop, dialogs, brevane::pathFromQt(music),
                                 brevane::mixShareAddress(folder->root()));
    brevane::QtSettingsStore settings;
    panel.position =
        brevane::readWindowPosition(settings, brevane::RecorderPanel::kSettingsSection);
    brevane::RecorderView view(panel);
    view.setWindowIcon(brevane::programIcon());
    // It wears the colours the program was last left in.
    if (const auto scheme = brevane::lastNamedScheme(folder->root())) {
        brevane::style::paint(view, *scheme);
    }
    brevane::keepWindowPosition(view, panel.position);
    // The window's close ends what runs and hides the panel; the recorder ends with it.
    panel.window.watch([&panel] {
        if (!panel.window.visible()) {
            QCoreApplication::quit();
        }
    });
    panel.show();
    const int status = QApplication::exec();
    if (panel.position) {
        brevane::writeWindowPosition(settings, brevane::RecorderPanel::kSettingsSection,
                                     *panel.position);
        settings.sync();
    }
    return status;
}
