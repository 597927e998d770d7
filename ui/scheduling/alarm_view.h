#pragma once
// The alarm's window ("Alarm Configuration"): the time with its spinners, how long and
// how loud the sound plays, what else happens, the sound file, and the test commands.
// Binds to AlarmPanel; holds no state.

#include <QWidget>

namespace brevane {

class AlarmPanel;

class AlarmView : public QWidget {
  public:
    explicit AlarmView(AlarmPanel& panel, QWidget* parent = nullptr);

  protected:
    // The panel titles the window by whether it is minimized.
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    AlarmPanel& panel_;
};

}  // namespace brevane
