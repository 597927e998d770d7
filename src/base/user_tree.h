#pragma once
// Where the program's folder is, and the user's own folder of an installed program.
//
// Run from the build, the program's folder is the one it stands in: bin/, config/,
// soundbanks/ and visual/ beside the executable, and everything the program writes goes
// there. Installed, the stock tree lies read-only in the shared data folder
// (<prefix>/share/brevane/stock) and every user gets a folder of their own under
// $XDG_DATA_HOME/brevane, made from the stock tree at the first start:
//
// - config/ is copied, file by file: the user saves, overwrites and deletes scenarios,
//   presets and playlists there, and the program writes its session files beside it;
// - the sounds, pictures and help (every other folder) are linked file by file, so
//   a hundred megabytes are not copied for each user, while the folders themselves are
//   the user's and take sounds and pictures of their own.
//
// The folder is brought up to the stock tree again only when the stock tree changes
// (another version installed, or installed elsewhere): what is missing is added and
// links that lead nowhere are made again, but nothing the user has is overwritten, so
// a stock scenario the user deleted stays deleted until the next version.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace brevane {

// The stock tree of an installed program: `relativeShare` from the folder holding the
// executable, when it holds a stock tree. Nothing when the program's own folder holds
// one (the build folder's way), or when neither does.
std::optional<std::filesystem::path> installedStockTree(const std::filesystem::path& programDir,
                                                        const std::filesystem::path& relativeShare);

// The user's data folder: $XDG_DATA_HOME when it is an absolute path, else
// $HOME/.local/share. Either argument may be null (unset).
std::filesystem::path userDataHome(const char* xdgDataHome, const char* home);

struct UserTreeResult {
    bool ok = false;
    // What could not be made, for the message shown when the program cannot start.
    std::string error;
};

// Makes `user` the user's tree of `stock` (see above). `version` names the stock tree:
// the folder is brought up to date only when it or the stock tree's place changed
// since the last time. A file that cannot be linked is copied.
UserTreeResult prepareUserTree(const std::filesystem::path& stock,
                               const std::filesystem::path& user, std::string_view version);

// The file in the user's tree recording which stock tree it was last brought up to.
inline constexpr const char* kStockStampFile = ".stock";

}  // namespace brevane
