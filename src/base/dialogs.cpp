#include "base/dialogs.h"

namespace brevane {

std::vector<std::string> ScriptedDialogs::messages() const {
    std::vector<std::string> texts;
    for (const auto& s : shown_) {
        if (s.kind == Kind::Message) {
            texts.push_back(s.text);
        }
    }
    return texts;
}

void ScriptedDialogs::message(MessageKind kind, const std::string& text, const std::string& title) {
    shown_.push_back({Kind::Message, kind, text, title, {}});
}

bool ScriptedDialogs::askYesNo(const std::string& text, const std::string& title) {
    shown_.push_back({Kind::Question, MessageKind::Information, text, title, {}});
    if (yesNo_.empty()) {
        return false;
    }
    const bool yes = yesNo_.front();
    yesNo_.pop_front();
    return yes;
}

std::string ScriptedDialogs::inputBox(const std::string& prompt, const std::string& title,
                                      const std::string& defaultText) {
    FileDialogRequest r;
    r.fileName = defaultText;
    shown_.push_back({Kind::Input, MessageKind::Information, prompt, title, r});
    if (inputs_.empty()) {
        return {};
    }
    std::string text = std::move(inputs_.front());
    inputs_.pop_front();
    return text;
}

std::optional<std::filesystem::path> ScriptedDialogs::nextFile() {
    if (files_.empty()) {
        return std::nullopt;
    }
    auto f = std::move(files_.front());
    files_.pop_front();
    return f;
}

std::optional<std::filesystem::path> ScriptedDialogs::openFile(const FileDialogRequest& request) {
    shown_.push_back(
        {Kind::OpenFile, MessageKind::Information, request.title, request.title, request});
    return nextFile();
}

std::optional<std::filesystem::path> ScriptedDialogs::saveFile(const FileDialogRequest& request) {
    shown_.push_back(
        {Kind::SaveFile, MessageKind::Information, request.title, request.title, request});
    return nextFile();
}

std::optional<std::filesystem::path> ScriptedDialogs::chooseFolder(
    const std::string& title, const std::filesystem::path& startFolder) {
    FileDialogRequest r;
    r.title = title;
    r.startFolder = startFolder;
    shown_.push_back({Kind::Folder, MessageKind::Information, title, title, r});
    if (folders_.empty()) {
        return std::nullopt;
    }
    auto f = std::move(folders_.front());
    folders_.pop_front();
    return f;
}

}  // namespace brevane
