#include "scenarios/import_panel.h"

#include "base/dialogs.h"
#include "core/application.h"

namespace brevane {

namespace {

constexpr const char* kInstalledText =
    "The scenario has been successfully installed and can be loaded from the main interface.";
constexpr const char* kUnreadableText = "The chosen file could not be read as a zip archive.";
constexpr const char* kTooLargeText =
    "This package was not installed: it would unpack to more than 2 GB.";
constexpr const char* kTooManyText = "This package was not installed: it holds too many files.";
constexpr const char* kHostileText =
    "This package was not installed: these entries would be written outside the program's "
    "folder, or are not plain files:";
constexpr const char* kWriteFailedText =
    "The scenario could not be installed: a file could not be written. Nothing was changed.";
constexpr const char* kReplaceQuestion = "Installing this package replaces these files:";

std::string listed(const std::string& heading, const std::vector<std::string>& lines) {
    std::string text = heading;
    for (const std::string& line : lines) {
        text += "\r\n" + line;
    }
    return text;
}

}  // namespace

ImportPanel::ImportPanel(Application& app) : app_(app) {
    window.setCaption("Scenario Importer");
    intro.setCaption("Choose a packaged scenario (a zip file) to install it.");
    importButton.setCaption("Import");
    importButton.onClick = [this] { importPackage(); };
    progress.setCaption("Progress");
    closeButton.setCaption("Close");
    closeButton.onClick = [this] { window.hide(); };
}

void ImportPanel::importPackage() {
    importButton.setEnabled(false);
    progress.setValue(0);
    const auto chosen = app_.dialogs.openFile(FileDialogRequest{
        "Select scenario to install", app_.appPath.root(), "Zip Files|*.zip", {}});
    if (!chosen) {
        importButton.setEnabled(true);
        return;
    }
    PackageInstallHooks hooks;
    hooks.progress = [this](int percent) { progress.setValue(percent); };
    hooks.confirmReplace = [this](const std::vector<std::string>& replaced) {
        return app_.dialogs.askYesNo(listed(kReplaceQuestion, replaced) + "\r\n\r\nReplace them?");
    };
    const PackageResult result = installPackage(*chosen, app_.appPath.root(), hooks, limits);
    importButton.setEnabled(true);
    switch (result.outcome) {
        case PackageOutcome::Installed:
            progress.setValue(100);
            app_.frmmain.refreshscenariolist();
            app_.dialogs.message(MessageKind::Information, kInstalledText);
            return;
        case PackageOutcome::Declined:
            break;
        case PackageOutcome::Unreadable:
            app_.dialogs.message(MessageKind::Exclamation, kUnreadableText);
            break;
        case PackageOutcome::TooLarge:
            app_.dialogs.message(MessageKind::Exclamation, kTooLargeText);
            break;
        case PackageOutcome::TooManyEntries:
            app_.dialogs.message(MessageKind::Exclamation, kTooManyText);
            break;
        case PackageOutcome::HostileEntries:
            app_.dialogs.message(MessageKind::Exclamation, listed(kHostileText, result.refused));
            break;
        case PackageOutcome::WriteFailed:
            app_.dialogs.message(MessageKind::Exclamation, kWriteFailedText);
            break;
    }
    progress.setValue(0);
}

void ImportPanel::docolors() {
    colours.paint(app_.scheme);
}

}  // namespace brevane
