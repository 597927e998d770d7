// The music bus's cost for a one-hour file: resident memory and the share of one core
// the streaming takes while it plays.
//
// The file is made here: one minute of a mono 16-bit WAV at 22050 Hz from the engine's
// sound file writer, its data repeated to an hour under a header that says so (159 MB
// on disk). Mono at half the mix rate has the stream mix up to stereo and resample,
// as most music files need.
//
// Figures:
//  - resident memory (kB from /proc/self/statm) over the process before the engine is
//    made: with the engine and its idle music bus, after opening the file and playing a
//    minute of it, after a seek to minute 59 and a minute more. From the first run, so
//    that no memory freed by an earlier run is reused unseen;
//  - the median of five runs of the CPU time of the whole process (mixer, decoder thread) per
//  second of music, less
//    the same render without music, as a share of one core.
// The render is offline, as fast as the machine goes; the device plays in real time,
// so the share is what the stream takes from a core while the music is heard.
//
// The same for a disc: a two-minute image of CD audio (21 MB), read sector by sector
// with cdparanoia's verification on the decoder thread, as the CD player plays a disc:
// the share of one core of a minute's play (median of five runs) and the resident memory
// it adds over the engine with its idle bus.

#include <benchmark/benchmark.h>

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <vector>

#include "engine/mixer_engine.h"
#include "engine/music_stream.h"
#include "engine/sound_file_writer.h"
#include "media/cd_drive.h"
#include "media/cd_image.h"
#include "media/cd_player.h"

