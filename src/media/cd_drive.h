#pragma once
// The CD drive layer: the machine's drives (or disc images standing in for them), the
// audio tracks of the disc in one, its door, and a reader of its audio sectors. The
// CD player speaks only to these interfaces; CdioDrives serves them through libcdio,
// which reads a real drive and a `.cue` image alike.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace brevane {

// CD audio: 75 sectors a second, each 588 stereo frames of 16-bit samples at 44.1 kHz.
inline constexpr int kCdSectorsPerSecond = 75;
inline constexpr int kCdFramesPerSector = 588;

struct CdTrack {
    int number = 0;
    std::int32_t firstSector = 0;  // logical sector number on the disc
    std::int32_t sectorCount = 0;
};

// Reads audio sectors in order from a place on the disc.
//
// Thread: one thread at a time; the CD player hands it to the music bus, whose decoder
// thread then alone reads (and destroys) it. Reads may block on the drive.
class CdSectorReader {
  public:
    virtual ~CdSectorReader() = default;
    // The next read starts at `sector`; false when the disc has no such sector.
    virtual bool seek(std::int32_t sector) = 0;
    // The next sector: 2 x kCdFramesPerSector interleaved samples, left first, valid
    // until the next call; null when the drive cannot read it.
    virtual const std::int16_t* next() = 0;
};

// One drive and the disc in it.
//
// Thread: the interface thread. A reader it opens is independent of it.
class CdDrive {
  public:
    virtual ~CdDrive() = default;
    // Whether a disc is in the drive, asked afresh: the disc may have changed.
    virtual bool mediaPresent() = 0;
    // The audio tracks of the disc, in order; empty without a disc.
    virtual std::vector<CdTrack> audioTracks() = 0;
    // Opens the door; the disc counts as gone.
    virtual void eject() = 0;
    // A reader of the disc of its own, for the music bus; null without a disc.
    virtual std::unique_ptr<CdSectorReader> openReader() = 0;
};

// The drives of the machine.
//
// Thread: the interface thread.
class CdDrives {
  public:
    virtual ~CdDrives() = default;
    // The drives' names (their device paths), in the system's order.
    virtual std::vector<std::string> names() = 0;
    // The drive `name`; null when it cannot be opened.
    virtual std::unique_ptr<CdDrive> open(const std::string& name) = 0;
};

// A machine without a CD drive.
CdDrives& noCdDrives();

// The drives through libcdio, read with cdparanoia's verification: the machine's own
// drives, or, when given the paths of `.cue` images, those images, each a drive with its
// disc in it (ejecting an image only takes the disc out of this program's view).
class CdioDrives final : public CdDrives {
  public:
    CdioDrives();
    explicit CdioDrives(std::vector<std::string> images);

    std::vector<std::string> names() override;
    std::unique_ptr<CdDrive> open(const std::string& name) override;

  private:
    std::vector<std::string> images_;
    bool useImages_ = false;
};

}  // namespace brevane
