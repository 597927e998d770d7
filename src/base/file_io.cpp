#include "base/file_io.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <fstream>
#include <system_error>

namespace brevane {

namespace fs = std::filesystem;

bool isRegularFile(const fs::path& file) {
    std::error_code ec;
    return fs::is_regular_file(file, ec);
}

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

constexpr std::string_view kTemporaryMark = ".tmp~";

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

fs::path temporaryNameFor(const fs::path& file) {
    static std::atomic<unsigned> counter{0};
    fs::path temp = file;
    temp +=
        std::string(kTemporaryMark) + std::to_string(::getpid()) + "." + std::to_string(counter++);
    return temp;
}

bool writeFileAtomically(const fs::path& file, std::string_view content) {
    const fs::path temp = temporaryNameFor(file);

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

int removeLeftoverTemporaries(const fs::path& folder) {
    int removed = 0;
    std::error_code ec;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        const std::size_t mark = name.rfind(kTemporaryMark);
        if (mark == std::string::npos || !it->is_regular_file(ec)) {
            continue;
        }
        // "<file>.tmp~<pid>.<n>": the writer's process id, then a counter.
        const std::string tail = name.substr(mark + kTemporaryMark.size());
        const std::size_t dot = tail.find('.');
        if (dot == 0 || dot == std::string::npos || tail.find_first_not_of("0123456789") != dot ||
            dot > 9) {
            continue;
        }
        const auto pid = static_cast<pid_t>(std::stol(tail.substr(0, dot)));
        const bool gone = pid != ::getpid() && ::kill(pid, 0) != 0 && errno == ESRCH;
        std::error_code removeError;
        if (gone && fs::remove(it->path(), removeError)) {
            ++removed;
        }
    }
    return removed;
}

namespace {

bool sameContent(const fs::path& a, const fs::path& b) {
    std::error_code ec;
    const auto size = fs::file_size(a, ec);
    if (ec || fs::file_size(b, ec) != size || ec) {
        return false;
    }
    std::ifstream left(a, std::ios::binary);
    std::ifstream right(b, std::ios::binary);
    std::array<char, 64 * 1024> x{};
    std::array<char, 64 * 1024> y{};
    while (left && right) {
        left.read(x.data(), x.size());
        right.read(y.data(), y.size());
        if (left.gcount() != right.gcount() ||
            !std::equal(x.begin(), x.begin() + left.gcount(), y.begin())) {
            return false;
        }
    }
    return !left.bad() && !right.bad();
}

}  // namespace

std::optional<fs::path> keptInsideTree(const fs::path& tree, const fs::path& file,
                                       const fs::path& folder) {
    const fs::path rel = fs::absolute(file).lexically_normal().lexically_relative(
        fs::absolute(tree).lexically_normal());
    if (!rel.empty() && *rel.begin() != ".." && !rel.is_absolute()) {
        return file;
    }
    std::error_code ec;
    if (!fs::is_regular_file(file, ec)) {
        return std::nullopt;
    }
    fs::create_directories(folder, ec);
    const std::string stem = file.stem().string();
    const std::string extension = file.extension().string();
    for (int n = 1; n < 10000; ++n) {
        const fs::path target = folder / (n == 1 ? file.filename().string()
                                                 : stem + " " + std::to_string(n) + extension);
        if (fs::exists(fs::symlink_status(target, ec))) {
            if (sameContent(file, target)) {
                return target;
            }
            continue;
        }
        // Copied under a temporary name and renamed, so a half copy never takes the name.
        const fs::path part = temporaryNameFor(target);
        if (!fs::copy_file(file, part, ec) || ec) {
            fs::remove(part, ec);
            return std::nullopt;
        }
        fs::rename(part, target, ec);
        if (ec) {
            fs::remove(part, ec);
            return std::nullopt;
        }
        return target;
    }
    return std::nullopt;
}

}  // namespace brevane
