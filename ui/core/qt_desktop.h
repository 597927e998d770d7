#pragma once
// The desktop's side of the console's companions: starting a program beside this one
// (QProcess) and opening a document with the user's handler for it (QDesktopServices).
// Event thread only.

#include "core/desktop.h"

namespace brevane {

class QtProgramLauncher final : public ProgramLauncher {
  public:
    // Detached, in the program's own folder; false when it is missing or cannot run.
    bool startProgram(const std::filesystem::path& program) override;
};

class QtDesktopServices final : public DesktopServices {
  public:
    // False for a missing document, or when the desktop has no handler for it.
    bool openDocument(const std::filesystem::path& document) override;
};

}  // namespace brevane
