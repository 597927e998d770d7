#pragma once
// The recorder's window: the mode, the render's scenario and options, the recording's
// meters, the file to write and what became of it. Binds to the RecorderPanel; holds
// no state.

#include <QWidget>

namespace brevane {

class RecorderPanel;

class RecorderView : public QWidget {
  public:
    explicit RecorderView(RecorderPanel& panel, QWidget* parent = nullptr);
};

}  // namespace brevane
