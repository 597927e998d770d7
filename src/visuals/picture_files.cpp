#include "visuals/picture_files.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <system_error>

#include "base/natural_order.h"

namespace brevane {

namespace fs = std::filesystem;

namespace {

bool isJpegName(const fs::path& file) {
    std::string ext = file.extension().string();
    std::transform(ext.begin(), ext.end(), ext.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return ext == ".jpg";
}

void sortNaturally(std::vector<std::string>& names) {
    std::sort(names.begin(), names.end(),
              [](const std::string& a, const std::string& b) { return naturalLess(a, b); });
}

}  // namespace

std::optional<PictureSize> jpegSize(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    const auto next = [&in]() -> int {
        const int c = in.get();
        return in ? c : -1;
    };
    if (next() != 0xFF || next() != 0xD8) {
        return std::nullopt;
    }
    for (;;) {
        int c = next();
        if (c != 0xFF) {
            return std::nullopt;
        }
        while (c == 0xFF) {  // fill bytes before a marker
            c = next();
        }
        const int marker = c;
        if (marker < 0 || marker == 0xD9 || marker == 0xDA) {
            return std::nullopt;  // the image data began with no frame header
        }
        if (marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8)) {
            continue;  // markers without a length
        }
        const int hi = next();
        const int lo = next();
        if (hi < 0 || lo < 0) {
            return std::nullopt;
        }
        const int length = (hi << 8) | lo;
        if (length < 2) {
            return std::nullopt;
        }
        const bool frameHeader =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (frameHeader) {
            std::array<int, 5> b{};
            for (int& v : b) {
                v = next();
            }
            if (b[4] < 0) {
                return std::nullopt;
            }
            const PictureSize size{(b[3] << 8) | b[4], (b[1] << 8) | b[2]};
            if (size.width <= 0 || size.height <= 0) {
                return std::nullopt;
            }
            return size;
        }
        in.seekg(length - 2, std::ios::cur);
        if (!in) {
            return std::nullopt;
        }
    }
}

std::vector<std::string> slideshowPictures(const fs::path& folder) {
    std::vector<std::string> names;
    std::error_code ec;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        if (it->is_regular_file(ec) && isJpegName(it->path())) {
            names.push_back(it->path().stem().string());
        }
    }
    sortNaturally(names);
    return names;
}

std::vector<std::string> slideshowFolders(const fs::path& root) {
    std::vector<std::string> names;
    std::error_code ec;
    for (fs::directory_iterator it(root, ec), end; !ec && it != end; it.increment(ec)) {
        if (it->is_directory(ec)) {
            names.push_back(it->path().filename().string());
        }
    }
    sortNaturally(names);
    return names;
}

}  // namespace brevane
