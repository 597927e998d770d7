#include "core/autostart.h"

#include <cstdlib>
#include <system_error>

#include "base/file_io.h"

namespace brevane {

namespace fs = std::filesystem;

XdgAutostartEntry::XdgAutostartEntry(fs::path folder, fs::path program)
    : folder_(std::move(folder)), program_(std::move(program)) {}

fs::path XdgAutostartEntry::defaultFolder() {
    const char* configHome = std::getenv("XDG_CONFIG_HOME");
    // An XDG variable that is not an absolute path is to be ignored.
    if (configHome != nullptr && fs::path(configHome).is_absolute()) {
        return fs::path(configHome) / "autostart";
    }
    const char* home = std::getenv("HOME");
    if (home != nullptr && *home != '\0') {
        return fs::path(home) / ".config" / "autostart";
    }
    return {};
}

std::string desktopExecArgument(const std::string& program) {
    // Inside a quoted argument '"', '`', '$' and '\' take a backslash; then the whole
    // value is a string value, where '\' itself is written '\\'. A '%' would start a
    // field code and is doubled.
    std::string quoted = "\"";
    for (char c : program) {
        if (c == '"' || c == '`' || c == '$' || c == '\\') {
            quoted += '\\';
        }
        quoted += c;
    }
    quoted += '"';
    std::string value;
    for (char c : quoted) {
        if (c == '\\') {
            value += "\\\\";
        } else if (c == '%') {
            value += "%%";
        } else {
            value += c;
        }
    }
    return value;
}

std::string XdgAutostartEntry::entryText() const {
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Brevane\n"
           "Comment=Ambient sound generator\n"
           "Exec=" +
           desktopExecArgument(program_.string()) +
           "\n"
           "Terminal=false\n"
           "X-GNOME-Autostart-enabled=true\n";
}

bool XdgAutostartEntry::setEnabled(bool on) {
    if (folder_.empty()) {
        return false;
    }
    std::error_code ec;
    if (!on) {
        fs::remove(file(), ec);
        return !ec;
    }
    fs::create_directories(folder_, ec);
    if (ec) {
        return false;
    }
    return writeFileAtomically(file(), entryText());
}

bool XdgAutostartEntry::enabled() const {
    std::error_code ec;
    return !folder_.empty() && fs::is_regular_file(file(), ec);
}

}  // namespace brevane
