#include "engine/recording_engine.h"

#include <algorithm>
#include <sstream>

namespace brevane {

namespace {

const char* opName(RecordingEngine::Op op) {
    using Op = RecordingEngine::Op;
    switch (op) {
        case Op::DriverCount:
            return "driverCount";
        case Op::DriverName:
            return "driverName";
        case Op::Start:
            return "start";
        case Op::Close:
            return "close";
        case Op::LoadSample:
            return "loadSample";
        case Op::FreeSample:
            return "freeSample";
        case Op::Play:
            return "play";
        case Op::Stop:
            return "stop";
        case Op::SetVolume:
            return "setVolume";
        case Op::SetPan:
            return "setPan";
        case Op::SetLoopMode:
            return "setLoopMode";
        case Op::SetFrequency:
            return "setFrequency";
        case Op::SetPaused:
            return "setPaused";
        case Op::SetAllPaused:
            return "setAllPaused";
        case Op::IsPlaying:
            return "isPlaying";
        case Op::EnableEffect:
            return "enableEffect";
        case Op::DisableEffects:
            return "disableEffects";
        case Op::SetEqualizerBand:
            return "setEqualizerBand";
        case Op::SetReverb:
            return "setReverb";
        case Op::SetEcho:
            return "setEcho";
    }
    return "?";
}

const char* kindName(std::int64_t kind) {
    switch (static_cast<EffectKind>(kind)) {
        case EffectKind::Equalizer:
            return "Equalizer";
        case EffectKind::Reverb:
            return "Reverb";
        case EffectKind::Echo:
            return "Echo";
    }
    return "?";
}

bool isQuery(RecordingEngine::Op op) {
    using Op = RecordingEngine::Op;
    return op == Op::DriverCount || op == Op::DriverName || op == Op::IsPlaying;
}

}  // namespace

std::string RecordingEngine::Call::text() const {
    std::ostringstream s;
    s << opName(op) << '(';
    switch (op) {
        case Op::DriverCount:
        case Op::Close:
        case Op::DisableEffects:
            break;
        case Op::LoadSample:
            s << '"' << path.generic_string() << '"';
            break;
        case Op::DriverName:
        case Op::Start:
        case Op::FreeSample:
        case Op::Play:
        case Op::Stop:
        case Op::IsPlaying:
            s << a;
            break;
        case Op::SetVolume:
        case Op::SetPan:
        case Op::SetFrequency:
            s << a << ", " << b;
            break;
        case Op::SetLoopMode:
            s << a << ", " << (b != 0 ? "Normal" : "Off");
            break;
        case Op::SetPaused:
            s << a << ", " << (b != 0 ? "true" : "false");
            break;
        case Op::SetAllPaused:
            s << (a != 0 ? "true" : "false");
            break;
        case Op::EnableEffect:
            s << kindName(a);
            break;
        case Op::SetEqualizerBand:
            if (const auto* p = std::get_if<EqualizerBandParams>(&params)) {
                s << a << ", " << p->centreHz << " Hz, " << p->bandwidthSemitones << " st, "
                  << p->gainDb << " dB";
            }
            break;
        case Op::SetReverb:
            if (const auto* p = std::get_if<ReverbParams>(&params)) {
                s << a << ", room " << p->room << ", roomHF " << p->roomHF << ", rolloff "
                  << p->roomRolloffFactor << ", decay " << p->decayTime << ", decayHF "
                  << p->decayHFRatio << ", reflections " << p->reflections << ", reflDelay "
                  << p->reflectionsDelay << ", reverb " << p->reverb << ", revDelay "
                  << p->reverbDelay << ", diffusion " << p->diffusion << ", density " << p->density
                  << ", hfRef " << p->hfReference;
            }
            break;
        case Op::SetEcho:
            if (const auto* p = std::get_if<EchoParams>(&params)) {
                s << a << ", wet " << p->wetDryMix << ", feedback " << p->feedback << ", left "
                  << p->leftDelayMs << " ms, right " << p->rightDelayMs << " ms, "
                  << (p->panDelay ? "pan" : "no pan");
            }
            break;
    }
    s << ')';
    switch (op) {
        case Op::DriverCount:
        case Op::Start:
        case Op::LoadSample:
        case Op::Play:
        case Op::IsPlaying:
        case Op::EnableEffect:
            s << " -> " << result;
            break;
        default:
            break;
    }
    return s.str();
}

RecordingEngine::Call& RecordingEngine::record(Op op, std::int64_t a, std::int64_t b) {
    Call call{op, {}, a, b, 0, {}};
    calls_.push_back(std::move(call));
    return calls_.back();
}

RecordingEngine::ChannelState* RecordingEngine::live(ChannelHandle channel) {
    const auto it = channels_.find(channel);
    return it != channels_.end() && it->second.playing ? &it->second : nullptr;
}

void RecordingEngine::endChannel(ChannelHandle channel) {
    if (ChannelState* c = live(channel)) {
        c->playing = false;
    }
}

std::vector<RecordingEngine::Call> RecordingEngine::callsOf(Op op) const {
    std::vector<Call> out;
    std::copy_if(calls_.begin(), calls_.end(), std::back_inserter(out),
                 [op](const Call& c) { return c.op == op; });
    return out;
}

std::vector<std::string> RecordingEngine::lines(bool withQueries) const {
    std::vector<std::string> out;
    for (const Call& c : calls_) {
        if (withQueries || !isQuery(c.op)) {
            out.push_back(c.text());
        }
    }
    return out;
}

std::string RecordingEngine::dump(bool withQueries) const {
    std::string out;
    for (const std::string& line : lines(withQueries)) {
        out += line;
        out += '\n';
    }
    return out;
}

const RecordingEngine::ChannelState* RecordingEngine::channel(ChannelHandle channel) const {
    const auto it = channels_.find(channel);
    return it == channels_.end() ? nullptr : &it->second;
}

std::size_t RecordingEngine::playingCount() const {
    return static_cast<std::size_t>(std::count_if(channels_.begin(), channels_.end(),
                                                  [](const auto& c) { return c.second.playing; }));
}

int RecordingEngine::driverCount() {
    const int n = static_cast<int>(drivers_.size());
    record(Op::DriverCount).result = n;
    return n;
}

std::string RecordingEngine::driverName(int driver) {
    record(Op::DriverName, driver);
    if (driver < 0 || static_cast<std::size_t>(driver) >= drivers_.size()) {
        return {};
    }
    return drivers_[static_cast<std::size_t>(driver)];
}

bool RecordingEngine::start(int driver) {
    record(Op::Start, driver).result = startResult_ ? 1 : 0;
    started_ = startResult_;
    return startResult_;
}

void RecordingEngine::close() {
    record(Op::Close);
    started_ = false;
    for (auto& c : channels_) {
        c.second.playing = false;
    }
    loaded_.clear();
    effects_.clear();
}

SampleHandle RecordingEngine::loadSample(const std::filesystem::path& file) {
    Call& call = record(Op::LoadSample);
    call.path = file;
    if (failing_.count(file) != 0) {
        return 0;
    }
    const SampleHandle handle = nextSample_++;
    loaded_.insert(handle);
    call.result = handle;
    return handle;
}

void RecordingEngine::freeSample(SampleHandle sample) {
    record(Op::FreeSample, sample);
    if (loaded_.erase(sample) == 0) {
        return;
    }
    for (auto& c : channels_) {
        if (c.second.sample == sample) {
            c.second.playing = false;
        }
    }
}

ChannelHandle RecordingEngine::play(SampleHandle sample) {
    Call& call = record(Op::Play, sample);
    if (loaded_.count(sample) == 0) {
        return 0;
    }
    const ChannelHandle handle = nextChannel_++;
    channels_[handle].sample = sample;
    call.result = handle;
    return handle;
}

void RecordingEngine::stop(ChannelHandle channel) {
    record(Op::Stop, channel);
    if (ChannelState* c = live(channel)) {
        c->playing = false;
    }
}

void RecordingEngine::setVolume(ChannelHandle channel, int volume) {
    record(Op::SetVolume, channel, volume);
    if (ChannelState* c = live(channel)) {
        c->volume = std::clamp(volume, 0, 255);
    }
}

void RecordingEngine::setPan(ChannelHandle channel, int pan) {
    record(Op::SetPan, channel, pan);
    if (ChannelState* c = live(channel)) {
        c->pan = std::clamp(pan, 0, 255);
    }
}

void RecordingEngine::setLoopMode(ChannelHandle channel, LoopMode mode) {
    record(Op::SetLoopMode, channel, mode == LoopMode::Normal ? 1 : 0);
    if (ChannelState* c = live(channel)) {
        c->loop = mode;
    }
}

void RecordingEngine::setFrequency(ChannelHandle channel, int hz) {
    record(Op::SetFrequency, channel, hz);
    if (ChannelState* c = live(channel)) {
        c->frequency = hz;
    }
}

void RecordingEngine::setPaused(ChannelHandle channel, bool paused) {
    record(Op::SetPaused, channel, paused ? 1 : 0);
    if (ChannelState* c = live(channel)) {
        c->paused = paused;
    }
}

void RecordingEngine::setAllPaused(bool paused) {
    record(Op::SetAllPaused, paused ? 1 : 0);
    for (auto& c : channels_) {
        if (c.second.playing) {
            c.second.paused = paused;
        }
    }
}

bool RecordingEngine::isPlaying(ChannelHandle channel) {
    const bool playing = live(channel) != nullptr;
    record(Op::IsPlaying, channel).result = playing ? 1 : 0;
    return playing;
}

int RecordingEngine::enableEffect(EffectKind kind) {
    const int id = static_cast<int>(effects_.size());
    record(Op::EnableEffect, static_cast<std::int64_t>(kind)).result = id;
    effects_.push_back(kind);
    return id;
}

void RecordingEngine::disableEffects() {
    record(Op::DisableEffects);
    effects_.clear();
}

void RecordingEngine::setEqualizerBand(int id, const EqualizerBandParams& p) {
    record(Op::SetEqualizerBand, id).params = p;
}

void RecordingEngine::setReverb(int id, const ReverbParams& p) {
    record(Op::SetReverb, id).params = p;
}

void RecordingEngine::setEcho(int id, const EchoParams& p) {
    record(Op::SetEcho, id).params = p;
}

}  // namespace brevane
