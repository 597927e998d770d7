#include "base/file_io.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <fstream>
#include <system_error>

namespace brevane {

namespace fs = std::filesystem;

std::optional<std::string> readWholeFile(const fs::path& file, std::uintmax_t maxBytes) {
    std::error_code ec;
    if (!fs::is_regular_file(file, ec)) {
        return std::nullopt;
    }
    const auto size = fs::file_size(file, ec);
    if (ec || size > maxBytes) {
        return std::nullopt;
    }
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        return std::nullopt;
    }
    std::string content(static_cast<std::size_t>(size), '\0');
    in.read(content.data(), static_cast<std::streamsize>(size));
    content.resize(static_cast<std::size_t>(in.gcount()));
    return content;
}

namespace {

bool writeAll(int fd, std::string_view content) {
    const char* p = content.data();
    std::size_t left = content.size();
    while (left > 0) {
        const ssize_t n = ::write(fd, p, left);
        if (n < 0) {
            if (errno == EINTR) {
                continue;
            }
            return false;
        }
        p += n;
        left -= static_cast<std::size_t>(n);
    }
    return true;
}

}  // namespace

bool writeFileAtomically(const fs::path& file, std::string_view content) {
    static std::atomic<unsigned> counter{0};
    fs::path temp = file;
    temp += ".tmp~" + std::to_string(::getpid()) + "." + std::to_string(counter++);

    const int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0) {
        return false;
    }
    bool ok = writeAll(fd, content) && ::fsync(fd) == 0;
    ok = (::close(fd) == 0) && ok;
    if (ok) {
        ok = ::rename(temp.c_str(), file.c_str()) == 0;
    }
    if (!ok) {
        ::unlink(temp.c_str());
    }
    return ok;
}

}  // namespace brevane
