#include "media/cd_player.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

#include "base/dialogs.h"
#include "core/application.h"
#include "engine/music_stream.h"

namespace brevane {

namespace {

constexpr double kFramesPerSecond = double{kCdFramesPerSector} * kCdSectorsPerSecond;

// The disc's sectors as the bus's frames. Its reader blocks on the drive: it is only
// read on the bus's decoder thread.
class CdDiscSource final : public FrameSource {
  public:
    CdDiscSource(std::unique_ptr<CdSectorReader> reader, std::int32_t first, std::int32_t end)
        : reader_(std::move(reader)), first_(first), end_(std::max(first, end)), at_(first) {}

    double duration() const override {
        return static_cast<double>(end_ - first_) / kCdSectorsPerSecond;
    }

    int read(float* out, int frames) override {
        constexpr float kScale = 1.0f / 32768.0f;
        int written = 0;
        while (written < frames) {
            if (sector_ == nullptr || used_ >= kCdFramesPerSector) {
                if (!moved_) {
                    moved_ = true;
                    if (!reader_->seek(at_)) {
                        at_ = end_;
                    }
                }
                // A sector the drive cannot give ends the music there, as its end would.
                sector_ = at_ < end_ ? reader_->next() : nullptr;
                if (sector_ == nullptr) {
                    at_ = end_;
                    break;
                }
                ++at_;
                used_ = skip_;
                skip_ = 0;
                continue;
            }
            const int count = std::min(frames - written, kCdFramesPerSector - used_);
            for (int i = 0; i < 2 * count; ++i) {
                out[2 * written + i] = static_cast<float>(sector_[2 * used_ + i]) * kScale;
            }
            used_ += count;
            written += count;
        }
        return written;
    }

    bool seek(double seconds) override {
        const auto frame = std::max<std::int64_t>(0, std::llround(seconds * kFramesPerSecond));
        at_ = static_cast<std::int32_t>(
            std::min<std::int64_t>(end_, first_ + frame / kCdFramesPerSector));
        skip_ = static_cast<int>(frame % kCdFramesPerSector);
        sector_ = nullptr;
        moved_ = false;
        return true;
    }

