#pragma once
// Every message box, question, input box and file or folder dialog of the program
// goes through this interface: the program shows real dialogs, tests script the
// answers and read back every text shown.

#include <deque>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace brevane {

enum class MessageKind { Information, Exclamation, Critical };

// A file dialog as the panels describe it. `filter` is in the "Name|*.ext" form,
// pairs of description and pattern joined by '|'.
struct FileDialogRequest {
    std::string title;
    std::filesystem::path startFolder;
    std::string filter;
    std::string fileName;  // preset file name, may be empty
};

class Dialogs {
  public:
    virtual ~Dialogs() = default;

    // A message with an OK button. `title` empty means the program's name.
    virtual void message(MessageKind kind, const std::string& text,
                         const std::string& title = {}) = 0;
    // A Yes/No question; true for Yes.
    virtual bool askYesNo(const std::string& text, const std::string& title = {}) = 0;
    // An input box; Cancel gives the empty text, as the panels expect.
    virtual std::string inputBox(const std::string& prompt, const std::string& title,
                                 const std::string& defaultText) = 0;
    // File dialogs: the chosen path, or nothing when cancelled.
    virtual std::optional<std::filesystem::path> openFile(const FileDialogRequest& request) = 0;
    virtual std::optional<std::filesystem::path> saveFile(const FileDialogRequest& request) = 0;
    virtual std::optional<std::filesystem::path> chooseFolder(
        const std::string& title, const std::filesystem::path& startFolder) = 0;
};

// Dialogs for tests: answers come from queues, every dialog shown is recorded.
// An empty queue answers No, the empty text, or Cancel.
class ScriptedDialogs : public Dialogs {
  public:
    enum class Kind { Message, Question, Input, OpenFile, SaveFile, Folder };
    struct Shown {
        Kind kind;
        MessageKind messageKind = MessageKind::Information;
        std::string text;  // message, question or prompt; the request's title for files
        std::string title;
        FileDialogRequest request;  // for file dialogs
    };

    void answerYesNo(bool yes) { yesNo_.push_back(yes); }
    void answerInput(std::string text) { inputs_.push_back(std::move(text)); }
    void answerFile(std::optional<std::filesystem::path> file) {
        files_.push_back(std::move(file));
    }
    void answerFolder(std::optional<std::filesystem::path> f) { folders_.push_back(std::move(f)); }

    const std::vector<Shown>& shown() const { return shown_; }
    // The texts of the message boxes shown, in order.
    std::vector<std::string> messages() const;
    void clear() { shown_.clear(); }

    void message(MessageKind kind, const std::string& text, const std::string& title = {}) override;
    bool askYesNo(const std::string& text, const std::string& title = {}) override;
    std::string inputBox(const std::string& prompt, const std::string& title,
                         const std::string& defaultText) override;
    std::optional<std::filesystem::path> openFile(const FileDialogRequest& request) override;
    std::optional<std::filesystem::path> saveFile(const FileDialogRequest& request) override;
    std::optional<std::filesystem::path> chooseFolder(
        const std::string& title, const std::filesystem::path& startFolder) override;

  private:
    std::optional<std::filesystem::path> nextFile();

    std::deque<bool> yesNo_;
    std::deque<std::string> inputs_;
    std::deque<std::optional<std::filesystem::path>> files_;
    std::deque<std::optional<std::filesystem::path>> folders_;
    std::vector<Shown> shown_;
};

}  // namespace brevane
