#include "ui/platform/quit_routine.h"

#include <fcntl.h>
#include <unistd.h>

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>
#include <QWidget>
#include <cerrno>

namespace brevane {

namespace {

constexpr std::array<int, 3> kQuitSignals = {SIGTERM, SIGINT, SIGHUP};

// The write end of the pipe the handler writes to; -1 when no routine catches.
volatile std::sig_atomic_t gSignalPipe = -1;

extern "C" void onQuitSignal(int) {
    const int savedErrno = errno;
    const char byte = 1;
    // Nothing to do if the write fails: the pipe is full, so a quit is pending.
    [[maybe_unused]] const ssize_t written = ::write(gSignalPipe, &byte, 1);
    errno = savedErrno;
}

}  // namespace

QuitRoutine::QuitRoutine(std::function<void()> shutdown) : shutdown_(std::move(shutdown)) {}

QuitRoutine::~QuitRoutine() {
    releaseSignals();
}

void QuitRoutine::watchWindow(QWidget& window, std::function<void()> onClose) {
    onClose_[&window] = std::move(onClose);
    connect(&window, &QObject::destroyed, this, [this](QObject* gone) { onClose_.erase(gone); });
    window.installEventFilter(this);
}

bool QuitRoutine::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Close && watched->isWidgetType()) {
        // The window stays until the shutdown step has run; quitting hides it.
        event->ignore();
        const auto handler = onClose_.find(watched);
        if (!quitting_ && handler != onClose_.end() && handler->second) {
            handler->second();
        } else {
            quit();
        }
        return true;
    }
    return QObject::eventFilter(watched, event);
}

bool QuitRoutine::catchTermination() {
    if (gSignalPipe != -1 || ::pipe2(pipe_, O_CLOEXEC | O_NONBLOCK) != 0) {
        return false;
    }
    gSignalPipe = pipe_[1];
    notifier_ = new QSocketNotifier(pipe_[0], QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, [this] {
        char drained[64];
        while (::read(pipe_[0], drained, sizeof drained) > 0) {
        }
        quit();
    });
    struct sigaction action {};
    action.sa_handler = onQuitSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < kQuitSignals.size(); ++i) {
        sigaction(kQuitSignals[i], &action, &previous_[i]);
    }
    if (auto* gui = qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        // A logout asks for the data first; saving is quitting, as on a close.
        connect(gui, &QGuiApplication::commitDataRequest, this, [this] { quit(); });
    }
    return true;
}

void QuitRoutine::releaseSignals() {
    if (pipe_[0] == -1) {
        return;
    }
    for (std::size_t i = 0; i < kQuitSignals.size(); ++i) {
        sigaction(kQuitSignals[i], &previous_[i], nullptr);
    }
    gSignalPipe = -1;
    delete notifier_;
    notifier_ = nullptr;
    ::close(pipe_[0]);
    ::close(pipe_[1]);
    pipe_[0] = pipe_[1] = -1;
}

void QuitRoutine::quit() {
    if (quitting_) {
        return;
    }
    quitting_ = true;
    if (shutdown_) {
        shutdown_();
    }
    QCoreApplication::exit(0);
}

}  // namespace brevane
