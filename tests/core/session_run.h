#pragma once
// One run of the program on a tree that outlives it: the Application on a recording
// engine, virtual time, scripted dialogs and a memory settings store. A test makes a
// run, quits it, and makes the next on the same tree, as a user's sessions follow
// each other.

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/dialogs.h"
#include "base/event_loop.h"
#include "base/file_io.h"
#include "base/random.h"
#include "base/settings_store.h"
#include "base/temp_tree.h"
#include "core/application.h"
#include "engine/recording_engine.h"

namespace brevane::test {

struct SessionRun {
    explicit SessionRun(const std::filesystem::path& root, AutostartEntry* autostartEntry = nullptr)
        : random(4321) {
        engine.setDrivers({"Built-in Audio", "USB Headset", "HDMI Output"});
        Platform platform{AppPath(root), engine, loop, dialogs, settings, random};
        platform.autostart = autostartEntry;
        app = std::make_unique<Application>(platform);
        app->onExit = [this](ExitKind kind) { exits.push_back(kind); };
    }

    // The splash, then its timer runs the console's load.
    Application& startAndLoad() {
        app->start();
        loop.advance(StartupSplash::kHandOverMs);
        return *app;
    }

    RecordingEngine engine;
    EventLoop loop;
    ScriptedDialogs dialogs;
    MemorySettingsStore settings;
    brevane::Random random;
    std::unique_ptr<Application> app;
    std::vector<ExitKind> exits;
};

inline std::string fileText(const std::filesystem::path& file) {
    return readWholeFile(file).value_or("<missing>");
}

inline void putFile(const std::filesystem::path& file, const std::string& content) {
    std::filesystem::create_directories(file.parent_path());
    writeFileAtomically(file, content);
}

// The tree the runs of a test share, with its files by name.
class SessionTree : public ::testing::Test {
  protected:
    void SetUp() override { std::filesystem::create_directories(tree.root() / "bin"); }
    std::filesystem::path at(const std::string& name) const { return tree.root() / name; }
    void put(const std::string& name, const std::string& content) { putFile(at(name), content); }

    // The names of the files at the top of the tree, sorted.
    std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(tree.root())) {
            if (entry.is_regular_file()) {
                names.push_back(entry.path().filename().string());
            }
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    TempTree tree;
};

}  // namespace brevane::test
