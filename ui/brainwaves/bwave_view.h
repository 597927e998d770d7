#pragma once
// The Brainwaves window: three displays (base, beat, range), the base and the beat
// with their glides, the fade, the volume, Play, and the presets. Binds to Frmbwave;
// holds no state.

#include <QWidget>

namespace brevane {

class Frmbwave;

class BwaveView : public QWidget {
  public:
    explicit BwaveView(Frmbwave& panel, QWidget* parent = nullptr);
};

}  // namespace brevane
