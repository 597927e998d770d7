#include "recorder/mix_capture.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "engine/mix_format.h"

namespace brevane {

MixCapture::~MixCapture() {
    client_.interrupt();
    if (thread_.joinable()) {
        thread_.join();
    }
}

MixCapture::Start MixCapture::start(const std::string& address, const std::filesystem::path& file,
                                    SoundFileFormat format) {
    if (active() || !client_.connect(address)) {
        return Start::NoProgram;
    }
    if (client_.channels() != 2) {
        client_.close();
        return Start::NoProgram;
    }
    file_ = std::make_unique<SoundFileStream>(file, 2, client_.rate(), format);
    if (!file_->ok()) {
        file_.reset();
        client_.close();
        return Start::FileFailed;
    }
    meter_ = std::make_unique<LoudnessMeter>(client_.rate());
    frames_.store(0);
    writeFailed_.store(false);
    loudness_.reset();
    live_.store(true, std::memory_order_release);
    thread_ = std::thread([this] { run(); });
    return Start::Started;
}

void MixCapture::run() {
    std::vector<float> block(static_cast<std::size_t>(kMixRate) / 10 * 2);
    std::size_t held = 0;  // values of a frame split between two reads
    for (;;) {
        const std::size_t n = client_.read(block.data() + held, block.size() - held);
        if (n == 0) {
            break;
        }
        held += n;
        const std::size_t frames = held / 2;
        float peak[2] = {0.0f, 0.0f};
        for (std::size_t i = 0; i < 2 * frames; ++i) {
            peak[i & 1] = std::max(peak[i & 1], std::fabs(block[i]));
        }
        peaks_[0].store(peak[0], std::memory_order_relaxed);
        peaks_[1].store(peak[1], std::memory_order_relaxed);
        meter_->add(block.data(), frames);
        if (!file_->write(block.data(), frames)) {
            writeFailed_.store(true);
            break;
        }
        frames_.fetch_add(frames, std::memory_order_relaxed);
        held -= 2 * frames;
        std::copy_n(block.data() + 2 * frames, held, block.data());
    }
    peaks_[0].store(0.0f);
    peaks_[1].store(0.0f);
    live_.store(false, std::memory_order_release);
}

bool MixCapture::stop() {
    if (!active()) {
        return false;
    }
    client_.interrupt();
    if (thread_.joinable()) {
        thread_.join();
    }
    client_.close();
    const bool kept = !writeFailed_.load() && file_->finish();
    loudness_ = kept ? meter_->integrated() : std::nullopt;
    file_.reset();
    meter_.reset();
    return kept;
}

}  // namespace brevane
