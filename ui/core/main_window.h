#pragma once
// The main console's window: the Master and Random group sliders, the buttons to the
// random banks and the Identify panel, Master Stop, and the latest sound fired.
// Binds to Frmmain; holds no state.

#include <QMainWindow>

namespace brevane {

class Frmmain;

class MainWindow : public QMainWindow {
  public:
    explicit MainWindow(Frmmain& console, QWidget* parent = nullptr);
};

}  // namespace brevane
