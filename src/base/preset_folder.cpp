#include "base/preset_folder.h"

#include <algorithm>
#include <cctype>

#include "base/app_path.h"
#include "base/dialogs.h"
#include "base/natural_order.h"

namespace brevane {

namespace fs = std::filesystem;

namespace {

bool sameIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

}  // namespace

std::vector<std::string> folderNames(const fs::path& folder, std::string_view extension) {
    std::vector<std::string> names;
    std::error_code ec;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        std::error_code typeError;
        if (it->is_regular_file(typeError) &&
            sameIgnoringCase(it->path().extension().string(), extension)) {
            names.push_back(withoutLastFour(it->path().filename().string()));
        }
    }
    std::sort(names.begin(), names.end(),
              [](const std::string& a, const std::string& b) { return naturalLess(a, b); });
    return names;
}

void fillList(ListControl& list, const std::vector<std::string>& names) {
    list.clear();
    for (const std::string& name : names) {
        list.addItem(name);
    }
}

void stepPrevious(ComboBox& box) {
    if (box.listIndex() == 0) {
        box.setListIndex(box.count() - 1);
    }
    box.setListIndex(box.listIndex() - 1);
}

void stepNext(ComboBox& box) {
    if (box.text().empty() || box.listIndex() == box.count() - 1) {
        box.setListIndex(0);
    }
    box.setListIndex(box.listIndex() + 1);
}

PresetFolder::PresetFolder(Dialogs& dialogs, fs::path folder, std::string extension, ComboBox& box,
                           PresetTexts texts)
    : dialogs_(dialogs),
      folder_(std::move(folder)),
      extension_(std::move(extension)),
      box_(box),
      texts_(texts) {}

fs::path PresetFolder::file(const std::string& name) const {
    return folder_ / (name + extension_);
}

void PresetFolder::refill() {
    const std::string text = box_.text();
    fillList(box_, folderNames(folder_, extension_));
    box_.setText(text);
}

void PresetFolder::loadSelected() {
    if (box_.listIndex() < 0) {
        return;
    }
    if (!read || !read(file(box_.item(box_.listIndex())))) {
        dialogs_.message(MessageKind::Information, texts_.loadProblem);
    }
}

void PresetFolder::save() {
    if (box_.text().empty() || box_.text() == texts_.noneSelected) {
        saveAs();
        return;
    }
    if (dialogs_.askYesNo(texts_.overwrite) && !(write && write(file(box_.text())))) {
        dialogs_.message(MessageKind::Exclamation, texts_.loadProblem);
    }
}

void PresetFolder::saveAs() {
    const std::string name = dialogs_.inputBox(texts_.namePrompt, "", "");
    if (name.empty()) {
        return;
    }
    std::error_code ec;
    fs::create_directories(folder_, ec);
    box_.setText(name);
    if (!(write && write(file(name)))) {
        dialogs_.message(MessageKind::Exclamation, texts_.loadProblem);
        return;
    }
    refill();
}

void PresetFolder::remove() {
    const std::string name = box_.text();
    if (name.empty() || name == texts_.noneSelected) {
        dialogs_.message(MessageKind::Information, texts_.noneSelected);
        return;
    }
    if (name == texts_.defaultName) {
        dialogs_.message(MessageKind::Information, texts_.defaultUndeletable);
        return;
    }
    if (!dialogs_.askYesNo(texts_.deleteQuestion)) {
        return;
    }
    std::error_code ec;
    if (!fs::remove(file(name), ec)) {
        dialogs_.message(MessageKind::Information, texts_.deleteFailed);
        return;
    }
    box_.setText("");
    refill();
    box_.setText(texts_.noneSelected);
}

void PresetFolder::restoreDefaults() {
    if (!dialogs_.askYesNo(texts_.restoreDefaults)) {
        return;
    }
    box_.setText(texts_.defaultName);
    const int index = box_.find(texts_.defaultName);
    if (index < 0) {
        dialogs_.message(MessageKind::Information, texts_.loadProblem);
        return;
    }
    // Selected afresh, so it loads even when it was the selection already.
    box_.setListIndex(-1);
    box_.setListIndex(index);
}

}  // namespace brevane
