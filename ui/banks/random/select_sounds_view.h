#pragma once
// Form2's window, "Select Sounds": the folder tree of the sound banks, the files of the
// chosen folder, and the list of files to be loaded with its commands. Binds to the
// SelectSoundsPanel; holds no state. It opens where the panel's kept position says.

#include <QWidget>

namespace brevane {

class SelectSoundsPanel;

class SelectSoundsView : public QWidget {
  public:
    explicit SelectSoundsView(SelectSoundsPanel& panel, QWidget* parent = nullptr);
};

}  // namespace brevane
