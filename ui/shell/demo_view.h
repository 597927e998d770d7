#pragma once
// The scheme panel's window: the sample of the controls in the scheme being edited, the
// named schemes and the display palette with their steppers and commands, and under
// "Advanced >>" a swatch for every colour. Binds to Frmdemo; holds no state.

#include <QWidget>

namespace brevane {

class Frmdemo;

class DemoView : public QWidget {
  public:
    explicit DemoView(Frmdemo& panel, QWidget* parent = nullptr);
};

}  // namespace brevane
