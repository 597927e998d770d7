// Writing rendered audio to sound files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>

namespace brevane {

enum class SoundFileFormat {
    Wav16,      // WAV, 16-bit PCM; values beyond full scale are clipped
    WavFloat,   // WAV, 32-bit float
    Flac16,     // FLAC, 16-bit
    OggVorbis,  // Ogg Vorbis at a high quality; its stream serial number is random
};

// Writes `frames`, interleaved with `channels` values per frame, at `rate` Hz. False on
// any failure (bad arguments, a folder that does not exist, a full disk); the file may
// then be partly written. Thread-safe.
bool writeSoundFile(const std::filesystem::path& file, std::span<const float> frames, int channels,
                    int rate, SoundFileFormat format = SoundFileFormat::Wav16);

// A sound file written piece by piece, for recordings too long to hold in memory. It is
// written under a temporary name beside `file` and takes its own name only at finish(),
// so a cancelled, failed or crashed recording never leaves half a file under the name
// the user chose, and never destroys a file already there.
//
// Thread: one thread at a time; sizeOnDisk() from any thread.
class SoundFileStream {
  public:
    SoundFileStream(const std::filesystem::path& file, int channels, int rate,
                    SoundFileFormat format);
    // Unfinished, the temporary file is removed.
    ~SoundFileStream();
    SoundFileStream(const SoundFileStream&) = delete;
    SoundFileStream& operator=(const SoundFileStream&) = delete;

    // False when the file could not be made, or a write has failed.
    bool ok() const { return file_ != nullptr && !failed_; }
    // Appends `frames` interleaved frames. False on a failure, which is then kept.
    bool write(const float* interleaved, std::size_t frames);
    // Closes the file and gives it its name. False when anything failed; nothing is
    // then left behind.
    bool finish();
    // Closes and removes the file.
    void abandon();
    // Bytes written so far (encoders hold back a little until the next block).
    std::uintmax_t sizeOnDisk() const;
    std::uint64_t framesWritten() const { return frames_; }

  private:
    std::filesystem::path target_;
    std::filesystem::path temporary_;
    void* file_ = nullptr;  // SNDFILE*
    bool failed_ = false;
    std::uint64_t frames_ = 0;
};

}  // namespace brevane
