#pragma once
// The whole Application on a temporary tree, on virtual time, with scripted dialogs,
// a memory settings store and a seeded random source. The engine is a template
// argument: a RecordingEngine to read the calls, or the real mixer rendering offline.

#include <cstdint>
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

namespace brevane::test {

template <class Engine>
class AppHarness {
  public:
    template <class... EngineArgs>
    explicit AppHarness(std::uint64_t seed = 1234, EngineArgs&&... engineArgs)
        : engine(std::forward<EngineArgs>(engineArgs)...), random(seed) {
        std::filesystem::create_directories(tree.root() / "bin");
    }

    // Builds the Application; its constructor does nothing but wire the panels.
    Application& build() {
        if (!app) {
            app = std::make_unique<Application>(
                Platform{AppPath(tree.root()), engine, loop, dialogs, settings, random, nullptr,
                         unavailableProgramLauncher(), unavailableDesktopServices(),
                         power != nullptr ? *power : unavailableSystemPower(),
                         cdDrives != nullptr ? *cdDrives : noCdDrives()});
            app->onExit = [this](ExitKind kind) { exits.push_back(kind); };
        }
        return *app;
    }

    // Start-up as the program does it: the splash, then its timer runs the load.
    Application& startAndLoad() {
        build().start();
        loop.advance(StartupSplash::kHandOverMs);
        return *app;
    }

    void writeFile(const std::string& relative, const std::string& content) {
        const auto path = AppPath(tree.root()) / relative;
        std::filesystem::create_directories(path.parent_path());
        ASSERT_TRUE(writeFileAtomically(path, content));
    }

    // Every file of the tree, relative, for checks that nothing was written.
    std::vector<std::string> treeFiles() const {
        std::vector<std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(tree.root())) {
            if (entry.is_regular_file()) {
                files.push_back(entry.path().lexically_relative(tree.root()).generic_string());
            }
        }
        return files;
    }

    TempTree tree;
    Engine engine;
    EventLoop loop;
    ScriptedDialogs dialogs;
    MemorySettingsStore settings;
    brevane::Random random;
    // The machine's power as the Application sees it; set before build() to record.
    SystemPower* power = nullptr;
    // The CD drives the CD player finds; set before build(). None by default.
    CdDrives* cdDrives = nullptr;
    std::unique_ptr<Application> app;
    std::vector<ExitKind> exits;
};

// Runs the program and renders the mix in step, 10 ms at a time, for an engine that
// renders offline: what the user would have heard over `hundredths` hundredths of a
// second, as interleaved stereo.
template <class Engine>
std::vector<float> renderInStep(AppHarness<Engine>& h, int hundredths) {
    std::vector<float> out;
    for (int i = 0; i < hundredths; ++i) {
        h.loop.advance(10);
        const auto block = h.engine.render(441);
        out.insert(out.end(), block.begin(), block.end());
    }
    return out;
}

}  // namespace brevane::test
