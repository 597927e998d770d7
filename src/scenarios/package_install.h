#pragma once
// Scenario packages: a zip whose root is the root of the program's tree. Writing one,
// and installing one.
//
// Extraction is sealed: it writes only inside the program's folder, and a package is
// installed whole or not at all.
// - An entry with an absolute name, a drive letter, a ".." step, a name that leaves the
//   tree any other way, or that is a symbolic link, a device, a pipe or a socket, is
//   refused; a package with any such entry is refused whole, with every such entry
//   listed.
// - A package that would unpack to more than the size bound, or that holds more entries
//   than the count bound, is refused whole. An entry that inflates past its declared
//   size is treated the same way.
// - Files are unpacked into a temporary folder inside the tree first, and only moved into
//   place when all of them are there; a file of the user's that would be replaced is
//   asked about once, all of them listed, before anything moves.
//
// Not thread-safe: runs on the event thread, start to end.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace brevane {

struct PackageLimits {
    std::uint64_t maxUnpackedBytes = 2ULL * 1024 * 1024 * 1024;
    std::int64_t maxEntries = 10000;
};

enum class PackageOutcome {
    Installed,
    Unreadable,
    TooLarge,
    TooManyEntries,
    HostileEntries,
    // The user declined to replace their files.
    Declined,
    // A file could not be written; the tree is as it was.
    WriteFailed,
};

struct PackageResult {
    PackageOutcome outcome = PackageOutcome::Unreadable;
    // HostileEntries: each refused entry with its reason, "name (reason)".
    std::vector<std::string> refused;
    // Installed: the files written, relative to the tree, with '/'.
    std::vector<std::string> installed;
};

// Why an entry's name could not be written inside the tree, or nothing when it can.
// `name` is the entry's name as the archive stores it.
std::optional<std::string> nameRefusal(const std::string& name);

struct PackageInstallHooks {
    // Asked once with every existing file the package would replace; false declines.
    std::function<bool(const std::vector<std::string>& replaced)> confirmReplace;
    // Percent of the bytes unpacked, 0 to 100.
    std::function<void(int percent)> progress;
};

PackageResult installPackage(const std::filesystem::path& zipFile,
                             const std::filesystem::path& treeRoot,
                             const PackageInstallHooks& hooks, const PackageLimits& limits = {});

// Writes every file under `folder` into a fresh zip at `zipFile`, named by its path
// relative to `folder` with '/': the folder's contents, not the folder itself. An
// earlier file of that name is replaced only when the new one is whole. False when the
// zip could not be written.
bool writePackage(const std::filesystem::path& folder, const std::filesystem::path& zipFile);

}  // namespace brevane
