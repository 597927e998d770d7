#pragma once
// The whole Application with its five random banks, Master and Random at 100, through a
// recording engine: what every random bank test starts from.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "banks/random/random_bank.h"
#include "core/app_harness.h"
#include "core/application.h"
#include "engine/recording_engine.h"

namespace brevane::test {

using Op = RecordingEngine::Op;

class RandomBankFixture : public ::testing::Test {
  protected:
    void SetUp() override {
        app = &h.startAndLoad();
        app->frmmain.Master.setValue(100);
        app->frmmain.Random.setValue(100);
    }

    // 1 to 4, or kCustomRandomBankNumber.
    RandomBank& bank(int n) { return *app->randomBank(n); }

    static std::vector<int> frequencies(const RandomBank& b) {
        std::vector<int> out;
        for (int s = 1; s <= kRandomSlots; ++s) {
            out.push_back(b.slot(s).frequency.value());
        }
        return out;
    }

    static void setFrequencies(RandomBank& b, int value) {
        for (int s = 1; s <= kRandomSlots; ++s) {
            b.slot(s).frequency.setValue(value);
        }
    }

    // A sound file inside the custom bank's sound folder, as a full path.
    std::filesystem::path soundFile(const std::string& name) {
        const std::string relative = std::string(kRandomSoundsFolder) + "/" + name;
        h.writeFile(relative, "not really audio");
        return h.tree.root() / relative;
    }

    AppHarness<RecordingEngine> h{4242};
    Application* app = nullptr;
};

}  // namespace brevane::test
