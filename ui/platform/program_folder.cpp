#include "ui/platform/program_folder.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <cstdlib>

#include "base/user_tree.h"
#include "ui/platform/qt_text.h"

namespace brevane {

std::optional<AppPath> programFolder(const char* relativeStockTree, const char* version) {
    const auto programDir = pathFromQt(QCoreApplication::applicationDirPath());
    const auto stock = installedStockTree(programDir, relativeStockTree);
    if (!stock) {
        return AppPath(programDir);
    }
    const auto user = userDataHome(std::getenv("XDG_DATA_HOME"), std::getenv("HOME")) / "brevane";
    const UserTreeResult made = prepareUserTree(*stock, user, version);
    if (!made.ok) {
        QMessageBox::critical(nullptr, QStringLiteral("Brevane"),
                              QStringLiteral("Your Brevane folder could not be made: %1.")
                                  .arg(QString::fromStdString(made.error)));
        return std::nullopt;
    }
    return AppPath(user);
}

}  // namespace brevane
