#include "base/app_path.h"

#include <algorithm>

namespace brevane {

namespace fs = std::filesystem;

AppPath::AppPath(fs::path root) : root_(std::move(root)) {}

std::string withForwardSlashes(std::string_view path) {
    std::string s(path);
    std::replace(s.begin(), s.end(), '\\', '/');
    return s;
}

std::string withoutLastFour(std::string_view name) {
    return std::string(name.substr(0, name.size() > 4 ? name.size() - 4 : 0));
}

fs::path AppPath::resolve(std::string_view relative) const {
    std::string s = withForwardSlashes(relative);
    const auto first = s.find_first_not_of('/');
    s = first == std::string::npos ? std::string() : s.substr(first);
    return s.empty() ? root_ : root_ / fs::path(s);
}

std::string AppPath::relativeText(const fs::path& file) const {
    const fs::path rel = file.lexically_normal().lexically_relative(root_.lexically_normal());
    if (rel.empty() || *rel.begin() == "..") {
        return file.generic_string();
    }
    return rel.generic_string();
}

std::string AppPath::text() const {
    std::string s = root_.generic_string();
    if (s.empty() || s.back() != '/') {
        s += '/';
    }
    return s;
}

}  // namespace brevane
