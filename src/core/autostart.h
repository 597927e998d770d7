#pragma once
// Launch at boot: the desktop's autostart entry for the program.
//
// On a Linux desktop a program starts with the user's session when a desktop entry
// for it lies in the autostart folder ($XDG_CONFIG_HOME/autostart, by default
// ~/.config/autostart). The options panel turns the entry on and off through this
// interface; tests point it at a temporary folder.
//
// Not thread-safe: used from the event thread.

#include <filesystem>
#include <string>

namespace brevane {

class AutostartEntry {
  public:
    virtual ~AutostartEntry() = default;
    // Makes or removes the entry. False when the desktop's folder cannot be written;
    // the entry is then as it was.
    virtual bool setEnabled(bool enabled) = 0;
    virtual bool enabled() const = 0;
};

class XdgAutostartEntry : public AutostartEntry {
  public:
    static constexpr const char* kFileName = "brevane.desktop";

    // `folder` is the autostart folder, made when the entry is first written;
    // `program` the executable the entry starts.
    XdgAutostartEntry(std::filesystem::path folder, std::filesystem::path program);

    // $XDG_CONFIG_HOME/autostart, or $HOME/.config/autostart; empty when neither is
    // set.
    static std::filesystem::path defaultFolder();

    bool setEnabled(bool enabled) override;
    bool enabled() const override;

    std::filesystem::path file() const { return folder_ / kFileName; }
    // The whole desktop entry as written.
    std::string entryText() const;

  private:
    std::filesystem::path folder_;
    std::filesystem::path program_;
};

// `program` as the one argument of a desktop entry's Exec key: quoted, with the
// characters the entry format reserves escaped.
std::string desktopExecArgument(const std::string& program);

}  // namespace brevane
