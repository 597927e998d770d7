#pragma once
// The Evolve panel's window: rain and thunder on the left, the night on the right, the
// hint under them and the presets along the foot. Binds to Frmevolve; holds no state.

#include <QWidget>

namespace brevane {

class Frmevolve;

class EvolveView : public QWidget {
  public:
    explicit EvolveView(Frmevolve& panel, QWidget* parent = nullptr);
};

}  // namespace brevane
