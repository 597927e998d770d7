#include "scenarios/package_install.h"

#include <zip.h>

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <system_error>

namespace brevane {

namespace fs = std::filesystem;

namespace {

struct ZipCloser {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
struct ZipFileCloser {
    void operator()(zip_file_t* file) const { zip_fclose(file); }
};
using Archive = std::unique_ptr<zip_t, ZipCloser>;
using ArchiveFile = std::unique_ptr<zip_file_t, ZipFileCloser>;

// What one entry is, by the file type its maker recorded; archives from systems
// without file types hold plain files and folders only.
std::optional<std::string> typeRefusal(zip_t* archive, zip_uint64_t index) {
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    if (zip_file_get_external_attributes(archive, index, 0, &system, &attributes) != 0 ||
        system != ZIP_OPSYS_UNIX) {
        return std::nullopt;
    }
    const unsigned type = (attributes >> 16) & S_IFMT;
    if (type == 0 || type == S_IFREG || type == S_IFDIR) {
        return std::nullopt;
    }
    if (type == S_IFLNK) {
        return "symbolic link";
    }
    return "device or special file";
}

// The entry's name as a relative path with '/'.
std::string normalName(const std::string& name) {
    std::string out = name;
    for (char& c : out) {
        if (c == '\\') {
            c = '/';
        }
    }
    return out;
}

// Whether `path`, with any links already in the tree followed, stays under `root`.
bool staysInside(const fs::path& path, const fs::path& root) {
    std::error_code ec;
    const fs::path resolved = fs::weakly_canonical(path, ec);
    if (ec) {
        return false;
    }
    const fs::path rel = resolved.lexically_relative(root);
    return !rel.empty() && *rel.begin() != ".." && !rel.is_absolute();
}

struct Entry {
    zip_uint64_t index = 0;
    std::string name;  // relative, '/'
    zip_uint64_t size = 0;
    bool folder = false;
};

class Staging {
  public:
    explicit Staging(const fs::path& root) {
        std::string pattern = (root / ".package-install-XXXXXX").string();
        if (mkdtemp(pattern.data()) != nullptr) {
            folder_ = pattern;
        }
    }
    ~Staging() {
        if (!folder_.empty()) {
            std::error_code ec;
            fs::remove_all(folder_, ec);
        }
    }
    Staging(const Staging&) = delete;
    Staging& operator=(const Staging&) = delete;
    const fs::path& folder() const { return folder_; }

