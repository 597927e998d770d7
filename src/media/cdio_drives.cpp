#include "media/cd_drive.h"

#include <cstdio>
#include <utility>

#include <cdio/cdio.h>
#include <cdio/logging.h>
#include <cdio/paranoia/cdda.h>
#include <cdio/paranoia/paranoia.h>

namespace brevane {

namespace {

class NoDrives final : public CdDrives {
  public:
    std::vector<std::string> names() override { return {}; }
    std::unique_ptr<CdDrive> open(const std::string&) override { return nullptr; }
};

// The program writes no log: libcdio's complaints about an absent drive go nowhere.
void quiet(cdio_log_level_t, const char*) {}

CdIo_t* openCdio(const std::string& name, bool image) {
    return cdio_open(name.c_str(), image ? DRIVER_BINCUE : DRIVER_DEVICE);
}

// Sectors through cdparanoia, which reads overlapping runs and compares them, so a
// scratched disc plays with its errors mended or skipped instead of clicking.
class ParanoiaReader final : public CdSectorReader {
  public:
    explicit ParanoiaReader(CdIo_t* cdio) : cdio_(cdio) {
        drive_ = cdio_cddap_identify_cdio(cdio_, CDDA_MESSAGE_FORGETIT, nullptr);
        if (drive_ != nullptr && cdio_cddap_open(drive_) == 0) {
            paranoia_ = cdio_paranoia_init(drive_);
        }
        if (paranoia_ != nullptr) {
            cdio_paranoia_modeset(paranoia_, PARANOIA_MODE_FULL ^ PARANOIA_MODE_NEVERSKIP);
        }
    }
    ~ParanoiaReader() override {
        if (paranoia_ != nullptr) {
            cdio_paranoia_free(paranoia_);
        }
        if (drive_ != nullptr) {
            cdio_cddap_close_no_free_cdio(drive_);
        }
        cdio_destroy(cdio_);
    }
    ParanoiaReader(const ParanoiaReader&) = delete;
    ParanoiaReader& operator=(const ParanoiaReader&) = delete;

    bool ready() const { return paranoia_ != nullptr; }

    bool seek(std::int32_t sector) override {
        return cdio_paranoia_seek(paranoia_, sector, SEEK_SET) >= 0;
    }

    const std::int16_t* next() override {
        // A few retries of a bad sector, then paranoia's best guess: playback goes on.
        constexpr int kRetries = 5;
        return cdio_paranoia_read_limited(paranoia_, nullptr, kRetries);
    }

  private:
    CdIo_t* cdio_;
    cdrom_drive_t* drive_ = nullptr;
    cdrom_paranoia_t* paranoia_ = nullptr;
};

class CdioDrive final : public CdDrive {
  public:
    CdioDrive(std::string name, bool image, CdIo_t* cdio)
        : name_(std::move(name)), image_(image), cdio_(cdio) {}
    ~CdioDrive() override {
        if (cdio_ != nullptr) {
            cdio_destroy(cdio_);
        }
    }
    CdioDrive(const CdioDrive&) = delete;
    CdioDrive& operator=(const CdioDrive&) = delete;

    bool mediaPresent() override { return !audioTracks().empty(); }

    std::vector<CdTrack> audioTracks() override {
        refresh();
        std::vector<CdTrack> tracks;
        if (cdio_ == nullptr || ejected_) {
            return tracks;
        }
        const track_t first = cdio_get_first_track_num(cdio_);
        const track_t count = cdio_get_num_tracks(cdio_);
        if (first == CDIO_INVALID_TRACK || count == CDIO_INVALID_TRACK) {
            return tracks;
        }
        for (int t = first; t < first + count; ++t) {
            const auto track = static_cast<track_t>(t);
            if (cdio_get_track_format(cdio_, track) != TRACK_FORMAT_AUDIO) {
                continue;
            }
            const lsn_t from = cdio_get_track_lsn(cdio_, track);
            const lsn_t last = cdio_get_track_last_lsn(cdio_, track);
            if (from != CDIO_INVALID_LSN && last != CDIO_INVALID_LSN && last >= from) {
                tracks.push_back(CdTrack{t, from, last - from + 1});
            }
        }
        return tracks;
    }

    void eject() override {
        if (image_) {
            ejected_ = true;
            return;
        }
        // The call frees the handle; the next question opens the drive afresh.
        if (cdio_ == nullptr || cdio_eject_media(&cdio_) != DRIVER_OP_SUCCESS) {
            cdio_eject_media_drive(name_.c_str());
        }
        if (cdio_ != nullptr) {
            cdio_destroy(cdio_);
            cdio_ = nullptr;
        }
    }

    std::unique_ptr<CdSectorReader> openReader() override {
        if (!mediaPresent()) {
            return nullptr;
        }
        CdIo_t* own = openCdio(name_, image_);
        if (own == nullptr) {
            return nullptr;
        }
        auto reader = std::make_unique<ParanoiaReader>(own);
        if (!reader->ready()) {
            return nullptr;
        }
        return reader;
    }

  private:
    // A drive's table of contents is read once per disc: a new disc needs a new handle.
    void refresh() {
        if (image_) {
            return;
        }
        if (cdio_ != nullptr && cdio_get_media_changed(cdio_) == 1) {
            cdio_destroy(cdio_);
            cdio_ = nullptr;
        }
        if (cdio_ == nullptr) {
            cdio_ = openCdio(name_, false);
        }
    }

    std::string name_;
    bool image_;
    bool ejected_ = false;
    CdIo_t* cdio_;
};

}  // namespace

CdDrives& noCdDrives() {
    static NoDrives none;
    return none;
}

CdioDrives::CdioDrives() {
    cdio_log_set_handler(quiet);
}

CdioDrives::CdioDrives(std::vector<std::string> images)
    : images_(std::move(images)), useImages_(true) {
    cdio_log_set_handler(quiet);
}

std::vector<std::string> CdioDrives::names() {
    if (useImages_) {
        return images_;
    }
    std::vector<std::string> names;
    char** devices = cdio_get_devices(DRIVER_DEVICE);
    for (char** d = devices; d != nullptr && *d != nullptr; ++d) {
        names.emplace_back(*d);
    }
    cdio_free_device_list(devices);
    return names;
}

std::unique_ptr<CdDrive> CdioDrives::open(const std::string& name) {
    CdIo_t* cdio = openCdio(name, useImages_);
    // A drive with no disc still opens; an image that does not read is no drive at all.
    if (cdio == nullptr && useImages_) {
        return nullptr;
    }
    return std::make_unique<CdioDrive>(name, useImages_, cdio);
}

}  // namespace brevane
