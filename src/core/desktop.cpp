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

class UnavailablePower final : public SystemPower {
  public:
    bool schedulePowerOff(std::chrono::seconds) override { return false; }
    void holdAwake(bool) override {}
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

SystemPower& unavailableSystemPower() {
    static UnavailablePower power;
    return power;
}

}  // namespace brevane
