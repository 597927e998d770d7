#pragma once
// The program's one way out. Closing the main window, SIGTERM, SIGINT and SIGHUP
// (a logout, `kill`, Ctrl+C, a closed terminal) and the end of the desktop session
// all arrive at quit(), which runs the program's shutdown step once, on the event
// thread, and then ends the event loop with status 0. The shutdown step is where
// the program hides its panels and writes its session files, so no way out skips
// them.
//
// A signal handler may do almost nothing safely: it only writes a byte to a pipe,
// and a socket notifier on the event thread reads it and calls quit().
//
// Ownership: the routine must outlive the windows it watches, or they must be
// destroyed first. Only one routine at a time may catch signals; the previous
// handlers come back when it is destroyed. Event thread only.

#include <QObject>
#include <array>
#include <csignal>
#include <functional>
#include <map>

class QSocketNotifier;
class QWidget;

namespace brevane {

class QuitRoutine : public QObject {
  public:
    explicit QuitRoutine(std::function<void()> shutdown);
    ~QuitRoutine() override;

    // Closing `window` quits the program instead of only closing the window. With
    // `onClose`, the close is handed to it instead: the console's quit command, which
    // may ask the user first and then quits through the program's exit.
    void watchWindow(QWidget& window, std::function<void()> onClose = {});

    // Catches SIGTERM, SIGINT and SIGHUP, and the desktop session's end. False when
    // the signals cannot be caught (another routine holds them, or no pipe).
    bool catchTermination();

    // Runs the shutdown step, once however often it is asked, then leaves the event
    // loop with status 0.
    void quit();
    bool quitting() const { return quitting_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void releaseSignals();

    std::function<void()> shutdown_;
    std::map<QObject*, std::function<void()>> onClose_;
    bool quitting_ = false;
    int pipe_[2] = {-1, -1};
    QSocketNotifier* notifier_ = nullptr;
    std::array<struct sigaction, 3> previous_{};
};

}  // namespace brevane
