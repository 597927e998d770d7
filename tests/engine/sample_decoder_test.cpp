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

TEST(SampleDecoder, LosslessFilesComeBackExactlyAtTheirOwnRateWithChannelsMixedDown) {
    TempTree tree;
    const std::vector<float> tone = test::sine(441.0, 22050, 11025, 0.5f);
    const struct {
        const char* name;
        SoundFileFormat format;
        double tolerance;
    } cases[] = {{"a.wav", SoundFileFormat::WavFloat, 0.0},
                 {"b.wav", SoundFileFormat::Wav16, 1.0 / 32768},
                 {"c.isz", SoundFileFormat::Flac16, 1.0 / 32768}};  // the name says nothing
    for (const auto& c : cases) {
        const auto decoded =
            decodeSampleFile(test::writeMono(tree.root(), c.name, tone, 22050, c.format));
        ASSERT_TRUE(decoded) << c.name;
        EXPECT_EQ(decoded->rate, 22050) << c.name;
        ASSERT_EQ(decoded->frames.size(), tone.size()) << c.name;
        for (std::size_t i = 0; i < tone.size(); i += 7) {
            ASSERT_NEAR(decoded->frames[i], tone[i], c.tolerance) << c.name << " frame " << i;
        }
    }
    // Channels are mixed down to their mean.
    std::vector<float> stereo;
    for (int i = 0; i < 4800; ++i) {
        stereo.insert(stereo.end(), {0.25f, -0.75f});
    }
    const auto mixed = decodeSampleFile(
        writeWith(tree.root() / "st.wav", SF_FORMAT_WAV | SF_FORMAT_FLOAT, 2, 48000, stereo));
    ASSERT_TRUE(mixed);
    EXPECT_EQ(mixed->rate, 48000);
    ASSERT_EQ(mixed->frames.size(), 4800u);
    EXPECT_FLOAT_EQ(mixed->frames[100], -0.25f);
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
        EXPECT_NEAR(static_cast<double>(decoded->frames.size()), static_cast<double>(t.size()),
                    0.1 * static_cast<double>(t.size()))
            << c.name;
        // Measured away from the ends, where encoders fade in and out.
        const std::span<const float> middle(decoded->frames.data() + rate / 10,
                                            decoded->frames.size() - rate / 5);
        EXPECT_NEAR(test::measureFrequency(middle, rate), 441.0, 0.5) << c.name;
        EXPECT_NEAR(test::rms(decoded->frames), 0.5 / std::sqrt(2.0), 0.05) << c.name;
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
        EXPECT_EQ(engine.loadSample(dir / name), 0u) << name;
    }
    EXPECT_EQ(engine.loadSample(""), 0u);
    EXPECT_NE(engine.loadSample(good), 0u);

    // A WAV cut inside its data keeps the frames that are there.
    writeBytes(dir / "cut.wav", wav.substr(0, 44 + 2 * 1000));
    const auto cut = decodeSampleFile(dir / "cut.wav");
    ASSERT_TRUE(cut);
    EXPECT_EQ(cut->frames.size(), 1000u);
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
    ASSERT_EQ(decoded->frames.size(), 2u);
    // Clipped, both sides of each frame stand at full scale; wrapped, 1.5 would turn
    // into -0.5 and the mean into 0.25.
    EXPECT_NEAR(decoded->frames[0], 1.0, 1e-4);
    EXPECT_NEAR(decoded->frames[1], -1.0, 1e-4);
}

}  // namespace
}  // namespace brevane
