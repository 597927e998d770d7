#pragma once
// What the console asks of the desktop beyond sound and windows: starting a
// companion program beside this one, and opening a document with the handler the
// user's desktop has for it.
//
// The program passes the toolkit's implementations; a test passes doubles that record
// what was asked. A host that passes neither gets the unavailable ones, which refuse
// every request (the console then behaves as when a companion program is missing).
//
// Thread: called on the event thread only. Neither call waits for the started program
// or the opened document.

#include <chrono>
#include <filesystem>

namespace brevane {

class ProgramLauncher {
  public:
    virtual ~ProgramLauncher() = default;
    // Starts `program` on its own, in its folder, without arguments, and does not wait
    // for it. False when it could not be started (missing, not executable).
    virtual bool startProgram(const std::filesystem::path& program) = 0;
};

class DesktopServices {
  public:
    virtual ~DesktopServices() = default;
    // Opens `document` with the desktop's handler for its kind. False when no handler
    // took it.
    virtual bool openDocument(const std::filesystem::path& document) = 0;
};

// The machine's power, through the desktop's login manager.
class SystemPower {
  public:
    virtual ~SystemPower() = default;
    // Asks for the machine to power off `delay` from now; the request outlives this
    // program. False when it was refused or nobody was there to ask.
    virtual bool schedulePowerOff(std::chrono::seconds delay) = 0;
    // Holds the machine awake (no suspend) while `hold` is true; false lets it go.
    // Asking twice for the same is asking once.
    virtual void holdAwake(bool hold) = 0;
};

// Shared instances that refuse every request; stateless, so safe to share.
ProgramLauncher& unavailableProgramLauncher();
DesktopServices& unavailableDesktopServices();
SystemPower& unavailableSystemPower();

}  // namespace brevane
