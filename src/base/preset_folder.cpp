#include "base/preset_folder.h"

#include <algorithm>
#include <cctype>

#include "base/app_path.h"
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

}  // namespace brevane
