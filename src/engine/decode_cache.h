#pragma once
// Decoded sound files kept for a few seconds after their sample is freed.
//
// A bank load stops every loop and starts the wanted ones again at once, and a restored
// session does that for every bank: without this, each loop's file would be decoded
// twice on the way. A kept decode is handed out only for the same file unchanged on
// disk (same size and modification time), and only once: taking it removes it.
//
// Interface thread only, like the engine calls that use it.

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <list>
#include <optional>

#include "engine/sample_decoder.h"

namespace brevane {

// A file as it is on disk now.
struct FileIdentity {
    std::filesystem::path path;  // absolute
    std::uintmax_t size = 0;
    std::filesystem::file_time_type modified;

    bool operator==(const FileIdentity&) const = default;

    // Nothing for a file that cannot be examined.
    static std::optional<FileIdentity> of(const std::filesystem::path& file);
};

class DecodeCache {
  public:
    using Clock = std::chrono::steady_clock;

    // At most `byteBudget` bytes of frames, as they are kept (two bytes a frame for 16-bit
    // frames, four for floats), none older than `keepFor`.
    DecodeCache(std::size_t byteBudget, Clock::duration keepFor);

    // The kept decode of exactly this file, taken out of the cache, or nothing.
    std::optional<DecodedSample> take(const FileIdentity& file, Clock::time_point now);
    // Keeps a decode; the oldest go first when the budget is passed. A decode larger
    // than the whole budget is not kept.
    void keep(FileIdentity file, DecodedSample decoded, Clock::time_point now);
    // Drops what has been kept too long.
    void expire(Clock::time_point now);
    void clear();

    std::size_t bytes() const { return bytes_; }
    std::size_t size() const { return entries_.size(); }

  private:
    struct Entry {
        FileIdentity file;
        DecodedSample decoded;
        Clock::time_point keptAt;
    };
    static std::size_t bytesOf(const DecodedSample& d) { return byteCount(d.frames); }

    std::size_t budget_;
    Clock::duration keepFor_;
    std::size_t bytes_ = 0;
    std::list<Entry> entries_;  // oldest first
};

}  // namespace brevane
