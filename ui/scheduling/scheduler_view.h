#pragma once
// The scheduler's window: the three modes and the page of the one chosen (a plain
// page, the table of eight times, or the playlist); and the folder chooser of "+ Dir".
// Both bind to their panels and hold no state.

#include <QWidget>

class QComboBox;
class QFileSystemModel;

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

  protected:
    // The folder tree and the volumes are read when the chooser first opens, not at the
    // program's start: reading them walks the file system on a thread of Qt's.
    void showEvent(QShowEvent* event) override;

  private:
    QFileSystemModel* folders_ = nullptr;
    QComboBox* places_ = nullptr;
};

}  // namespace brevane