  private:
    fs::path folder_;
};

// Unpacks one entry to `target`, reading no more than its declared size: an entry
// that inflates past what it declares is a bomb, and refused.
enum class Unpacked { Ok, Oversized, Failed };
Unpacked unpack(zip_t* archive, const Entry& entry, const fs::path& target,
                const std::function<void(zip_uint64_t)>& advanced) {
    ArchiveFile file(zip_fopen_index(archive, entry.index, 0));
    if (!file) {
        return Unpacked::Failed;
    }
    std::ofstream out(target, std::ios::binary | std::ios::trunc);
    if (!out) {
        return Unpacked::Failed;
    }
    std::array<char, 64 * 1024> buffer{};
    zip_uint64_t total = 0;
    for (;;) {
        const zip_int64_t n = zip_fread(file.get(), buffer.data(), buffer.size());
        if (n < 0) {
            return Unpacked::Failed;
        }
        if (n == 0) {
            break;
        }
        total += static_cast<zip_uint64_t>(n);
        if (total > entry.size) {
            return Unpacked::Oversized;
        }
        out.write(buffer.data(), n);
        if (!out) {
            return Unpacked::Failed;
        }
        advanced(static_cast<zip_uint64_t>(n));
    }
    out.close();
    return out ? Unpacked::Ok : Unpacked::Failed;
}

}  // namespace

std::optional<std::string> nameRefusal(const std::string& rawName) {
    const std::string name = normalName(rawName);
    if (name.empty()) {
        return "empty name";
    }
    for (char c : name) {
        if (static_cast<unsigned char>(c) < 0x20) {
            return "control character in the name";
        }
    }
    if (name.front() == '/') {
        return "absolute path";
    }
    if (name.size() >= 2 && std::isalpha(static_cast<unsigned char>(name[0])) != 0 &&
        name[1] == ':') {
        return "drive letter";
    }
    std::size_t start = 0;
    while (start <= name.size()) {
        std::size_t end = name.find('/', start);
        if (end == std::string::npos) {
            end = name.size();
        }
        if (name.compare(start, end - start, "..") == 0) {
            return "leads out of the folder";
        }
        start = end + 1;
    }
    return std::nullopt;
}

PackageResult installPackage(const fs::path& zipFile, const fs::path& treeRoot,
                             const PackageInstallHooks& hooks, const PackageLimits& limits) {
    PackageResult result;
    std::error_code ec;
    const fs::path root = fs::canonical(treeRoot, ec);
    if (ec) {
        result.outcome = PackageOutcome::WriteFailed;
        return result;
    }
    int error = 0;
    Archive archive(zip_open(zipFile.c_str(), ZIP_RDONLY, &error));
    if (!archive) {
        result.outcome = PackageOutcome::Unreadable;
        return result;
    }
    const zip_int64_t count = zip_get_num_entries(archive.get(), 0);
    if (count < 0) {
        result.outcome = PackageOutcome::Unreadable;
        return result;
    }
    if (count > limits.maxEntries) {
        result.outcome = PackageOutcome::TooManyEntries;
        return result;
    }

    // Every entry is judged before anything is written.
    std::vector<Entry> entries;
    zip_uint64_t declared = 0;
    for (zip_uint64_t i = 0; i < static_cast<zip_uint64_t>(count); ++i) {
        zip_stat_t st;
        zip_stat_init(&st);
        if (zip_stat_index(archive.get(), i, 0, &st) != 0 || (st.valid & ZIP_STAT_NAME) == 0 ||
            (st.valid & ZIP_STAT_SIZE) == 0) {
            result.outcome = PackageOutcome::Unreadable;
            return result;
        }
        Entry entry{i, normalName(st.name), st.size, false};
        std::optional<std::string> why = nameRefusal(st.name);
        if (!why) {
            why = typeRefusal(archive.get(), i);
        }
        if (!why && !staysInside(root / entry.name, root)) {
            why = "leads out of the folder through a link";
        }
        if (why) {
            result.refused.push_back(std::string(st.name) + " (" + *why + ")");
            continue;
        }
        entry.folder = entry.name.back() == '/';
        if (entry.size > limits.maxUnpackedBytes - declared) {
            result.outcome = PackageOutcome::TooLarge;
            return result;
        }
        declared += entry.size;
        entries.push_back(std::move(entry));
    }
    if (!result.refused.empty()) {
        result.outcome = PackageOutcome::HostileEntries;
        return result;
    }

    const Staging staging(root);
    if (staging.folder().empty()) {
        result.outcome = PackageOutcome::WriteFailed;
        return result;
    }
    const fs::path unpacked = staging.folder() / "new";
    const fs::path saved = staging.folder() / "replaced";
    zip_uint64_t done = 0;
    int shown = -1;
    const auto advanced = [&](zip_uint64_t n) {
        done += n;
        const int percent = declared == 0 ? 100 : static_cast<int>(done * 100 / declared);
        if (percent != shown && hooks.progress) {
            shown = percent;
            hooks.progress(percent);
        }
    };
    std::vector<const Entry*> files;
    for (const Entry& entry : entries) {
        const fs::path target = unpacked / entry.name;
        fs::create_directories(entry.folder ? target : target.parent_path(), ec);
        if (ec) {
            result.outcome = PackageOutcome::WriteFailed;
            return result;
        }
        if (entry.folder) {
            continue;
        }
        switch (unpack(archive.get(), entry, target, advanced)) {
            case Unpacked::Ok:
                files.push_back(&entry);
                break;
            case Unpacked::Oversized:
                result.outcome = PackageOutcome::TooLarge;
                return result;
            case Unpacked::Failed:
                result.outcome = PackageOutcome::WriteFailed;
                return result;
        }
    }

    std::vector<std::string> replaced;
    for (const Entry* entry : files) {
        std::error_code absent;
        if (fs::exists(fs::symlink_status(root / entry->name, absent))) {
            replaced.push_back(entry->name);
        }
    }
    if (!replaced.empty() && !(hooks.confirmReplace && hooks.confirmReplace(replaced))) {
        result.outcome = PackageOutcome::Declined;
        return result;
    }

    // Into place. A file of the user's is set aside first, so that a failure part way
    // puts every one back.
    std::vector<const Entry*> moved;
    const auto rollBack = [&] {
        for (auto it = moved.rbegin(); it != moved.rend(); ++it) {
            std::error_code ignored;
            fs::remove(root / (*it)->name, ignored);
            if (fs::exists(saved / (*it)->name, ignored)) {
                fs::rename(saved / (*it)->name, root / (*it)->name, ignored);
            }
        }
    };
    for (const Entry* entry : files) {
        const fs::path target = root / entry->name;
        fs::create_directories(target.parent_path(), ec);
        std::error_code absent;
        if (!ec && fs::exists(fs::symlink_status(target, absent))) {
            fs::create_directories((saved / entry->name).parent_path(), ec);
            if (!ec) {
                fs::rename(target, saved / entry->name, ec);
            }
        }
        if (!ec) {
            fs::rename(unpacked / entry->name, target, ec);
        }
        if (ec) {
            rollBack();
            result.outcome = PackageOutcome::WriteFailed;
            return result;
        }
        moved.push_back(entry);
        result.installed.push_back(entry->name);
    }
    if (hooks.progress && shown != 100) {
        hooks.progress(100);
    }
    result.outcome = PackageOutcome::Installed;
    return result;
}

bool writePackage(const fs::path& folder, const fs::path& zipFile) {
    std::error_code ec;
    std::vector<fs::path> files;
    for (fs::recursive_directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
        if (it->is_regular_file(ec)) {
            files.push_back(it->path());
        }
    }
    if (ec) {
        return false;
    }
    // Members in a steady order, so that two packages of one scenario list alike.
    std::sort(files.begin(), files.end());
    fs::create_directories(zipFile.parent_path(), ec);
    // libzip writes the archive beside its name and renames it into place on closing.
    int error = 0;
    Archive archive(zip_open(zipFile.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &error));
    if (!archive) {
        return false;
    }
    for (const fs::path& file : files) {
        const std::string name = file.lexically_relative(folder).generic_string();
        zip_source_t* source = zip_source_file(archive.get(), file.c_str(), 0, -1);
        if (source == nullptr) {
            return false;
        }
        if (zip_file_add(archive.get(), name.c_str(), source, ZIP_FL_ENC_UTF_8) < 0) {
            zip_source_free(source);
            return false;
        }
    }
    if (zip_close(archive.get()) != 0) {
        return false;
    }
    // Closed: the archive is written and its handle gone.
    static_cast<void>(archive.release());
    return true;
}

}  // namespace brevane
