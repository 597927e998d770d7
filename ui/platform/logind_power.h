#pragma once
// The machine's power through systemd-logind on the system bus: a power-off scheduled
// half a minute ahead (it outlives the program), and a "sleep" inhibitor held while an
// alarm is due, so the machine does not suspend through it. Without logind, or when its
// policy refuses, the power-off reports false and the machine simply may sleep.
// Event thread only.

#include <QDBusUnixFileDescriptor>

#include "core/desktop.h"

namespace brevane {

class LogindPower final : public SystemPower {
  public:
    bool schedulePowerOff(std::chrono::seconds delay) override;
    void holdAwake(bool hold) override;

  private:
    // Open while the inhibitor is held; closing it lets the machine sleep again.
    QDBusUnixFileDescriptor inhibitor_;
};

}  // namespace brevane
