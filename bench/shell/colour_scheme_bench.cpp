// Painting the program in a colour scheme: what a click on Apply costs, on the offscreen
// platform with every window made as the program makes them.
//
// BM_ApplyConsoleOnly: the console and the scheme panel repainted, the other windows
// closed (the start's Apply, and the usual case).
// BM_ApplyEveryWindowOpen: every panel's window open, all repainted: the worst case.
// Each iteration alternates between two stock schemes, so every window really changes,
// and lets Qt lay out and draw what changed (processEvents) before the clock stops.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <memory>

#include "base/dialogs.h"
#include "base/event_loop.h"
#include "base/random.h"
#include "base/settings_store.h"
#include "base/temp_tree.h"
#include "core/application.h"
#include "engine/recording_engine.h"
#include "ui/core/application_views.h"

namespace brevane {
namespace {

struct Program {
    Program() : app(Platform{AppPath(tree.root()), engine, loop, dialogs, settings, random}) {
        app.start();
        loop.advance(StartupSplash::kHandOverMs);
        views = std::make_unique<ApplicationViews>(app);
        for (QWidget* w : views->windows()) {
            w->resize(w->sizeHint());
        }
        QApplication::processEvents();
    }

    void apply(int i) {
        for (int t = 1; t <= kSchemeTargets; ++t) {
            app.frmDemo.setColour(t, *(i % 2 == 0 ? night : programLook()).target(t));
        }
        app.frmDemo.apply();
        QApplication::processEvents();
    }

    TempTree tree;
    RecordingEngine engine;
    EventLoop loop;
    ScriptedDialogs dialogs;
    MemorySettingsStore settings;
    brevane::Random random{1};
    Application app;
    std::unique_ptr<ApplicationViews> views;
    ColourScheme night = [] {
        ColourScheme s = programLook();
        s.back = rgbColour(0x11, 0x13, 0x17);
        s.text = rgbColour(0xB7, 0xBC, 0xC6);
        s.buttonBack = rgbColour(0x1E, 0x22, 0x29);
        s.textBoxBack = rgbColour(0x17, 0x1A, 0x1F);
        return s;
    }();
};

void BM_ApplyConsoleOnly(benchmark::State& state) {
    Program p;
    p.app.frmDemo.show();
    int i = 0;
    for (auto _ : state) {
        p.apply(i++);
    }
}
BENCHMARK(BM_ApplyConsoleOnly)->Unit(benchmark::kMillisecond)->MinTime(2.0);

void BM_ApplyEveryWindowOpen(benchmark::State& state) {
    Program p;
    p.app.frmDemo.show();
    for (BackgroundBank* bank : p.app.backgroundBanks()) {
        bank->window.show();
    }
    for (int b = 1; b <= 5; ++b) {
        p.app.randomBank(b)->window.show();
    }
    for (PanelWindow* w : {&p.app.Frmsoundindent.window, &p.app.FRMOPTIONS.window,
                           &p.app.frmevolve.window, &p.app.frmbwave.window,
                           &p.app.frmeffects.window, &p.app.Alarm.window, &p.app.Timers.window,
                           &p.app.Form3.window}) {
        w->show();
    }
    QApplication::processEvents();
    int i = 0;
    for (auto _ : state) {
        p.apply(i++);
    }
}
BENCHMARK(BM_ApplyEveryWindowOpen)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace
}  // namespace brevane

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int qtArgc = 1;
    QApplication qt(qtArgc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
