#pragma once
// Every window of the program, one per panel, made once for an Application and
// following it for the whole run. Also places a window where another stood when a
// panel takes another's place (Application::placeWindow).
//
// Ownership: the views belong to this object; the Application must outlive it.
// Event thread only.

#include <QWidget>
#include <map>
#include <memory>
#include <vector>

#include "base/controls.h"

namespace brevane {

class Application;
class MainWindow;
class TrayView;

class ApplicationViews {
  public:
    explicit ApplicationViews(Application& app);
    ~ApplicationViews();
    ApplicationViews(const ApplicationViews&) = delete;
    ApplicationViews& operator=(const ApplicationViews&) = delete;

    MainWindow& mainWindow() { return *mainWindow_; }
    // The window following `panel`, or nullptr.
    QWidget* windowOf(const PanelWindow& panel) const;
    // Every window: the console first, then the panels' in the order they were made.
    std::vector<QWidget*> windows();
    // The notification-area icon and the console's tray menu.
    TrayView& tray() { return *tray_; }

  private:
    void add(const PanelWindow& panel, std::unique_ptr<QWidget> window);

    Application& app_;
    std::unique_ptr<MainWindow> mainWindow_;
    std::vector<std::unique_ptr<QWidget>> windows_;
    std::map<const PanelWindow*, QWidget*> byPanel_;
    std::unique_ptr<TrayView> tray_;
    // Tells the Application of each key and pointer movement, for the visuals.
    std::unique_ptr<QObject> inputWatch_;
};

}  // namespace brevane
