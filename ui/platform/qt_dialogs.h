#pragma once
// The program's dialogs on the desktop: message boxes and questions through
// QMessageBox, the input box through QInputDialog, file and folder choosers
// through QFileDialog. Each dialog is modal to the active window and returns
// when the user closes it. Event thread only.

#include <QString>
#include <string_view>

#include "base/dialogs.h"

namespace brevane {

class QtDialogs : public Dialogs {
  public:
    void message(MessageKind kind, const std::string& text, const std::string& title = {}) override;
    bool askYesNo(const std::string& text, const std::string& title = {}) override;
    std::string inputBox(const std::string& prompt, const std::string& title,
                         const std::string& defaultText) override;
    std::optional<std::filesystem::path> openFile(const FileDialogRequest& request) override;
    std::optional<std::filesystem::path> saveFile(const FileDialogRequest& request) override;
    std::optional<std::filesystem::path> chooseFolder(
        const std::string& title, const std::filesystem::path& startFolder) override;
};

// The program's "Name|*.ext|Name2|*.a;*.b" filter text in Qt's form,
// "Name (*.ext);;Name2 (*.a *.b)". A pattern list already shown in the name, as in
// "Config Files (*.bcf)|*.bcf", is replaced by the real patterns rather than
// repeated, since Qt takes the patterns from the last brackets of each entry. An
// empty filter gives the empty text (every file); a name without patterns gets "*".
QString qtFileFilter(std::string_view filter);

}  // namespace brevane
