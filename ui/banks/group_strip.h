#pragma once
// The strip of six group faders every bank panel carries: its copies of the console's
// MP3, CD, Background, Random, Bwaves and Master sliders, in that order, each with its
// value above and its name below. The bank's own group is named in bold, so the fader
// that scales this panel's sounds is found at a glance. Binds only; holds no state.

#include <QString>

#include "base/controls.h"
#include "core/mix_group.h"

class QGroupBox;
class QWidget;

namespace brevane {

// The bank's copies, by the console group each mirrors.
struct GroupStripSliders {
    Slider& MP3;
    Slider& CD;
    Slider& Background;
    Slider& Random;
    Slider& Bwaves;
    Slider& Master;
};

QGroupBox* groupStrip(const GroupStripSliders& sliders, MixGroup own, QWidget* parent);

}  // namespace brevane
