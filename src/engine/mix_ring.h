// A ring of mixed samples between the thread that mixes and one thread that reads them.
#pragma once

#include <algorithm>
#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

namespace brevane {

// Lock-free and allocation-free after construction, for exactly one writer (the mixing
// thread) and one reader. The writer never waits: what does not fit is dropped and
// counted, so a slow reader costs the recording samples, never the sound a gap.
class MixRing {
  public:
    // `capacity` values, rounded up to a power of two.
    explicit MixRing(std::size_t capacity) {
        const std::size_t c = std::bit_ceil(std::max<std::size_t>(capacity, 1));
        mask_ = c - 1;
        values_ = std::make_unique<float[]>(c);
    }

    std::size_t capacity() const { return mask_ + 1; }

    // Writer. Copies what fits of `count` values; returns how many went in.
    std::size_t write(const float* data, std::size_t count) {
        const std::uint64_t w = write_.load(std::memory_order_relaxed);
        const std::uint64_t free = capacity() - (w - read_.load(std::memory_order_acquire));
        const std::size_t n = std::min<std::size_t>(count, static_cast<std::size_t>(free));
        copyIn(w, data, n);
        write_.store(w + n, std::memory_order_release);
        if (n < count) {
            dropped_.fetch_add(count - n, std::memory_order_relaxed);
        }
        return n;
    }

    // Reader. Copies up to `max` values out; returns how many.
    std::size_t read(float* data, std::size_t max) {
        const std::uint64_t r = read_.load(std::memory_order_relaxed);
        const std::uint64_t held = write_.load(std::memory_order_acquire) - r;
        const std::size_t n = std::min<std::size_t>(max, static_cast<std::size_t>(held));
        copyOut(r, data, n);
        read_.store(r + n, std::memory_order_release);
        return n;
    }

    // Reader. Drops everything held, as if read.
    void discard() {
        read_.store(write_.load(std::memory_order_acquire), std::memory_order_release);
    }

    // Values the writer had to drop since construction; any thread.
    std::uint64_t dropped() const { return dropped_.load(std::memory_order_relaxed); }

  private:
    void copyIn(std::uint64_t at, const float* data, std::size_t n) {
        const std::size_t start = static_cast<std::size_t>(at) & mask_;
        const std::size_t first = std::min(n, capacity() - start);
        std::memcpy(values_.get() + start, data, first * sizeof(float));
        std::memcpy(values_.get(), data + first, (n - first) * sizeof(float));
    }
    void copyOut(std::uint64_t at, float* data, std::size_t n) const {
        const std::size_t start = static_cast<std::size_t>(at) & mask_;
        const std::size_t first = std::min(n, capacity() - start);
        std::memcpy(data, values_.get() + start, first * sizeof(float));
        std::memcpy(data + first, values_.get(), (n - first) * sizeof(float));
    }

    // Separate cache lines, so the two threads do not invalidate each other's writes.
    alignas(64) std::atomic<std::uint64_t> write_{0};
    alignas(64) std::atomic<std::uint64_t> read_{0};
    alignas(64) std::atomic<std::uint64_t> dropped_{0};
    std::size_t mask_ = 0;
    std::unique_ptr<float[]> values_;
};

}  // namespace brevane