namespace brevane {
namespace {

namespace fs = std::filesystem;

constexpr int kFileRate = 22050;

long residentKb() {
    std::ifstream statm("/proc/self/statm");
    long size = 0;
    long resident = 0;
    statm >> size >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

double cpuSeconds() {
    rusage use{};
    getrusage(RUSAGE_SELF, &use);
    const auto seconds = [](const timeval& t) { return t.tv_sec + t.tv_usec / 1e6; };
    return seconds(use.ru_utime) + seconds(use.ru_stime);
}

std::uint32_t readU32(const std::vector<char>& b, std::size_t at) {
    std::uint32_t v = 0;
    std::memcpy(&v, b.data() + at, 4);
    return v;
}
void writeU32(std::vector<char>& b, std::size_t at, std::uint32_t v) {
    std::memcpy(b.data() + at, &v, 4);
}

// A one-hour WAV: a minute written by the engine's writer, its data sixty times.
bool makeHourFile(const fs::path& file) {
    std::vector<float> minute(static_cast<std::size_t>(kFileRate) * 60);
    for (std::size_t i = 0; i < minute.size(); ++i) {
        const double t = static_cast<double>(i) / kFileRate;
        minute[i] = static_cast<float>(0.3 * std::sin(2 * std::numbers::pi * 220.0 * t) *
                                       (0.6 + 0.4 * std::sin(t)));
    }
    const fs::path piece = file.parent_path() / "minute.wav";
    if (!writeSoundFile(piece, minute, 1, kFileRate, SoundFileFormat::Wav16)) {
        return false;
    }
    std::ifstream in(piece, std::ios::binary);
    std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    // Walk the chunks to the sound data.
    std::size_t at = 12;
    while (at + 8 <= bytes.size() && std::memcmp(bytes.data() + at, "data", 4) != 0) {
        at += 8 + readU32(bytes, at + 4);
    }
    if (at + 8 > bytes.size()) {
        return false;
    }
    const std::uint32_t dataBytes = readU32(bytes, at + 4);
    const std::size_t header = at + 8;
    std::vector<char> head(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(header));
    writeU32(head, at + 4, dataBytes * 60);
    writeU32(head, 4, static_cast<std::uint32_t>(header - 8 + std::size_t{dataBytes} * 60));
    std::ofstream out(file, std::ios::binary);
    out.write(head.data(), static_cast<std::streamsize>(head.size()));
    for (int i = 0; i < 60; ++i) {
        out.write(bytes.data() + header, dataBytes);
    }
    return static_cast<bool>(out);
}

double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

}  // namespace
}  // namespace brevane

int main() {
    using namespace brevane;
    const fs::path dir =
        fs::temp_directory_path() / ("brevane-music-bench-" + std::to_string(getpid()));
    fs::create_directories(dir);
    const fs::path file = dir / "hour.wav";
    if (!makeHourFile(file)) {
        std::fprintf(stderr, "could not write %s\n", file.c_str());
        return 1;
    }
    constexpr int kSeconds = 60;
    constexpr int kPiece = 4096;
    std::vector<double> share, duration;
    long engineKb = 0, playKb = 0, seekKb = 0;
    const long base = residentKb();
    for (int run = 0; run < 5; ++run) {
        MixerEngine engine(MixerEngine::Output::Offline);
        if (run == 0) {
            engineKb = residentKb() - base;
        }
        std::vector<float> out(2 * kPiece);
        const auto renderFor = [&](int seconds) {
            for (long n = 0; n < static_cast<long>(seconds) * kMixRate; n += kPiece) {
                engine.render(out.data(), kPiece);
            }
        };
        renderFor(1);  // the engine's own first allocations out of the figures
        double cpu = cpuSeconds();
        renderFor(kSeconds);
        const double silentCpu = cpuSeconds() - cpu;

        MediaPlayer& music = *engine.mediaPlayer();
        if (!music.setFile(file)) {
            std::fprintf(stderr, "could not open %s\n", file.c_str());
            return 1;
        }
        music.play();
        cpu = cpuSeconds();
        renderFor(kSeconds);
        const double musicCpu = cpuSeconds() - cpu;
        if (run == 0) {
            playKb = residentKb() - base;
        }
        music.setPosition(59 * 60);
        renderFor(kSeconds);
        if (run == 0) {
            seekKb = residentKb() - base;
        }
        share.push_back((musicCpu - silentCpu) / kSeconds);
        duration.push_back(music.duration());
    }
    std::printf("one-hour file: %.0f s, %.0f MB on disk\n", median(duration),
                static_cast<double>(fs::file_size(file)) / 1e6);
    std::printf(
        "resident memory added: engine with its idle music bus %ld kB, after a minute "
        "of play %ld kB, after a seek to minute 59 and a minute more %ld kB\n",
        engineKb, playKb, seekKb);
    std::printf("streaming CPU, share of one core while playing: %.2f %%\n", 100 * median(share));

    // The disc.
    CdioDrives drives({test::writeCdImage(dir, {{220, 60}, {330, 60}})});
    std::vector<double> discShare;
    long discKb = 0;
    for (int run = 0; run < 5; ++run) {
        MixerEngine engine(MixerEngine::Output::Offline);
        std::vector<float> out(2 * kPiece);
        const auto renderFor = [&](int seconds) {
            for (long n = 0; n < static_cast<long>(seconds) * kMixRate; n += kPiece) {
                engine.render(out.data(), kPiece);
            }
        };
        renderFor(1);
        const long idleKb = residentKb();
        double cpu = cpuSeconds();
        renderFor(kSeconds);
        const double silentCpu = cpuSeconds() - cpu;
        const auto drive = drives.open(drives.names().front());
        const auto tracks = drive->audioTracks();
        auto reader = drive ? drive->openReader() : nullptr;
        if (!reader || tracks.empty()) {
            std::fprintf(stderr, "could not read the disc image\n");
            return 1;
        }
        MediaPlayer& music = *engine.mediaPlayer();
        music.setSource(makeCdDiscSource(std::move(reader), tracks.front().firstSector,
                                         tracks.back().firstSector + tracks.back().sectorCount));
        music.play();
        cpu = cpuSeconds();
        renderFor(kSeconds);
        discShare.push_back((cpuSeconds() - cpu - silentCpu) / kSeconds);
        if (run == 0) {
            discKb = residentKb() - idleKb;
        }
    }
    std::printf(
        "disc: resident memory added by a minute of play %ld kB; CPU, share of one core "
        "while playing: %.2f %%\n",
        discKb, 100 * median(discShare));
    fs::remove_all(dir);
    return 0;
}
