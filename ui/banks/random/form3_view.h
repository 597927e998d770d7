#pragma once
// The window of Form3 and Form33, the Randomize settings: the period list in the
// middle of "Randomize every ... minutes", the "Frequency threshold" slider with its
// value, and "Close". It opens where the panel's kept position says, on the screen.
// Binds to a RandomizeSettings; holds no state.

#include <QWidget>

namespace brevane {

class RandomizeSettings;

class RandomizeSettingsView : public QWidget {
  public:
    explicit RandomizeSettingsView(RandomizeSettings& panel, QWidget* parent = nullptr);
};

}  // namespace brevane
