#include "engine/mixer_engine.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <thread>

#include "engine/effects/effects_chain.h"
#include "engine/sample_decoder.h"
#include "engine/sdl_backend.h"

namespace brevane {

namespace {

// A channel handle is its generation above the channel index.
constexpr int kChannelBits = 5;
static_assert((1 << kChannelBits) == kChannelCount);
constexpr std::uint32_t kChannelMask = kChannelCount - 1;
constexpr std::uint32_t kMaxGeneration = std::numeric_limits<std::uint32_t>::max() >> kChannelBits;

// How long a call may wait for the device thread to make room in a full queue before
// the command is dropped. The device drains the queue every few milliseconds, so this
// only bites when it has stalled.
constexpr auto kFullQueueWait = std::chrono::milliseconds(250);

}  // namespace

MixerEngine::MixerEngine(Output output)
    : output_(output), music_(std::make_unique<MusicStream>()), mixer_(std::make_unique<Mixer>()) {
    mixer_->attachMusic(music_.get());
    if (output_ == Output::Device) {
        backend_ = std::make_unique<SdlBackend>();
        device_ = std::make_unique<DeviceOutput>(*backend_, *mixer_);
    }
}

MixerEngine::MixerEngine(std::unique_ptr<DeviceBackend> backend)
    : output_(Output::Device),
      music_(std::make_unique<MusicStream>()),
      mixer_(std::make_unique<Mixer>()),
      backend_(std::move(backend)) {
    mixer_->attachMusic(music_.get());
    device_ = std::make_unique<DeviceOutput>(*backend_, *mixer_);
}

MixerEngine::~MixerEngine() {
    close();
}

int MixerEngine::driverCount() {
    // Driver 0 is the system's default output, the devices follow it.
    return backend_ ? backend_->deviceCount() + 1 : 1;
}

std::string MixerEngine::driverName(int driver) {
    if (!backend_) {
        return driver == 0 ? "Offline render" : "";
    }
    if (driver == 0) {
        return kDefaultOutputName;
    }
    return backend_->deviceName(driver - 1);
}

bool MixerEngine::start(int driver) {
    if (!device_) {
        return true;
    }
    // The default output is the backend's -1, which a sound server moves along with its
    // own default; a number past the list falls back to it as well.
    const int device = driver >= 1 && driver < driverCount() ? driver - 1 : -1;
    return device_->start(device);
}

void MixerEngine::close() {
    if (device_) {
        device_->stop();
    }
    // Nothing mixes any more: every voice, sample and chain can go at once, once no
    // decode can write to them.
    mixer_->reset();
    for (const auto& [record, file] : sampleFiles_) {
        decoder_.withdraw(record);
    }
    for (Channel& c : channels_) {
        c.live = false;
        c.sample = 0;
    }
    samples_.clear();
    freedSamples_.clear();
    sampleFiles_.clear();
    recentDecodes_.clear();
    effects_.clear();
    chains_.clear();
}

bool MixerEngine::mixingElsewhere() const {
    return device_ && device_->running();
}

void MixerEngine::send(const MixCommand& command) {
    if (mixer_->post(command)) {
        return;
    }
    if (!mixingElsewhere()) {
        // This thread is the only one to mix, and nothing is rendered between now and the
        // next boundary, so applying the queue now changes no sample.
        mixer_->applyPending();
        mixer_->post(command);
        return;
    }
    const auto deadline = std::chrono::steady_clock::now() + kFullQueueWait;
    while (std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        if (mixer_->post(command)) {
            return;
        }
    }
}

void MixerEngine::collectReleased() {
    const auto now = DecodeCache::Clock::now();
    recentDecodes_.expire(now);
    for (auto& [file, decoded] : decoder_.takeUnclaimed()) {
        if (!heldElsewhere(file)) {
            recentDecodes_.keep(std::move(file), std::move(decoded), now);
        }
    }
    for (auto it = freedSamples_.begin(); it != freedSamples_.end();) {
        SampleRecord& record = **it;
        if (!record.released.load(std::memory_order_acquire)) {
            ++it;
            continue;
        }
        auto file = sampleFiles_.extract(&record);
        // Kept only when no other sample holds the file: a reload would copy that one.
        if (!file.empty() && record.state.load(std::memory_order_acquire) == SampleState::Ready &&
            !heldElsewhere(file.mapped())) {
            recentDecodes_.keep(std::move(file.mapped()),
                                DecodedSample{std::move(record.frames), record.rate}, now);
        }
        it = freedSamples_.erase(it);
    }
    std::erase_if(chains_,
                  [](const auto& c) { return c->released.load(std::memory_order_acquire); });
}

bool MixerEngine::heldElsewhere(const FileIdentity& file) const {
    return std::any_of(sampleFiles_.begin(), sampleFiles_.end(),
                       [&file](const auto& entry) { return entry.second == file; });
}

std::optional<DecodedSample> MixerEngine::decodeAtHand(const FileIdentity& file) {
    // The mixer only ever reads a sample's frames, so copying them while it plays or
    // before it has let go of a freed one is safe.
    for (const auto& [record, identity] : sampleFiles_) {
        if (identity == file &&
            record->state.load(std::memory_order_acquire) == SampleState::Ready) {
            return DecodedSample{record->frames, record->rate};
        }
    }
    return recentDecodes_.take(file, DecodeCache::Clock::now());
}

SampleHandle MixerEngine::loadSample(const std::filesystem::path& file) {
    collectReleased();
    std::optional<FileIdentity> identity = FileIdentity::of(file);
    if (!identity) {
        return 0;
    }
    auto record = std::make_unique<SampleRecord>();
    if (std::optional<DecodedSample> decoded = decodeAtHand(*identity)) {
        record->frames = std::move(decoded->frames);
        record->rate = decoded->rate;
    } else {
        decoder_.request(*identity, record.get());
    }
    return keepRecord(std::move(record), std::move(*identity));
}

SampleHandle MixerEngine::loadCheckedSample(const std::filesystem::path& file) {
    collectReleased();
    std::optional<FileIdentity> identity = FileIdentity::of(file);
    if (!identity) {
        return 0;
    }
    std::optional<DecodedSample> decoded = decodeAtHand(*identity);
    if (!decoded) {
        decoded = decodeSampleFile(file);
    }
    if (!decoded) {
        return 0;
    }
    auto record = std::make_unique<SampleRecord>();
    record->frames = std::move(decoded->frames);
    record->rate = decoded->rate;
    return keepRecord(std::move(record), std::move(*identity));
}

SampleHandle MixerEngine::keepRecord(std::unique_ptr<SampleRecord> record, FileIdentity file) {
    sampleFiles_.emplace(record.get(), std::move(file));
    if (nextSample_ == 0) {
        nextSample_ = 1;  // after four billion loads
    }
    const SampleHandle handle = nextSample_++;
    samples_[handle] = std::move(record);
    return handle;
}

SampleRecord* MixerEngine::recordOf(SampleHandle sample) const {
    const auto it = samples_.find(sample);
    return it == samples_.end() ? nullptr : it->second.get();
}

void MixerEngine::freeSample(SampleHandle sample) {
    collectReleased();
    const auto it = samples_.find(sample);
    if (it == samples_.end()) {
        return;
    }
    for (Channel& c : channels_) {
        if (c.sample == sample) {
            c.live = false;
            c.sample = 0;
        }
    }
    decoder_.withdraw(it->second.get());
    MixCommand command;
    command.op = MixCommand::Op::StopSample;
    command.sample = it->second.get();
    send(command);
    freedSamples_.push_back(std::move(it->second));
    samples_.erase(it);
}

bool MixerEngine::busy(int channel) const {
    const Channel& c = channels_[static_cast<std::size_t>(channel)];
    return c.live && mixer_->endedGeneration(channel) != c.generation;
}

int MixerEngine::pickChannel() const {
    for (int i = 0; i < kChannelCount; ++i) {
        if (!busy(i)) {
            return i;
        }
    }
    // All play: the earliest one-shot gives way; a loop only when nothing else plays.
    int best = -1;
    for (const bool loops : {false, true}) {
        for (int i = 0; i < kChannelCount; ++i) {
            const Channel& c = channels_[static_cast<std::size_t>(i)];
            if (c.loop == loops &&
                (best < 0 || c.serial < channels_[static_cast<std::size_t>(best)].serial)) {
                best = i;
            }
        }
        if (best >= 0) {
            return best;
        }
    }
    return 0;
}

ChannelHandle MixerEngine::play(SampleHandle sample) {
    const auto it = samples_.find(sample);
    if (it == samples_.end()) {
        return 0;
    }
    if (it->second->state.load(std::memory_order_acquire) == SampleState::Pending) {
        // Wanted now: ahead of the one-shots that may not fire for a while.
        decoder_.hurry(it->second.get());
    }
    // Plays come every few seconds in a running soundscape: kept decodes do not outlive
    // their time by much even when nothing is loaded or freed.
    recentDecodes_.expire(DecodeCache::Clock::now());
    const int index = pickChannel();
    Channel& c = channels_[static_cast<std::size_t>(index)];
    c.generation = nextGeneration_;
    nextGeneration_ = nextGeneration_ == kMaxGeneration ? 1 : nextGeneration_ + 1;
    c.sample = sample;
    c.serial = nextSerial_++;
    c.loop = false;
    c.live = true;
    MixCommand command;
    command.op = MixCommand::Op::Play;
    command.channel = static_cast<std::uint8_t>(index);
    command.generation = c.generation;
    command.sample = it->second.get();
    send(command);
    return (c.generation << kChannelBits) | static_cast<std::uint32_t>(index);
}

int MixerEngine::channelOf(ChannelHandle handle) const {
    if (handle == 0) {
        return -1;
    }
    const auto index = static_cast<int>(handle & kChannelMask);
    const Channel& c = channels_[static_cast<std::size_t>(index)];
    if (!c.live || c.generation != handle >> kChannelBits) {
        return -1;
    }
    return index;
}

void MixerEngine::sendToChannel(ChannelHandle handle, MixCommand::Op op, int value) {
    const int index = channelOf(handle);
    if (index < 0) {
        return;
    }
    MixCommand command;
    command.op = op;
    command.channel = static_cast<std::uint8_t>(index);
    command.generation = channels_[static_cast<std::size_t>(index)].generation;
    command.value = value;
    send(command);
}

void MixerEngine::stop(ChannelHandle channel) {
    const int index = channelOf(channel);
    sendToChannel(channel, MixCommand::Op::Stop, 0);
    if (index >= 0) {
        channels_[static_cast<std::size_t>(index)].live = false;
    }
}

void MixerEngine::setVolume(ChannelHandle channel, int volume) {
    sendToChannel(channel, MixCommand::Op::Volume, std::clamp(volume, 0, 255));
}

void MixerEngine::setPan(ChannelHandle channel, int pan) {
    sendToChannel(channel, MixCommand::Op::Pan, std::clamp(pan, 0, 255));
}

void MixerEngine::setLoopMode(ChannelHandle channel, LoopMode mode) {
    const int index = channelOf(channel);
    if (index >= 0) {
        channels_[static_cast<std::size_t>(index)].loop = mode == LoopMode::Normal;
    }
    sendToChannel(channel, MixCommand::Op::Loop, mode == LoopMode::Normal ? 1 : 0);
}

void MixerEngine::setFrequency(ChannelHandle channel, int hz) {
    sendToChannel(channel, MixCommand::Op::Frequency, std::clamp(hz, kMinFrequency, kMaxFrequency));
}

void MixerEngine::setPaused(ChannelHandle channel, bool paused) {
    sendToChannel(channel, MixCommand::Op::Pause, paused ? 1 : 0);
}

void MixerEngine::setAllPaused(bool paused) {
    MixCommand command;
    command.op = MixCommand::Op::PauseAll;
    command.value = paused ? 1 : 0;
    send(command);
}

bool MixerEngine::isPlaying(ChannelHandle channel) {
    const int index = channelOf(channel);
    return index >= 0 && busy(index);
}

std::unique_ptr<ChainBox> MixerEngine::buildChain(const std::vector<Effect>& effects) const {
    auto box = std::make_unique<ChainBox>();
    box->chain = std::make_unique<EffectsChain>(kMixRate);
    for (const Effect& e : effects) {
        const int id = box->chain->enable(e.kind);
        if (id < 0) {
            return nullptr;
        }
        box->kinds.push_back(e.kind);
        box->ids.push_back(id);
        if (const auto* eq = std::get_if<EqualizerBandParams>(&e.params)) {
            box->chain->setEqualizerBand(id, *eq);
        } else if (const auto* reverb = std::get_if<ReverbParams>(&e.params)) {
            box->chain->setReverb(id, *reverb);
        } else if (const auto* echo = std::get_if<EchoParams>(&e.params)) {
            box->chain->setEcho(id, *echo);
        }
    }
    return box;
}

int MixerEngine::enableEffect(EffectKind kind) {
    collectReleased();
    std::vector<Effect> next = effects_;
    next.push_back(Effect{kind, {}});
    // The sounding chain is never changed in place: a new one is built here and handed
    // over whole, and the mixer fades from the old to the new.
    std::unique_ptr<ChainBox> box = buildChain(next);
    if (!box) {
        return -1;
    }
    effects_ = std::move(next);
    swapInChain(std::move(box));
    return static_cast<int>(effects_.size()) - 1;
}

void MixerEngine::swapInChain(std::unique_ptr<ChainBox> box) {
    if (!box) {
        return;
    }
    MixCommand command;
    command.op = MixCommand::Op::SwapChain;
    command.chain = box.get();
    chains_.push_back(std::move(box));
    send(command);
}

void MixerEngine::disableEffects() {
    collectReleased();
    effects_.clear();
    MixCommand command;
    command.op = MixCommand::Op::SwapChain;
    command.chain = nullptr;
    send(command);
}

bool MixerEngine::keepParams(
    int id, EffectKind kind,
    const std::variant<std::monostate, EqualizerBandParams, ReverbParams, EchoParams>& params) {
    if (id < 0 || static_cast<std::size_t>(id) >= effects_.size() ||
        effects_[static_cast<std::size_t>(id)].kind != kind) {
        return false;
    }
    // Kept for the chains built later.
    effects_[static_cast<std::size_t>(id)].params = params;
    return true;
}

void MixerEngine::setEqualizerBand(int id, const EqualizerBandParams& p) {
    if (!keepParams(id, EffectKind::Equalizer, p)) {
        return;
    }
    // A band glides to its new gain, so it is changed in the sounding chain.
    MixCommand command;
    command.op = MixCommand::Op::SetEqualizerBand;
    command.value = id;
    command.params = p;
    send(command);
}

// A room or an echo changed in place would jump to its new delays: the chain is built
// again instead, and the mixer fades to it with the tails carried over.
void MixerEngine::setReverb(int id, const ReverbParams& p) {
    if (keepParams(id, EffectKind::Reverb, p)) {
        collectReleased();
        swapInChain(buildChain(effects_));
    }
}

void MixerEngine::setEcho(int id, const EchoParams& p) {
    if (keepParams(id, EffectKind::Echo, p)) {
        collectReleased();
        swapInChain(buildChain(effects_));
    }
}

void MixerEngine::render(float* out, int frames) {
    if (output_ != Output::Offline || frames <= 0) {
        return;
    }
    decoder_.waitIdle();
    // Never more at once than half the music's ring holds, so a long render never runs
    // it dry.
    constexpr int kPiece = static_cast<int>(MusicStream::kRingFrames / 2);
    while (frames > 0) {
        const int n = std::min(frames, kPiece);
        music_->waitFilled(n);
        mixer_->render(out, n);
        out += 2 * static_cast<std::ptrdiff_t>(n);
        frames -= n;
    }
}

std::vector<float> MixerEngine::render(int frames) {
    std::vector<float> out(2 * static_cast<std::size_t>(std::max(frames, 0)));
    render(out.data(), frames);
    return out;
}

std::size_t MixerEngine::sampleFrames(SampleHandle sample) {
    decoder_.waitIdle();
    const SampleRecord* record = recordOf(sample);
    return record == nullptr ? 0 : frameCount(record->frames);
}

int MixerEngine::sampleRate(SampleHandle sample) {
    decoder_.waitIdle();
    const SampleRecord* record = recordOf(sample);
    return record == nullptr ? 0 : record->rate;
}

int MixerEngine::soundingSamplesAwaitingDecode() const {
    int waiting = 0;
    for (int i = 0; i < kChannelCount; ++i) {
        const Channel& c = channels_[static_cast<std::size_t>(i)];
        const SampleRecord* record = busy(i) ? recordOf(c.sample) : nullptr;
        if (record != nullptr &&
            record->state.load(std::memory_order_acquire) == SampleState::Pending) {
            ++waiting;
        }
    }
    return waiting;
}

}  // namespace brevane
