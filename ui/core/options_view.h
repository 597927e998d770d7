#pragma once
// FRMOPTIONS' window: the page buttons down the left, the page shown beside them, and
// "Close". Binds to the OptionsPanel; holds no state.

#include <QWidget>

namespace brevane {

class OptionsPanel;

class OptionsView : public QWidget {
  public:
    explicit OptionsView(OptionsPanel& panel, QWidget* parent = nullptr);
};

}  // namespace brevane
