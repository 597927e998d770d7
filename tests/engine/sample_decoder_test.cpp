#include "engine/sample_decoder.h"

#include <gtest/gtest.h>
#include <sndfile.h>

#include <random>

#include "base/file_io.h"
#include "base/temp_tree.h"
#include "engine/mixer_engine.h"
#include "test_sounds.h"

namespace brevane {
namespace {

// Writes with libsndfile directly, for the formats the program never writes itself.
std::filesystem::path writeWith(const std::filesystem::path& file, int format, int channels,
                                int rate, const std::vector<float>& interleaved) {
    SF_INFO info{};
    info.samplerate = rate;
    info.channels = channels;
    info.format = format;
    SNDFILE* f = sf_open(file.c_str(), SFM_WRITE, &info);
    EXPECT_NE(f, nullptr) << file << ": " << sf_strerror(nullptr);
    if (f != nullptr) {
        sf_writef_float(f, interleaved.data(),
                        static_cast<sf_count_t>(interleaved.size()) / channels);
        sf_close(f);
    }
    return file;
}

void writeBytes(const std::filesystem::path& file, const std::string& bytes) {
    ASSERT_TRUE(writeFileAtomically(file, bytes)) << file;
}

std::string readBytes(const std::filesystem::path& file) {
    return readWholeFile(file).value_or(std::string());
}

TEST(SampleDecoder, LosslessFilesComeBackExactlyAtTheirOwnRateAndDepthWithChannelsMixedDown) {
    TempTree tree;
    const std::vector<float> tone = test::sine(441.0, 22050, 11025, 0.5f);
    // Files of 16 bits or fewer keep 16-bit frames; deeper and float files keep floats.
    const struct {
        const char* name;
        int format;
        double tolerance;
        bool sixteenBits;
    } cases[] = {{"a.wav", SF_FORMAT_WAV | SF_FORMAT_FLOAT, 0.0, false},
                 {"b.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 1.0 / 32768, true},
                 {"c.isz", SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 1.0 / 32768, true},  // any name
                 {"d.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_U8, 1.0 / 128, true},
                 {"e.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_24, 2.0 / 8388608, false},
                 {"f.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_24, 2.0 / 8388608, false},
                 {"g.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_32, 2.0 / 8388608, false}};
    for (const auto& c : cases) {
        const auto decoded =
            decodeSampleFile(writeWith(tree.root() / c.name, c.format, 1, 22050, tone));
        ASSERT_TRUE(decoded) << c.name;
        EXPECT_EQ(decoded->rate, 22050) << c.name;
        EXPECT_EQ(std::holds_alternative<std::vector<std::int16_t>>(decoded->frames), c.sixteenBits)
            << c.name;
        EXPECT_EQ(byteCount(decoded->frames), tone.size() * (c.sixteenBits ? 2 : 4)) << c.name;
        const std::vector<float> frames = test::asFloats(decoded->frames);
        ASSERT_EQ(frames.size(), tone.size()) << c.name;
        for (std::size_t i = 0; i < tone.size(); i += 7) {
            ASSERT_NEAR(frames[i], tone[i], c.tolerance) << c.name << " frame " << i;
        }
    }
    // Channels are mixed down to their mean; 16-bit frames round it to the nearest step.
    std::vector<float> stereo;
    for (int i = 0; i < 4800; ++i) {
        stereo.insert(stereo.end(), {0.25f, -0.75f, 3.0f / 32768, 0.0f});
    }
    const auto mixed = decodeSampleFile(
        writeWith(tree.root() / "st.wav", SF_FORMAT_WAV | SF_FORMAT_FLOAT, 2, 48000, stereo));
    ASSERT_TRUE(mixed);
    EXPECT_EQ(mixed->rate, 48000);
    const auto& floats = std::get<std::vector<float>>(mixed->frames);
    ASSERT_EQ(floats.size(), 9600u);
    EXPECT_FLOAT_EQ(floats[100], -0.25f);
    EXPECT_FLOAT_EQ(floats[101], 1.5f / 32768);
    const auto mixed16 = decodeSampleFile(
        writeWith(tree.root() / "st16.wav", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 2, 48000, stereo));
    ASSERT_TRUE(mixed16);
    const auto& ints = std::get<std::vector<std::int16_t>>(mixed16->frames);
    ASSERT_EQ(ints.size(), 9600u);
    // libsndfile writes 0.25 as 8192 (it scales floats by 32767) and -0.75 as -24575.
    EXPECT_EQ(ints[100], -8192);  // -8191.5, to even
    EXPECT_EQ(ints[101], 2);      // 1.5, to even
}

TEST(SampleDecoder, CompressedFormatsDecodeToTheirTone) {
    TempTree tree;
    const std::vector<float> tone = test::sine(441.0, 44100, 44100, 0.5f);
    const struct {
        const char* name;
        int format;
    } cases[] = {{"v.ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS},
                 {"m.mp3", SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III},
                 {"o.raz", SF_FORMAT_OGG | SF_FORMAT_OPUS}};
    for (const auto& c : cases) {
        const int rate = (c.format & SF_FORMAT_SUBMASK) == SF_FORMAT_OPUS ? 48000 : 44100;
        const std::vector<float> t = rate == 44100 ? tone : test::sine(441.0, rate, 48000, 0.5f);
        const auto decoded =
            decodeSampleFile(writeWith(tree.root() / c.name, c.format, 1, rate, t));
        ASSERT_TRUE(decoded) << c.name;
        EXPECT_EQ(decoded->rate, rate) << c.name;
        // Encoders pad a little at the ends; the length and the pitch stay.
        // A lossy decoder gives floats, and they are kept.
        ASSERT_TRUE(std::holds_alternative<std::vector<float>>(decoded->frames)) << c.name;
        const auto& frames = std::get<std::vector<float>>(decoded->frames);
        EXPECT_NEAR(static_cast<double>(frames.size()), static_cast<double>(t.size()),
                    0.1 * static_cast<double>(t.size()))
            << c.name;
        // Measured away from the ends, where encoders fade in and out.
        const std::span<const float> middle(frames.data() + rate / 10, frames.size() - rate / 5);
        EXPECT_NEAR(test::measureFrequency(middle, rate), 441.0, 0.5) << c.name;
        EXPECT_NEAR(test::rms(frames), 0.5 / std::sqrt(2.0), 0.05) << c.name;
    }
}

TEST(SampleDecoder, BrokenFilesGiveNoSampleAndNoCrashAndACutOneKeepsItsFrames) {
    TempTree tree;
    const auto& dir = tree.root();
    const std::filesystem::path good = test::writeMono(
        dir, "good.wav", test::sine(441.0, 44100, 4410), 44100, SoundFileFormat::Wav16);
    const std::string wav = readBytes(good);

    std::mt19937 random(20240611);
    std::string noise(65536, '\0');
    for (char& c : noise) {
        c = static_cast<char>(random() & 0xff);
    }
    writeBytes(dir / "empty.wav", "");
    writeBytes(dir / "noise.wav", noise);
    writeBytes(dir / "text.wav", "This is not a sound.\r\nJust two lines of text.\r\n");
    writeBytes(dir / "header.wav", wav.substr(0, 30));  // cut inside its header
    writeBytes(dir / "nodata.wav", wav.substr(0, 44));  // a header and no frames
    std::filesystem::create_directory(dir / "folder.wav");
    std::string lyingHeader = wav;
    lyingHeader.replace(0, 4, "RIFX");  // a damaged magic
    writeBytes(dir / "magic.wav", lyingHeader);

    MixerEngine engine(MixerEngine::Output::Offline);
    for (const char* name : {"missing.wav", "empty.wav", "noise.wav", "text.wav", "header.wav",
                             "nodata.wav", "folder.wav", "magic.wav"}) {
        EXPECT_FALSE(decodeSampleFile(dir / name)) << name;
        EXPECT_EQ(engine.loadCheckedSample(dir / name), 0u) << name;
    }
    EXPECT_EQ(engine.loadCheckedSample(""), 0u);
    EXPECT_EQ(engine.loadSample(""), 0u);
    EXPECT_NE(engine.loadCheckedSample(good), 0u);

    // A WAV cut inside its data keeps the frames that are there.
    writeBytes(dir / "cut.wav", wav.substr(0, 44 + 2 * 1000));
    const auto cut = decodeSampleFile(dir / "cut.wav");
    ASSERT_TRUE(cut);
    EXPECT_EQ(frameCount(cut->frames), 1000u);
}

TEST(SoundFileWriter, RefusesWhatItCannotWriteAndClipsSixteenBitsInsteadOfWrapping) {
    TempTree tree;
    const std::vector<float> frames(10, 0.0f);
    EXPECT_FALSE(writeSoundFile(tree.root() / "no/such/folder.wav", frames, 1, 44100));
    EXPECT_FALSE(writeSoundFile(tree.root() / "odd.wav", frames, 3, 44100));  // 10 % 3
    EXPECT_FALSE(writeSoundFile(tree.root() / "rate.wav", frames, 2, 0));
    EXPECT_TRUE(writeSoundFile(tree.root() / "ok.wav", frames, 2, 44100));

    const std::vector<float> loud = {1.5f, 1.0f, -1.5f, -1.0f};
    ASSERT_TRUE(writeSoundFile(tree.root() / "loud.wav", loud, 2, 44100));
    const auto decoded = decodeSampleFile(tree.root() / "loud.wav");
    ASSERT_TRUE(decoded);
    const std::vector<float> back = test::asFloats(decoded->frames);
    ASSERT_EQ(back.size(), 2u);
    // Clipped, both sides of each frame stand at full scale; wrapped, 1.5 would turn
    // into -0.5 and the mean into 0.25.
    EXPECT_NEAR(back[0], 1.0, 1e-4);
    EXPECT_NEAR(back[1], -1.0, 1e-4);
}

}  // namespace
}  // namespace brevane
