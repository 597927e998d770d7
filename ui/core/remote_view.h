#pragma once
// The compact remote's window: the status, the six faders, the scenario, preset and
// visual commands. Binds to Frmremote2; holds no state.

#include <QWidget>

namespace brevane {

class Frmremote2;

class RemoteView final : public QWidget {
  public:
    explicit RemoteView(Frmremote2& panel, QWidget* parent = nullptr);
};

}  // namespace brevane
