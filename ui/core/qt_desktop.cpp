#include "ui/core/qt_desktop.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QStringList>
#include <QUrl>

#include "ui/platform/qt_text.h"

namespace brevane {

bool QtProgramLauncher::startProgram(const std::filesystem::path& program) {
    QFileInfo file(qtPath(program));
    // Installed, the tree is the user's folder and the companions stand beside the
    // program's own file instead.
    if (!file.isFile()) {
        file =
            QFileInfo(QCoreApplication::applicationDirPath() + QLatin1Char('/') + file.fileName());
    }
    // QProcess would also search the PATH for a bare name; the companion must be the
    // one beside the program.
    if (!file.isFile() || !file.isExecutable()) {
        return false;
    }
    return QProcess::startDetached(file.absoluteFilePath(), QStringList(), file.absolutePath());
}

bool QtDesktopServices::openDocument(const std::filesystem::path& document) {
    const QFileInfo file(qtPath(document));
    if (!file.isFile()) {
        return false;
    }
    return QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath()));
}

}  // namespace brevane
