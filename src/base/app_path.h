#pragma once
// AppPath: the program's folder, where every path of the program begins.
//
// Paths inside the tree are written as the panels name them, "\config\scenarios"
// or "config/scenarios": a leading separator is optional and '\' and '/' are the
// same. Relative paths are stored with '/'.

#include <filesystem>
#include <string>
#include <string_view>

namespace brevane {

class AppPath {
  public:
    explicit AppPath(std::filesystem::path root);

    const std::filesystem::path& root() const { return root_; }

    // The tree path `relative` under the program's folder.
    std::filesystem::path operator/(std::string_view relative) const { return resolve(relative); }
    std::filesystem::path resolve(std::string_view relative) const;

    // The path of `file` relative to the program's folder, with '/', or the whole
    // path when it lies outside.
    std::string relativeText(const std::filesystem::path& file) const;

    // The program's folder as text ending in a separator, as the session files show it.
    std::string text() const;

    std::filesystem::path bin() const { return resolve("bin"); }
    std::filesystem::path config() const { return resolve("config"); }
    std::filesystem::path soundbanks() const { return resolve("soundbanks"); }
    std::filesystem::path visual() const { return resolve("visual"); }

  private:
    std::filesystem::path root_;
};

// '\' turned into '/', for paths typed or stored in the old form.
std::string withForwardSlashes(std::string_view path);

// A file name without its last four characters, as lists of ".scn" and other
// kept files show them ("Summer Storm.scn" shows "Summer Storm").
std::string withoutLastFour(std::string_view name);

}  // namespace brevane
