#pragma once
// Whole-file reads and writes for the files the program keeps.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace brevane {

// Files the program keeps are small; anything larger is not one of ours.
inline constexpr std::uintmax_t kMaxKeptFileBytes = 16u * 1024u * 1024u;

// The whole content of a regular file, or nothing when it is missing, is not a
// regular file, cannot be read or is larger than `maxBytes`.
std::optional<std::string> readWholeFile(const std::filesystem::path& file,
                                         std::uintmax_t maxBytes = kMaxKeptFileBytes);

// Whether a regular file stands at `file`; a path that cannot be looked at holds none.
bool isRegularFile(const std::filesystem::path& file);

// Writes `content` as the whole new file: first into a temporary file beside it,
// flushed to disk, then renamed over the old one. A crash or a full disk leaves
// either the old file or the new one, never half of one. False on failure, with
// the old file untouched. The folder must exist.
bool writeFileAtomically(const std::filesystem::path& file, std::string_view content);

// A fresh temporary name beside `file` for a write that is renamed into place when
// whole ("<file>.tmp~<pid>.<n>"): the name removeLeftoverTemporaries knows, so what a
// killed writer leaves behind is cleared later. Thread-safe.
std::filesystem::path temporaryNameFor(const std::filesystem::path& file);

// Removes from `folder` (not its subfolders) the temporary files of writes above whose
// process is gone: a program killed in the middle of a write leaves one beside the
// file it was replacing. Those of running processes stay. Returns how many went.
int removeLeftoverTemporaries(const std::filesystem::path& folder);

// A file as the program's tree keeps it: `file` itself when it lies inside `tree` by its
// name ("." and ".." steps resolved, links not followed: an installed tree links its
// stock files from elsewhere), else a copy of it in `folder`, a folder of the tree, so
// that nothing saved ever points outside. The copy takes the file's name, or
// "<stem> 2<ext>", "<stem> 3<ext>" and so on when a different file has it; a file of
// the same content under one of those names is the copy made before, and is reused.
// Nothing when the copy could not be made.
std::optional<std::filesystem::path> keptInsideTree(const std::filesystem::path& tree,
                                                    const std::filesystem::path& file,
                                                    const std::filesystem::path& folder);

}  // namespace brevane