  private:
    std::unique_ptr<CdSectorReader> reader_;
    std::int32_t first_;
    std::int32_t end_;
    std::int32_t at_;  // the next sector to read
    const std::int16_t* sector_ = nullptr;
    int used_ = 0;        // frames of sector_ already given
    int skip_ = 0;        // frames to pass over in the next sector, after a seek
    bool moved_ = false;  // the reader stands at at_
};

}  // namespace

int cdLineVolume(int percent) {
    if (percent <= 0) {
        return -10000;
    }
    const double db = 20.0 * std::log10(std::min(percent, 100) / 100.0);
    return static_cast<int>(std::lround(std::max(db * 100.0, -10000.0)));
}

std::string cdPositionText(int track, int minutes, int seconds) {
    char text[32];
    std::snprintf(text, sizeof text, "[%02d] %02d:%02d", track, minutes, seconds);
    return text;
}

std::unique_ptr<FrameSource> makeCdDiscSource(std::unique_ptr<CdSectorReader> reader,
                                              std::int32_t firstSector, std::int32_t endSector) {
    return std::make_unique<CdDiscSource>(std::move(reader), firstSector, endSector);
}

// ---- the deck ----

CdDeck::CdDeck(std::function<MediaPlayer*()> bus) : bus_(std::move(bus)) {}

MediaPlayer* CdDeck::held() const {
    MediaPlayer* b = bus_ ? bus_() : nullptr;
    return loaded_ && b != nullptr && b->sourceSerial() == serial_ ? b : nullptr;
}

bool CdDeck::open(CdDrives& drives, const std::string& name) {
    close();
    drive_ = drives.open(name);
    readTracks();
    return drive_ != nullptr;
}

void CdDeck::close() {
    if (MediaPlayer* b = held()) {
        b->clear();
    }
    loaded_ = false;
    drive_.reset();
    tracks_.clear();
    cued_ = 0.0;
}

void CdDeck::readTracks() {
    tracks_ = drive_ ? drive_->audioTracks() : std::vector<CdTrack>{};
}

bool CdDeck::mediaPresent() {
    return drive_ != nullptr && drive_->mediaPresent();
}

double CdDeck::placeSeconds() const {
    if (const MediaPlayer* b = held()) {
        return std::max(0.0, b->position());
    }
    return cued_;
}

void CdDeck::setPlace(double seconds) {
    cued_ = seconds;
    if (MediaPlayer* b = held()) {
        b->setPosition(seconds);
    }
}

MediaPlayer* CdDeck::load() {
    MediaPlayer* b = bus_ ? bus_() : nullptr;
    if (b == nullptr || drive_ == nullptr || tracks_.empty()) {
        return nullptr;
    }
    std::unique_ptr<CdSectorReader> reader = drive_->openReader();
    if (!reader) {
        return nullptr;
    }
    const CdTrack& last = tracks_.back();
    b->setSource(makeCdDiscSource(std::move(reader), tracks_.front().firstSector,
                                  last.firstSector + last.sectorCount));
    serial_ = b->sourceSerial();
    loaded_ = true;
    if (cued_ > 0.0) {
        b->setPosition(cued_);
    }
    return b;
}

bool CdDeck::play() {
    MediaPlayer* b = held();
    if (b == nullptr) {
        // Another disc may be in the drive since the deck last played.
        readTracks();
        b = load();
    }
    if (b == nullptr) {
        return false;
    }
    // Play at the end of the disc starts it again.
    if (b->duration() > 0.0 && b->position() >= b->duration()) {
        b->setPosition(0.0);
    }
    b->setVolume(cdLineVolume(level_));
    b->play();
    return true;
}

void CdDeck::pause() {
    if (MediaPlayer* b = held()) {
        cued_ = std::max(0.0, b->position());
        b->pause();
    }
}

void CdDeck::stop() {
    if (MediaPlayer* b = held()) {
        b->pause();
    }
    setPlace(0.0);
}

void CdDeck::eject() {
    if (MediaPlayer* b = held()) {
        b->clear();
    }
    loaded_ = false;
    cued_ = 0.0;
    tracks_.clear();
    if (drive_) {
        drive_->eject();
    }
}

bool CdDeck::playing() const {
    const MediaPlayer* b = held();
    return b != nullptr && b->playing();
}

int CdDeck::trackCount() {
    if (held() == nullptr) {
        readTracks();
    }
    return static_cast<int>(tracks_.size());
}

std::optional<CdDeck::Position> CdDeck::position() {
    if (tracks_.empty()) {
        return std::nullopt;
    }
    const auto sector = static_cast<std::int32_t>(tracks_.front().firstSector +
                                                  std::floor(placeSeconds() * kCdSectorsPerSecond));
    // The track holding the sector; past the last, the last.
    auto track = std::find_if(tracks_.begin(), tracks_.end(), [&](const CdTrack& t) {
        return sector < t.firstSector + t.sectorCount;
    });
    if (track == tracks_.end()) {
        track = std::prev(tracks_.end());
    }
    const std::int32_t into = std::clamp(sector - track->firstSector, 0, track->sectorCount);
    const int seconds = into / kCdSectorsPerSecond;
    return Position{track->number, seconds / 60, seconds % 60};
}

int CdDeck::currentTrack() {
    const auto at = position();
    return at ? at->track : 0;
}

void CdDeck::seekTo(int number) {
    const auto track = std::find_if(tracks_.begin(), tracks_.end(),
                                    [&](const CdTrack& t) { return t.number == number; });
    if (track != tracks_.end()) {
        setPlace(static_cast<double>(track->firstSector - tracks_.front().firstSector) /
                 kCdSectorsPerSecond);
    }
}

void CdDeck::playFrom(int number) {
    seekTo(number);
    play();
}

void CdDeck::setLevel(int percent) {
    level_ = std::clamp(percent, 0, 100);
    if (MediaPlayer* b = held()) {
        b->setVolume(cdLineVolume(level_));
    }
}

// ---- frmcd ----

Frmcd::Frmcd(Application& app, CdDrives& drives)
    : Timer1(app.loop, kClockMs),
      deck([&app] { return app.engine.mediaPlayer(); }),
      app_(app),
      drives_(drives) {
    window.setCaption("CD Player");
    cmdplay.setCaption("Play");
    cmdplay.onClick = [this] { play(); };
    cmdpause.setCaption("Pause");
    cmdpause.onClick = [this] { pause(); };
    cmdstop.setCaption("Stop");
    cmdstop.onClick = [this] { stop(); };
    cmdeject.setCaption("Eject");
    cmdeject.onClick = [this] { eject(); };
    cmdnext.setCaption("Next");
    cmdnext.onClick = [this] { next(); };
    cmdprevious.setCaption("Previous");
    cmdprevious.onClick = [this] { previous(); };
    closeButton.setCaption("Close");
    closeButton.onClick = [this] {
        panelOpen = false;
        window.hide();
    };
    Combo1.setCaption("Drive");
    Combo1.onClick = [this] {
        if (Combo1.listIndex() >= 0) {
            openDrive(Combo1.item(Combo1.listIndex()));
        }
    };
    hscroll1.setCaption("Volume");
    hscroll1.onChange = [this] {
        deck.setLevel(hscroll1.value());
        app_.frmmain.CD.setValue(hscroll1.value());
        LCD1.setLine(3, kVolumePrefix + std::to_string(hscroll1.value()) + " %");
    };
    Timer1.onTick = [this] { tick(); };
}

void Frmcd::load() {
    position = readWindowPosition(app_.settings, kSettingsSection);
    for (const std::string& name : drives_.names()) {
        Combo1.addItem(name);
    }
    if (Combo1.count() > 0) {
        Combo1.setListIndex(0);
    }
}

void Frmcd::unload() {
    if (position) {
        writeWindowPosition(app_.settings, kSettingsSection, *position);
    }
    Timer1.setEnabled(false);
    deck.close();
}

void Frmcd::openDrive(const std::string& name) {
    deck.open(drives_, name);
    LCD1.setLine(1, "");
    LCD1.setLine(2, kDrivePrefix + name);
}

void Frmcd::open() {
    if (Combo1.count() == 0) {
        app_.dialogs.message(MessageKind::Information, kNoDriveText, kNoDriveTitle);
        return;
    }
    // The line's present level, 100 % at its top, with its text and the console's copy.
    const int before = hscroll1.value();
    hscroll1.setValue(deck.level());
    if (hscroll1.value() == before) {
        hscroll1.fireChange();
    }
    panelOpen = true;
    window.show();
    Timer1.setEnabled(true);
    tick();
}

void Frmcd::play() {
    if (!deck.play()) {
        LCD1.setLine(1, kNoCdText);
        return;
    }
    Timer1.setEnabled(true);
}

void Frmcd::pause() {
    deck.pause();
}

void Frmcd::stop() {
    deck.stop();
    LCD1.setLine(1, kStoppedText);
}

void Frmcd::eject() {
    deck.eject();
    LCD1.setLine(1, kEjectedText);
}

void Frmcd::next() {
    step(true);
}

void Frmcd::previous() {
    step(false);
}

void Frmcd::step(bool forward) {
    const int count = deck.trackCount();
    if (count == 0) {
        return;
    }
    // Past the last track is the first, before the first the last.
    const int current = deck.currentTrack();
    const int n =
        forward ? (current >= count ? 1 : current + 1) : (current <= 1 ? count : current - 1);
    if (deck.playing()) {
        deck.playFrom(n);
    } else {
        deck.seekTo(n);
    }
}

void Frmcd::tick() {
    // Without a disc the display keeps what it shows.
    if (!deck.mediaPresent()) {
        return;
    }
    if (const auto at = deck.position()) {
        LCD1.setLine(1, cdPositionText(at->track, at->minutes, at->seconds));
    }
    // A player left hidden and silent wakes nothing.
    if (!window.visible() && !deck.playing()) {
        Timer1.setEnabled(false);
    }
}

void Frmcd::docolors() {
    colours.paint(app_.scheme);
    paintDisplay(LCD1, app_.scheme);
}

}  // namespace brevane
