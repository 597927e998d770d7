#include "engine/decode_cache.h"

#include <system_error>

namespace brevane {

std::optional<FileIdentity> FileIdentity::of(const std::filesystem::path& file) {
    std::error_code ec;
    FileIdentity id;
    id.path = std::filesystem::absolute(file, ec).lexically_normal();
    if (ec) {
        return std::nullopt;
    }
    id.size = std::filesystem::file_size(id.path, ec);
    if (ec) {
        return std::nullopt;
    }
    id.modified = std::filesystem::last_write_time(id.path, ec);
    if (ec) {
        return std::nullopt;
    }
    return id;
}

DecodeCache::DecodeCache(std::size_t byteBudget, Clock::duration keepFor)
    : budget_(byteBudget), keepFor_(keepFor) {}

std::optional<DecodedSample> DecodeCache::take(const FileIdentity& file, Clock::time_point now) {
    expire(now);
    for (auto it = entries_.begin(); it != entries_.end(); ++it) {
        if (it->file == file) {
            DecodedSample decoded = std::move(it->decoded);
            bytes_ -= bytesOf(decoded);
            entries_.erase(it);
            return decoded;
        }
    }
    return std::nullopt;
}

void DecodeCache::keep(FileIdentity file, DecodedSample decoded, Clock::time_point now) {
    expire(now);
    const std::size_t size = bytesOf(decoded);
    if (size > budget_) {
        return;
    }
    while (bytes_ + size > budget_) {
        bytes_ -= bytesOf(entries_.front().decoded);
        entries_.pop_front();
    }
    bytes_ += size;
    entries_.push_back({std::move(file), std::move(decoded), now});
}

void DecodeCache::expire(Clock::time_point now) {
    while (!entries_.empty() && now - entries_.front().keptAt > keepFor_) {
        bytes_ -= bytesOf(entries_.front().decoded);
        entries_.pop_front();
    }
}

void DecodeCache::clear() {
    entries_.clear();
    bytes_ = 0;
}

}  // namespace brevane
