#include "banks/random/select_sounds.h"

#include <algorithm>
#include <cctype>
#include <system_error>

#include "base/comma_record.h"
#include "base/dialogs.h"
#include "base/file_io.h"
#include "base/natural_order.h"
#include "core/application.h"

namespace brevane {

namespace fs = std::filesystem;

namespace {

constexpr const char* kBackLimitText =
    "No more than 16 sounds can be added to the list when choosing background sounds";
constexpr const char* kRandomLimitText =
    "No more than 28 sounds can be added to the list when choosing random sounds";
constexpr const char* kBackFolderText =
    "Please choose a directory within the background soundbanks directory.";
constexpr const char* kRandomFolderText =
    "Please choose a folder within the random soundbanks directory.";
constexpr const char* kNothingSelectedText =
    "No files were selected. Please add one or more files to the list and retry.";
constexpr const char* kNotDecodedText = "These audio files could not be opened:";

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

bool matchesPattern(const fs::path& file) {
    const std::string extension = lowered(file.extension().string());
    if (extension.empty()) {
        return false;
    }
    const std::string pattern = SelectSoundsPanel::kFilePattern;
    std::size_t start = 0;
    while (start < pattern.size()) {
        std::size_t end = pattern.find(';', start);
        if (end == std::string::npos) {
            end = pattern.size();
        }
        // Each entry is "*.ext".
        if (pattern.compare(start + 1, end - start - 1, extension) == 0) {
            return true;
        }
        start = end + 1;
    }
    return false;
}

// Whether `folder` is `root` or lies below it, after resolving "." and "..".
bool inside(const fs::path& folder, const fs::path& root) {
    std::error_code ec;
    const fs::path f = fs::weakly_canonical(folder, ec).lexically_normal();
    const fs::path r = fs::weakly_canonical(root, ec).lexically_normal();
    const fs::path rel = f.lexically_relative(r);
    return !rel.empty() && *rel.begin() != "..";
}

}  // namespace

SelectSoundsPanel::SelectSoundsPanel(Application& app) : app_(app) {
    window.setCaption("Select Sounds");
    folderView.setCaption("Folders");
    fileView.setCaption("Files");
    fileNames.setCaption("Files to be loaded");
    filePaths.setCaption("Paths");
    filePaths.setVisible(false);
    listCaption.setCaption("Files to be loaded");
    note.setCaption(
        "Note: You may add files from more than one directory to the list on the right");
    addAll.setCaption("+ All");
    addSelected.setCaption("+ Selected");
    // The up arrow has no caption on the panel; its name is read aloud.
    moveUp.setToolTip("Up");
    moveDown.setCaption("Down");
    remove.setCaption("Remove");
    clear.setCaption("Clear");
    loadFiles.setCaption("Load Files");
    close.setCaption("Close");

    folderView.onChange = [this] { folderChanged(); };
    addAll.onClick = [this] {
        const int limit = mode_ == SelectionMode::Back ? kBackAllLimit : kRandomLimit;
        for (int row = 0; row < fileView.count() && fileNames.count() < limit; ++row) {
            addPath(fs::path(folderView.text()) / fileView.item(row));
        }
    };
    addSelected.onClick = [this] {
        for (int row : selectedFiles) {
            if (atLimit()) {
                return;
            }
            addPath(fs::path(folderView.text()) / fileView.item(row));
        }
    };
    moveUp.onClick = [this] { moveRow(fileNames.listIndex(), fileNames.listIndex() - 1); };
    moveDown.onClick = [this] { moveRow(fileNames.listIndex(), fileNames.listIndex() + 1); };
    remove.onClick = [this] { removeRow(fileNames.listIndex()); };
    clear.onClick = [this] {
        fileNames.clear();
        filePaths.clear();
    };
    loadFiles.onClick = [this] { doLoadFiles(); };
    close.onClick = [this] { window.hide(); };
}

void SelectSoundsPanel::load() {
    position = readWindowPosition(app_.settings, kSettingsSection);
}

void SelectSoundsPanel::unload() {
    if (position) {
        writeWindowPosition(app_.settings, kSettingsSection, *position);
    }
}

fs::path SelectSoundsPanel::modeRoot() const {
    return app_.appPath / (mode_ == SelectionMode::Back ? "soundbanks/background sounds"
                                                        : "soundbanks/random sounds");
}

void SelectSoundsPanel::open(SelectionMode mode) {
    mode_ = mode;
    readDirs();
    const std::string& kept = mode_ == SelectionMode::Back ? backgroundFolder : randomFolder;
    std::error_code ec;
    const bool usable = !kept.empty() && fs::is_directory(kept, ec);
    // The view is filled afresh even when the folder is the one it stood in: files may
    // have come and gone while the panel was closed.
    settingFolder_ = true;
    folderView.setText({});
    settingFolder_ = false;
    folderView.setText(usable ? kept : modeRoot().string());
    window.show();
}

void SelectSoundsPanel::readDirs() {
    const auto data = readWholeFile(app_.appPath / kDirsFile);
    if (!data) {
        return;
    }
    RecordReader reader(*data);
    std::string background = reader.readText();
    std::string random = reader.readText();
    if (reader.ok()) {
        backgroundFolder = std::move(background);
        randomFolder = std::move(random);
    }
}

void SelectSoundsPanel::writeDirs() const {
    RecordWriter writer;
    writer.text(backgroundFolder).text(randomFolder).endRecord();
    writeFileAtomically(app_.appPath / kDirsFile, writer.str());
}

void SelectSoundsPanel::folderChanged() {
    if (settingFolder_) {
        return;
    }
    if (!inside(folderView.text(), modeRoot())) {
        app_.dialogs.message(MessageKind::Information,
                             mode_ == SelectionMode::Back ? kBackFolderText : kRandomFolderText);
        // Going back to the root is itself a change of folder, and a valid one.
        folderView.setText(modeRoot().string());
        return;
    }
    (mode_ == SelectionMode::Back ? backgroundFolder : randomFolder) = folderView.text();
    fileView.clear();
    selectedFiles.clear();
    std::vector<std::string> names;
    std::error_code ec;
    for (fs::directory_iterator it(folderView.text(), ec), end; !ec && it != end;
         it.increment(ec)) {
        if (it->is_regular_file(ec) && matchesPattern(it->path())) {
            names.push_back(it->path().filename().string());
        }
    }
    std::sort(names.begin(), names.end(),
              [](const std::string& a, const std::string& b) { return naturalLess(a, b); });
    for (std::string& name : names) {
        fileView.addItem(std::move(name));
    }
}

int SelectSoundsPanel::selectedLimit() const {
    return mode_ == SelectionMode::Back ? kBackSelectedLimit : kRandomLimit;
}

bool SelectSoundsPanel::atLimit() {
    if (fileNames.count() < selectedLimit()) {
        return false;
    }
    app_.dialogs.message(MessageKind::Information,
                         mode_ == SelectionMode::Back ? kBackLimitText : kRandomLimitText);
    return true;
}

void SelectSoundsPanel::addPath(const fs::path& file) {
    fileNames.addItem(file.filename().string());
    filePaths.addItem(file.string());
}

void SelectSoundsPanel::addFile(int fileRow) {
    if (fileRow < 0 || fileRow >= fileView.count() || atLimit()) {
        return;
    }
    addPath(fs::path(folderView.text()) / fileView.item(fileRow));
}

void SelectSoundsPanel::removeRow(int row) {
    if (row < 0 || row >= fileNames.count()) {
        return;
    }
    fileNames.removeItem(row);
    filePaths.removeItem(row);
}

void SelectSoundsPanel::moveRow(int from, int to) {
    if (from < 0 || to < 0 || from >= fileNames.count() || to >= fileNames.count()) {
        return;
    }
    for (ListBox* list : {&fileNames, &filePaths}) {
        const std::string text = list->item(from);
        list->removeItem(from);
        list->addItem(text, to);
    }
    fileNames.setListIndex(to);
}

void SelectSoundsPanel::doLoadFiles() {
    app_.handOverFiles.fill({});
    if (filePaths.count() == 0) {
        app_.dialogs.message(MessageKind::Information, kNothingSelectedText);
        return;
    }
    const int rows = std::min(filePaths.count(), static_cast<int>(app_.handOverFiles.size()));
    for (int row = 0; row < rows; ++row) {
        app_.handOverFiles.at(static_cast<std::size_t>(row)) = filePaths.item(row);
    }
    const std::vector<std::string> failed = mode_ == SelectionMode::Random
                                                ? app_.frmcustom.bulkLoad(app_.handOverFiles)
                                                : app_.frmbackcustom.bulkLoad(app_.handOverFiles);
    writeDirs();
    window.hide();
    // A file that will not play is still taken, as a file chosen one at a time is; the
    // user is told which, once.
    if (!failed.empty()) {
        std::string text = kNotDecodedText;
        for (const std::string& name : failed) {
            text += "\r\n" + name;
        }
        app_.dialogs.message(MessageKind::Exclamation, text);
    }
}

void SelectSoundsPanel::docolors() {
    colours.paint(app_.scheme);
}

}  // namespace brevane
