#include "recorder/scenario_render.h"

#include <algorithm>
#include <cmath>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <numbers>
#include <system_error>
#include <thread>
#include <vector>

#include "base/scratch_tree.h"
#include "core/headless_program.h"
#include "engine/mix_format.h"
#include "engine/mixer_engine.h"
#include "recorder/loudness.h"
#include "scenarios/scenario_files.h"

namespace brevane {

namespace {

namespace fs = std::filesystem;

// The longest stretch rendered between two looks at the program's timers, in ms. Most
// stretches are shorter: the render stops at every tick that is due.
constexpr std::int64_t kLongestStretchMs = 1000;

// The session files the render's program starts from (the banks' copies, the weather's,
// the effects', the brainwaves', the console's), but not the alarm's and the schedule's:
// those belong to the live program and would load other scenarios into the render.
bool takenIntoRenders(const fs::path& file) {
    const std::string name = file.filename().string();
    const std::string ending = file.extension().string();
    return (ending == ".tmp" || ending == ".ini") && name != "alarm.tmp" &&
           name != "Timersettings.tmp" && name != "Timersettings2.tmp";
}

// The program's tree as the render's program sees it: the settings copied (so nothing
// the render's program does reaches the user's files), the sounds and pictures linked.
bool prepareTree(const fs::path& from, const fs::path& to) {
    std::error_code ec;
    for (const fs::directory_entry& entry : fs::directory_iterator(from, ec)) {
        const std::string name = entry.path().filename().string();
        if (entry.is_directory(ec)) {
            if (name == "config") {
                fs::copy(entry.path(), to / name, fs::copy_options::recursive, ec);
            } else {
                fs::create_directory_symlink(fs::absolute(entry.path()), to / name, ec);
            }
        } else if (entry.is_regular_file(ec) && takenIntoRenders(entry.path())) {
            fs::copy_file(entry.path(), to / name, ec);
        }
        if (ec) {
            return false;
        }
    }
    return !ec;
}

// Gain of the fades at frame `i` of `total`, a half cosine over `fade` frames.
float fadeGain(std::uint64_t i, std::uint64_t total, std::uint64_t fade, bool in, bool out) {
    double g = 1.0;
    if (in && i < fade) {
        g *= 0.5 - 0.5 * std::cos(std::numbers::pi * static_cast<double>(i) / fade);
    }
    const std::uint64_t left = total - i;
    if (out && left <= fade) {
        g *= 0.5 - 0.5 * std::cos(std::numbers::pi * static_cast<double>(left - 1) / fade);
    }
    return static_cast<float>(g);
}

// The program as it stands after the user chose the scenario: loaded, the intro fade
// already at its end, each generator on or off as asked.
void setUp(Application& app, const RenderOptions& o) {
    app.frmmain.doload(o.scenario);
    app.frmmain.TimerIntroVolFade.setEnabled(false);
    // A session muted at its end would give a silent file.
    app.frmmain.Master.setValue(app.SavedMasterLevel > app.frmmain.Master.low()
                                    ? app.SavedMasterLevel
                                    : Frmmain::kBuiltInMasterLevel);
    app.frmeffects.check_eq.setChecked(o.equalizer);
    app.frmeffects.check_rev3d.setChecked(o.reverb);
    app.frmevolve.masterevolve.setValue(o.weather);
    app.frmevolve.masternight.setValue(o.night);
    app.frmbwave.playtoggle.setValue(o.brainwaves);
}

// Encodes and measures on a thread of its own while the next stretch renders: a FLAC or
// Vorbis encoder costs about as much as the mix, and the machine has a core to spare.
class FileFeeder {
  public:
    FileFeeder(SoundFileStream& file, LoudnessMeter& meter) : file_(file), meter_(meter) {
        thread_ = std::thread([this] { run(); });
    }
    ~FileFeeder() { drain(); }
    FileFeeder(const FileFeeder&) = delete;
    FileFeeder& operator=(const FileFeeder&) = delete;

    // Hands over interleaved stereo frames; waits while the writer is far behind. False
    // once a write has failed.
    bool push(std::vector<float> block) {
        std::unique_lock lock(mutex_);
        roomLeft_.wait(lock, [this] { return queue_.size() < kQueued || failed_; });
        queue_.push_back(std::move(block));
        ready_.notify_one();
        return !failed_;
    }
    // Writes what is queued and ends the thread. False when a write failed.
    bool drain() {
        {
            std::lock_guard lock(mutex_);
            ending_ = true;
        }
        ready_.notify_one();
        if (thread_.joinable()) {
            thread_.join();
        }
        return !failed_;
    }

  private:
    static constexpr std::size_t kQueued = 8;

