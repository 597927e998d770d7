// The built program on its install tree: it starts, shows its window and leaves
// with status 0 when the desktop asks it to end.

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>
#include <csignal>
#include <string>

namespace {

// True once the process has its own handler for `signal` (SigCgt in its status),
// that is, once it is ready to quit cleanly on it.
bool catches(qint64 pid, int signal) {
    QFile status(QStringLiteral("/proc/%1/status").arg(pid));
    if (!status.open(QIODevice::ReadOnly)) {
        return false;
    }
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("SigCgt:")) {
            bool ok = false;
            const qulonglong mask = line.mid(7).trimmed().toULongLong(&ok, 16);
            return ok && (mask & (1ULL << (signal - 1))) != 0;
        }
    }
    return false;
}

class ProgramTest : public ::testing::TestWithParam<int> {};

TEST_P(ProgramTest, QuitsWithStatusZeroOnTheSignal) {
    QProcess program;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    program.setProcessEnvironment(env);
    program.start(QStringLiteral(BREVANE_TREE_DIR "/brevane"), {});
    ASSERT_TRUE(program.waitForStarted(10000)) << program.errorString().toStdString();
    const int signal = GetParam();
    ASSERT_TRUE(QTest::qWaitFor([&] { return catches(program.processId(), signal); }, 20000));

    ::kill(static_cast<pid_t>(program.processId()), signal);
    ASSERT_TRUE(program.waitForFinished(20000));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
}

std::string signalName(const ::testing::TestParamInfo<int>& param) {
    return param.param == SIGTERM ? "Term" : "Interrupt";
}

INSTANTIATE_TEST_SUITE_P(TerminationSignals, ProgramTest, ::testing::Values(SIGTERM, SIGINT),
                         signalName);

}  // namespace
