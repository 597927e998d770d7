#pragma once
// Formtips' window: one tip at a time, "Next Tip" and "Close". Binds to the
// TipsPanel; holds no state.

#include <QWidget>

namespace brevane {

class TipsPanel;

class TipsView : public QWidget {
  public:
    explicit TipsView(TipsPanel& panel, QWidget* parent = nullptr);
};

}  // namespace brevane
