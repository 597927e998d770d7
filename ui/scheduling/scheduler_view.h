#pragma once
// The scheduler's window: the three modes and the page of the one chosen (a plain
// page, the table of eight times, or the playlist); and the folder chooser of "+ Dir".
// Both bind to their panels and hold no state.

#include <QWidget>

namespace brevane {

class SchedulerPanel;
class ScenarioFolderPanel;

class SchedulerView : public QWidget {
  public:
    explicit SchedulerView(SchedulerPanel& panel, QWidget* parent = nullptr);
};

class ScenarioFolderView : public QWidget {
  public:
    explicit ScenarioFolderView(ScenarioFolderPanel& panel, QWidget* parent = nullptr);
};

}  // namespace brevane
