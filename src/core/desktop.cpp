#include "core/desktop.h"

namespace brevane {

namespace {

class UnavailableLauncher final : public ProgramLauncher {
  public:
    bool startProgram(const std::filesystem::path&) override { return false; }
};

class UnavailableDesktop final : public DesktopServices {
  public:
    bool openDocument(const std::filesystem::path&) override { return false; }
};

}  // namespace

ProgramLauncher& unavailableProgramLauncher() {
    static UnavailableLauncher launcher;
    return launcher;
}

DesktopServices& unavailableDesktopServices() {
    static UnavailableDesktop desktop;
    return desktop;
}

}  // namespace brevane