    void run() {
        for (;;) {
            std::vector<float> block;
            {
                std::unique_lock lock(mutex_);
                ready_.wait(lock, [this] { return !queue_.empty() || ending_; });
                if (queue_.empty()) {
                    return;
                }
                block = std::move(queue_.front());
                queue_.pop_front();
            }
            roomLeft_.notify_one();
            meter_.add(block.data(), block.size() / 2);
            if (!file_.write(block.data(), block.size() / 2)) {
                std::lock_guard lock(mutex_);
                failed_ = true;
                roomLeft_.notify_one();
                return;
            }
        }
    }

    SoundFileStream& file_;
    LoudnessMeter& meter_;
    std::mutex mutex_;
    std::condition_variable ready_;
    std::condition_variable roomLeft_;
    std::deque<std::vector<float>> queue_;
    bool ending_ = false;
    bool failed_ = false;
    std::thread thread_;
};

RenderResult failed(std::string why) {
    RenderResult r;
    r.error = std::move(why);
    return r;
}

}  // namespace

RenderResult renderScenario(const AppPath& tree, const RenderOptions& o, RenderProgress& progress) {
    const std::uint64_t total =
        static_cast<std::uint64_t>(std::clamp<std::int64_t>(o.lengthMs, 0, kMaxRenderMs)) *
        kMixRate / 1000;
    progress.framesTotal.store(total);
    progress.framesDone.store(0);
    if (total == 0) {
        return failed("The length of the recording must be at least one minute.");
    }
    if (!fs::exists(tree / kScenarioFolder / (o.scenario + kScenarioMarkerExtension))) {
        return failed("The scenario \"" + o.scenario + "\" could not be found.");
    }
    ScratchTree scratch("brevane-render");
    if (!prepareTree(tree.root(), scratch.root())) {
        return failed("The program's folder could not be read.");
    }
    SoundFileStream file(o.file, 2, kMixRate, o.format);
    if (!file.ok()) {
        return failed("The file " + o.file.string() +
                      " could not be written. Please choose another folder.");
    }

    HeadlessProgram<MixerEngine> program(scratch.root(), o.seed, MixerEngine::Output::Offline);
    Application& app = program.started();
    if (app.exitRequested()) {
        return failed("The sound engine could not start.");
    }
    setUp(app, o);

    const std::uint64_t fade =
        std::min<std::uint64_t>(static_cast<std::uint64_t>(kFadeMs) * kMixRate / 1000, total / 4);
    LoudnessMeter meter(kMixRate);
    const std::string writeFailed =
        "The file " + o.file.string() + " could not be written: the disk may be full.";
    bool written = true;
    {
        FileFeeder feeder(file, meter);
        // Stretches gather in a block of a second or two before they go to the writer.
        const std::size_t blockFrames = static_cast<std::size_t>(kMixRate) * 2;
        const std::size_t stretchFrames =
            static_cast<std::size_t>(kMixRate * kLongestStretchMs / 1000);
        std::vector<float> block;
        block.reserve(2 * (blockFrames + stretchFrames));
        const std::int64_t start = program.loop.now();
        std::uint64_t done = 0;
        while (done < total && written) {
            if (progress.cancel.load(std::memory_order_relaxed)) {
                feeder.drain();
                RenderResult r;
                r.outcome = RenderResult::Outcome::Cancelled;
                return r;
            }
            // Sound up to the next tick, then the tick: what it changes sounds from there.
            std::int64_t until = program.loop.now() + kLongestStretchMs;
            if (const auto next = program.loop.nextDeadline()) {
                until = std::min(until, std::max(*next, program.loop.now()));
            }
            const std::uint64_t untilFrame = std::min<std::uint64_t>(
                total, static_cast<std::uint64_t>(until - start) * kMixRate / 1000);
            const auto frames = static_cast<std::size_t>(untilFrame - done);
            if (frames > 0) {
                const std::size_t at = block.size();
                block.resize(at + 2 * frames);
                float* out = block.data() + at;
                program.engine.render(out, static_cast<int>(frames));
                if (o.fadeIn || o.fadeOut) {
                    for (std::size_t i = 0; i < frames; ++i) {
                        const float g = fadeGain(done + i, total, fade, o.fadeIn, o.fadeOut);
                        out[2 * i] *= g;
                        out[2 * i + 1] *= g;
                    }
                }
                done = untilFrame;
                if (block.size() >= 2 * blockFrames || done == total) {
                    written = feeder.push(std::move(block));
                    block = {};
                    block.reserve(2 * (blockFrames + stretchFrames));
                }
                progress.framesDone.store(done, std::memory_order_relaxed);
            }
            program.loop.advanceTo(until);
        }
        written = feeder.drain() && written;
    }
    if (!written) {
        return failed(writeFailed);
    }
    if (!file.finish()) {
        return failed("The file " + o.file.string() + " could not be written.");
    }
    RenderResult r;
    r.outcome = RenderResult::Outcome::Done;
    r.frames = total;
    r.loudness = meter.integrated();
    return r;
}

}  // namespace brevane
