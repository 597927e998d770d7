#pragma once
// The Identify panel's window, "Identify Playing Sounds": the Sound Playing and
// Location lists side by side, the bank buttons and "Clear List". Binds to the
// IdentifyPanel; holds no state. It opens where the panel's kept position says.

#include <QWidget>

namespace brevane {

class IdentifyPanel;

class IdentifyView : public QWidget {
  public:
    explicit IdentifyView(IdentifyPanel& panel, QWidget* parent = nullptr);
};

}  // namespace brevane
