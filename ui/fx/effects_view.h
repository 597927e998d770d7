#pragma once
// The Effects window: a graphic equalizer of ten vertical sliders with their gain in dB,
// and the reverb's sliders in two columns, each with its toggle and presets. Binds to
// Frmeffects; holds no state.

#include <QWidget>

namespace brevane {

class Frmeffects;

class EffectsView : public QWidget {
  public:
    explicit EffectsView(Frmeffects& panel, QWidget* parent = nullptr);
};

}  // namespace brevane
