#pragma once
// The main console's window: the six group faders with Master Stop, the status
// displays, the scenarios with their information, the preset buttons, one button per
// panel, and the console's own commands. Binds to Frmmain; holds no state.

#include <QMainWindow>

namespace brevane {

class Frmmain;

class MainWindow : public QMainWindow {
  public:
    explicit MainWindow(Frmmain& console, QWidget* parent = nullptr);

    // On a desktop without a notification area, how long the console waits once hidden
    // before it goes to the task bar.
    static constexpr int kTaskBarSettleMs = 400;
};

}  // namespace brevane
