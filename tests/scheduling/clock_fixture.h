#pragma once
// The program on the virtual clock at a fixed wall-clock start, with the machine's power
// recorded: what the alarm and the scheduler ask of it, and when.

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "core/app_harness.h"
#include "core/application.h"
#include "engine/recording_engine.h"

namespace brevane::test {

class RecordingPower final : public SystemPower {
  public:
    bool schedulePowerOff(std::chrono::seconds delay) override {
        powerOffs.push_back(delay);
        return true;
    }
    void holdAwake(bool hold) override {
        if (awake.empty() || awake.back() != hold) {
            awake.push_back(hold);
        }
    }
    bool held() const { return !awake.empty() && awake.back(); }
    std::vector<std::chrono::seconds> powerOffs;
    std::vector<bool> awake;  // each change of the hold
};

class ClockFixture : public ::testing::Test {
  protected:
    void SetUp() override {
        h.power = &power;
        h.writeFile("main.tmp", "\"False\",\"\",0,0,\"\",\"\",\"\",0\r\n");
        h.build();
        h.loop.setWallClockStart(clockStart);
        start();
    }
    // Starts the program; its clocks tick on whole seconds of the wall clock from here.
    void start() {
        app = &h.startAndLoad();
        h.loop.advance(1000 - h.loop.now() % 1000);
    }
    // Quits, and starts again on the same tree and settings.
    void restart() {
        app->frmmain.quitWithoutAsking();
        h.app.reset();
        start();
    }
    // Runs the clock to just after its ticks in the second `time` ("HH:MM:SS").
    void runTo(const std::string& time) {
        const auto seconds = [](const std::string& t) {
            return std::stoi(t.substr(0, 2)) * 3600 + std::stoi(t.substr(3, 2)) * 60 +
                   std::stoi(t.substr(6, 2));
        };
        const int ahead = (seconds(time) - seconds(h.loop.timeOfDay()) + 86400) % 86400;
        if (ahead > 1) {
            h.loop.advance((ahead - 1) * 1000LL);
        }
        while (h.loop.timeOfDay() != time) {
            h.loop.advance(10);
        }
        h.loop.advance(1000 - 10);
    }

    // The wall clock when the program starts: Tuesday, ten seconds before 07:30.
    LocalTime clockStart{2026, 11, 24, 2, 7, 29, 50};
    RecordingPower power;
    AppHarness<RecordingEngine> h;
    Application* app = nullptr;
};

}  // namespace brevane::test
