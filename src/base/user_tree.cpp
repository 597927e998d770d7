#include "base/user_tree.h"

#include <system_error>

#include "base/file_io.h"

namespace brevane {

namespace fs = std::filesystem;

namespace {

// A folder holds a stock tree when its settings folder is there: the sounds may be
// left out of a build, the settings never are.
bool holdsTree(const fs::path& folder) {
    std::error_code ec;
    return fs::is_directory(folder / "config", ec);
}

// The files the user changes are copied; the rest is linked.
bool isCopied(const fs::path& relative) {
    return !relative.empty() && *relative.begin() == "config";
}

std::string stampText(const fs::path& stock, std::string_view version) {
    return std::string(version) + "\n" + stock.generic_string() + "\n";
}

// A link standing where nothing is: the stock tree it pointed into has gone or moved.
bool isDeadLink(const fs::path& entry) {
    std::error_code ec;
    return fs::is_symlink(fs::symlink_status(entry, ec)) && !fs::exists(entry, ec);
}

bool placeFile(const fs::path& from, const fs::path& to, bool copy) {
    std::error_code ec;
    if (isDeadLink(to)) {
        fs::remove(to, ec);
    }
    if (fs::symlink_status(to, ec).type() != fs::file_type::not_found) {
        return true;  // the user's own, or placed before
    }
    if (!copy) {
        fs::create_symlink(from, to, ec);
        if (!ec) {
            return true;
        }
    }
    if (!fs::copy_file(from, to, ec)) {
        return false;
    }
    // A read-only stock file stays one for nobody: the user saves over their copy.
    fs::permissions(to, fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add, ec);
    return true;
}

}  // namespace

std::optional<fs::path> installedStockTree(const fs::path& programDir,
                                           const fs::path& relativeShare) {
    if (holdsTree(programDir)) {
        return std::nullopt;
    }
    const fs::path stock = (programDir / relativeShare).lexically_normal();
    if (!holdsTree(stock)) {
        return std::nullopt;
    }
    return stock;
}

fs::path userDataHome(const char* xdgDataHome, const char* home) {
    if (xdgDataHome != nullptr && fs::path(xdgDataHome).is_absolute()) {
        return xdgDataHome;
    }
    return fs::path(home != nullptr ? home : "") / ".local" / "share";
}

UserTreeResult prepareUserTree(const fs::path& stock, const fs::path& user,
                               std::string_view version) {
    std::error_code ec;
    fs::create_directories(user, ec);
    if (!fs::is_directory(user, ec)) {
        return {false, "cannot make the folder " + user.string()};
    }
    const fs::path stamp = user / kStockStampFile;
    const std::string wanted = stampText(stock, version);
    if (readWholeFile(stamp) == wanted) {
        return {true, {}};
    }

    fs::recursive_directory_iterator it(stock, fs::directory_options::skip_permission_denied, ec);
    if (ec) {
        return {false, "cannot read the stock folder " + stock.string()};
    }
    std::string failed;
    for (const fs::recursive_directory_iterator end; it != end; it.increment(ec)) {
        if (ec) {
            break;
        }
        const fs::path relative = it->path().lexically_relative(stock);
        const fs::path target = user / relative;
        if (it->is_directory(ec)) {
            fs::create_directories(target, ec);
        } else if (it->is_regular_file(ec) && !placeFile(it->path(), target, isCopied(relative))) {
            failed = target.string();
        }
    }
    if (ec) {
        return {false, "cannot read the stock folder " + stock.string()};
    }
    if (!failed.empty()) {
        return {false, "cannot make " + failed};
    }
    // Written last: a start cut short above is finished by the next one.
    if (!writeFileAtomically(stamp, wanted)) {
        return {false, "cannot write in the folder " + user.string()};
    }
    return {true, {}};
}

}  // namespace brevane
