#include "ui/platform/quit_routine.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QThread>
#include <QTimer>
#include <QWidget>
#include <csignal>
#include <functional>
#include <memory>

namespace brevane {
namespace {

// Runs the application's event loop as main() does, until the routine ends it or a
// safety limit gives up (status 99), and returns the status.
int runUntilQuit() {
    QTimer safety;
    safety.setSingleShot(true);
    QObject::connect(&safety, &QTimer::timeout, [] { QCoreApplication::exit(99); });
    safety.start(5000);
    return QCoreApplication::exec();
}

class QuitRoutineTest : public ::testing::Test {
  protected:
    // Counts the shutdowns and notes whether the last ran on the event thread.
    std::function<void()> shutdown() {
        return [this] {
            ++shutdowns_;
            onEventThread_ = QThread::currentThread() == QCoreApplication::instance()->thread();
        };
    }
    QuitRoutine routine_{shutdown()};
    int shutdowns_ = 0;
    bool onEventThread_ = false;
};

TEST_F(QuitRoutineTest, ClosingTheWindowRunsTheShutdownAndEndsWithStatusZero) {
    QWidget window;
    routine_.watchWindow(window);
    window.show();
    QTimer::singleShot(0, &window, [&] { window.close(); });
    EXPECT_EQ(runUntilQuit(), 0);
    EXPECT_EQ(shutdowns_, 1);
    EXPECT_TRUE(routine_.quitting());
}

TEST_F(QuitRoutineTest, AWindowWithACloseHandlerAsksItInsteadOfQuitting) {
    QWidget window;
    int asked = 0;
    routine_.watchWindow(window, [&] { ++asked; });
    window.show();
    window.close();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(shutdowns_, 0);
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(routine_.quitting());
}

TEST_F(QuitRoutineTest, EachTerminationSignalRunsTheShutdownOnTheEventThread) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        QuitRoutine routine(shutdown());
        ASSERT_TRUE(routine.catchTermination());
        shutdowns_ = 0;
        onEventThread_ = false;
        QTimer::singleShot(0, [signal] { std::raise(signal); });
        EXPECT_EQ(runUntilQuit(), 0) << "signal " << signal;
        EXPECT_EQ(shutdowns_, 1) << "signal " << signal;
        EXPECT_TRUE(onEventThread_);
    }
}

TEST_F(QuitRoutineTest, ShutdownRunsOnceHoweverManyWaysAskAtOnce) {
    QWidget window;
    routine_.watchWindow(window);
    ASSERT_TRUE(routine_.catchTermination());
    window.show();
    QTimer::singleShot(0, [&] {
        std::raise(SIGTERM);
        std::raise(SIGINT);
        window.close();
        routine_.quit();
    });
    EXPECT_EQ(runUntilQuit(), 0);
    EXPECT_EQ(shutdowns_, 1);
}

TEST(QuitRoutineSignals, OnlyOneRoutineCatchesAtATimeAndGivesBackTheHandlersItFound) {
    struct sigaction before {};
    sigaction(SIGTERM, nullptr, &before);
    std::signal(SIGTERM, SIG_IGN);
    {
        auto first = std::make_unique<QuitRoutine>([] {});
        ASSERT_TRUE(first->catchTermination());
        QuitRoutine second([] {});
        EXPECT_FALSE(second.catchTermination());
        first.reset();
        ASSERT_TRUE(second.catchTermination());
        struct sigaction during {};
        sigaction(SIGTERM, nullptr, &during);
        EXPECT_NE(during.sa_handler, SIG_IGN);
    }
    struct sigaction after {};
    sigaction(SIGTERM, nullptr, &after);
    EXPECT_EQ(after.sa_handler, SIG_IGN);
    sigaction(SIGTERM, &before, nullptr);
}

}  // namespace
}  // namespace brevane
