#pragma once
// The pictures of the visuals on disk: a JPEG's size read from its header, without
// decoding it, and the pictures of a slideshow folder.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace brevane {

struct PictureSize {
    int width = 0;
    int height = 0;
};

// The size a JPEG file declares in its frame header; nothing for a file that is missing,
// is not a JPEG, or ends before its frame header.
std::optional<PictureSize> jpegSize(const std::filesystem::path& file);

// The names of the ".jpg" pictures in `folder`, without the extension, in natural order;
// empty for a folder that is missing or unreadable.
std::vector<std::string> slideshowPictures(const std::filesystem::path& folder);

// The slideshow folders under `root`, by name, in natural order.
std::vector<std::string> slideshowFolders(const std::filesystem::path& root);

}  // namespace brevane
