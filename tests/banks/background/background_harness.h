#pragma once
// The whole Application on a recording engine, with helpers to read the background
// banks' engine calls as short lines ("load bin/1.isz -> s1", "play s1 -> c1") and to
// take a snapshot of everything a bank shows.

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "core/app_harness.h"
#include "core/application.h"
#include "engine/recording_engine.h"

namespace brevane::test {

using Op = RecordingEngine::Op;

// Names handles by their first appearance, so expected call lists do not depend on
// how many handles earlier panels took: samples s1, s2, ..., channels c1, c2, ...; a
// handle never given out during the recording is "s?"/"c?", and 0 is "s0"/"c0".
class CallNames {
  public:
    explicit CallNames(std::filesystem::path root) : root_(std::move(root)) {}

    std::string line(const RecordingEngine::Call& c) {
        const std::string on = name(channels_, "c", c.a, false);
        switch (c.op) {
            case Op::LoadSample:
                return "load " + c.path.lexically_relative(root_).generic_string() + " -> " +
                       name(samples_, "s", c.result, true);
            case Op::FreeSample:
                return "free " + name(samples_, "s", c.a, false);
            case Op::Play:
                return "play " + name(samples_, "s", c.a, false) + " -> " +
                       name(channels_, "c", c.result, true);
            case Op::Stop:
                return "stop " + on;
            case Op::SetVolume:
                return "volume " + on + " " + std::to_string(c.b);
            case Op::SetPan:
                return "pan " + on + " " + std::to_string(c.b);
            case Op::SetLoopMode:
                return "loop " + on + (c.b != 0 ? " normal" : " off");
            default:
                return c.text();
        }
    }

  private:
    static std::string name(std::map<std::int64_t, std::string>& names, const char* prefix,
                            std::int64_t handle, bool given) {
        if (handle == 0) {
            return std::string(prefix) + "0";
        }
        if (auto it = names.find(handle); it != names.end()) {
            return it->second;
        }
        if (!given) {
            return std::string(prefix) + "?";
        }
        return names.emplace(handle, prefix + std::to_string(names.size() + 1)).first->second;
    }

    std::filesystem::path root_;
    std::map<std::int64_t, std::string> samples_;
    std::map<std::int64_t, std::string> channels_;
};

// What a slot shows, as text; `handles` adds the drift target and the engine handles,
// which a reload draws and hands out afresh.
inline std::string describe(const BackgroundSoundSlot& sl, bool handles = true) {
    std::ostringstream s;
    s << sl.on.value() << " '" << sl.on.caption() << "' '" << sl.on.toolTip() << "' v"
      << sl.volume.value() << " b" << sl.balance.value() << " r" << sl.rate.value() << " u"
      << sl.lowLimitBar.value() << "/" << sl.highLimitBar.value() << " t" << sl.lowLimitText.text()
      << "/" << sl.highLimitText.text() << " '" << sl.path << "' timer" << sl.timer.enabled() << "/"
      << sl.timer.interval();
    if (handles) {
        s << " d" << sl.driftTarget << " s" << sl.sample << " c" << sl.channel;
    }
    return s.str();
}

// Everything a background bank shows, as text, for "nothing changed" checks.
inline std::string snapshot(const BackgroundBank& bank, bool handles = true) {
    std::ostringstream s;
    for (int i = 1; i <= kBackgroundSlots; ++i) {
        s << i << ": " << describe(bank.slot(i), handles) << "\n";
    }
    s << "strip " << bank.Master.value() << " " << bank.maxvol.value() << " " << bank.Random.value()
      << " " << bank.MP3.value() << " " << bank.CD.value() << " " << bank.Bwaves.value()
      << " hidden " << bank.hiddenVolume.value() << " " << bank.hiddenRate.value() << " "
      << bank.hiddenCheck.value() << "\n";
    return s.str();
}

// A known state: volume 10 x s, balance 100 + s, rate 50 x s, lower limit s and upper
// limit 250 - s, slots 2 and 17 on; the console's Bwaves 7, MP3 1234, Random 33.
inline void setKnownState(Application& app, BackgroundBank& b) {
    app.frmmain.Bwaves.setValue(7);
    app.frmmain.MP3.setValue(1234);
    app.frmmain.Random.setValue(33);
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        BackgroundSoundSlot& sl = b.slot(s);
        sl.volume.setValue(10 * s);
        sl.balance.setValue(100 + s);
        sl.rate.setValue(50 * s);
        sl.lowLimitBar.setValue(250 - s);
        sl.highLimitBar.setValue(s);
    }
    b.slot(2).on.setValue(1);
    b.slot(17).on.setValue(1);
}

// A started Application with Master and Background at 100, the random banks' schedulers
// stopped, no calls recorded yet.
class BackgroundBankFixture {
  public:
    explicit BackgroundBankFixture(std::uint64_t seed = 99) : h(seed) {
        app = &h.startAndLoad();
        app->frmmain.Master.setValue(100);
        app->frmmain.Background.setValue(100);
        // The random banks' schedulers would share the random source with the drift.
        for (RandomBank* bank : app->randomBanks()) {
            bank->Timer2.setEnabled(false);
        }
        h.engine.clearCalls();
        h.dialogs.clear();
    }

    // The engine calls since the last clear as short lines; calls on channel 0 (slots
    // that never played) are left out when `skipChannelZero`.
    std::vector<std::string> lines(bool skipChannelZero = true) const {
        CallNames names(h.tree.root());
        std::vector<std::string> out;
        for (const auto& c : h.engine.calls()) {
            const bool onChannel = c.op == Op::SetVolume || c.op == Op::SetPan ||
                                   c.op == Op::SetLoopMode || c.op == Op::Stop;
            if (!skipChannelZero || !onChannel || c.a != 0) {
                out.push_back(names.line(c));
            }
        }
        return out;
    }

    AppHarness<RecordingEngine> h;
    Application* app = nullptr;
};

}  // namespace brevane::test
