// The built program on a copy of its install tree: it starts, and when the desktop
// asks it to end it writes every session file whole and leaves with status 0. (A quit
// before the load, which writes nothing, is a test of the console's own.)

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <filesystem>
#include <string>

namespace {

namespace fs = std::filesystem;

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

// True once the process has its sound device open, which the console's load does
// before it reads the session; the load then runs to its end before the event loop
// takes a signal. SDL names its playback thread "SDLAudioP<n>".
bool loading(qint64 pid) {
    const fs::path tasks = "/proc/" + std::to_string(pid) + "/task";
    std::error_code ec;
    for (const fs::directory_entry& task : fs::directory_iterator(tasks, ec)) {
        QFile comm(QString::fromStdString((task.path() / "comm").string()));
        if (comm.open(QIODevice::ReadOnly) && comm.readAll().startsWith("SDLAudio")) {
            return true;
        }
    }
    return false;
}

// A tree of the run's own: the program copied (it finds its tree beside its real
// path), the build tree's folders linked, and none of its files, so the session this
// run writes is the only one there.
void makeTree(const fs::path& root) {
    const fs::path built(BREVANE_TREE_DIR);
    fs::copy_file(built / "brevane", root / "brevane");
    for (const fs::directory_entry& entry : fs::directory_iterator(built)) {
        if (entry.is_directory()) {
            fs::create_directory_symlink(entry.path(), root / entry.path().filename());
        }
    }
}

std::string text(const fs::path& file) {
    QFile in(QString::fromStdString(file.string()));
    return in.open(QIODevice::ReadOnly) ? in.readAll().toStdString() : std::string();
}

class ProgramTest : public ::testing::TestWithParam<int> {};

TEST_P(ProgramTest, QuitsWithStatusZeroOnTheSignalAndWritesTheWholeSession) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const fs::path root = dir.path().toStdString();
    makeTree(root);

    QProcess program;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    env.insert(QStringLiteral("SDL_AUDIODRIVER"), QStringLiteral("dummy"));
    // The desktop's settings of this run stay in its tree.
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), dir.filePath(QStringLiteral("config-home")));
    program.setProcessEnvironment(env);
    program.start(dir.filePath(QStringLiteral("brevane")), {});
    ASSERT_TRUE(program.waitForStarted(10000)) << program.errorString().toStdString();
    const int signal = GetParam();
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return catches(program.processId(), signal) && loading(program.processId()); },
        20000));

    ::kill(static_cast<pid_t>(program.processId()), signal);
    ASSERT_TRUE(program.waitForFinished(20000));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);

    for (const char* name :
         {"states.tmp", "mainb.tmp", "main.tmp", "scard.tmp", "opti.tmp", "back.ini", "back2.ini",
          "backc.ini", "rand.ini", "rand2.ini", "rand3.ini", "rand4.ini", "randc.ini"}) {
        const std::string content = text(root / name);
        EXPECT_TRUE(content.size() >= 3 && content.ends_with("\r\n")) << name << ": " << content;
    }
    EXPECT_EQ(text(root / "states.tmp"), "#FALSE#,#TRUE#,#FALSE#,#FALSE#,#FALSE#\r\n");
    for (const fs::directory_entry& entry : fs::directory_iterator(root)) {
        EXPECT_EQ(entry.path().filename().string().find('~'), std::string::npos) << entry.path();
    }
}

std::string signalName(const ::testing::TestParamInfo<int>& param) {
    return param.param == SIGTERM ? "Term" : "Interrupt";
}

INSTANTIATE_TEST_SUITE_P(TerminationSignals, ProgramTest, ::testing::Values(SIGTERM, SIGINT),
                         signalName);

}  // namespace
