#pragma once
// The whole program without a screen: the Application on a tree, on virtual time, with
// scripted dialogs, a memory settings store and a seeded random source. The tools that
// write the stock files and the recorder's renders run the program this way; the engine
// is the caller's choice (a recording double, or the mixer rendering offline).
//
// Not thread-safe: the program lives on the thread that made it.

#include <cstdint>
#include <filesystem>
#include <utility>

#include "base/dialogs.h"
#include "base/event_loop.h"
#include "base/random.h"
#include "base/settings_store.h"
#include "core/application.h"

namespace brevane {

template <class Engine>
struct HeadlessProgram {
    // Built, not started: the panels are wired and nothing is read yet.
    template <class... EngineArgs>
    HeadlessProgram(const std::filesystem::path& tree, std::uint64_t seed,
                    EngineArgs&&... engineArgs)
        : engine(std::forward<EngineArgs>(engineArgs)...),
          random(seed),
          app(Platform{AppPath(tree), engine, loop, dialogs, settings, random}) {}

    // Started as the program starts: the splash, then the console's load, which opens
    // the engine, reads the session and loads the banks.
    Application& started() {
        app.start();
        loop.advance(StartupSplash::kHandOverMs);
        return app;
    }

    Engine engine;
    EventLoop loop;
    ScriptedDialogs dialogs;
    MemorySettingsStore settings;
    brevane::Random random;
    Application app;
};

}  // namespace brevane
