// A bounded queue between exactly one producer thread and one consumer thread.
#pragma once

#include <algorithm>
#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <type_traits>

namespace brevane {

// Lock-free and allocation-free after construction. `push` is called by one thread,
// `pop` by one other thread (which may change over time, provided each hand-over between
// threads is itself synchronised, e.g. by a thread join).
template <typename T>
class SpscQueue {
    static_assert(std::is_trivially_copyable_v<T>, "items are copied across threads");

  public:
    // `capacity` is rounded up to a power of two.
    explicit SpscQueue(std::size_t capacity) {
        const std::size_t c = std::bit_ceil(std::max<std::size_t>(capacity, 1));
        mask_ = c - 1;
        items_ = std::make_unique<T[]>(c);
    }

    std::size_t capacity() const { return mask_ + 1; }

    // Producer. False when full; the item is then not queued.
    bool push(const T& item) {
        const std::uint64_t w = write_.load(std::memory_order_relaxed);
        if (w - read_.load(std::memory_order_acquire) > mask_) {
            return false;
        }
        items_[w & mask_] = item;
        write_.store(w + 1, std::memory_order_release);
        return true;
    }

    // Consumer. False when empty.
    bool pop(T& item) {
        const std::uint64_t r = read_.load(std::memory_order_relaxed);
        if (r == write_.load(std::memory_order_acquire)) {
            return false;
        }
        item = items_[r & mask_];
        read_.store(r + 1, std::memory_order_release);
        return true;
    }

    // Either side: true when nothing is queued at the moment of the call.
    bool empty() const {
        return read_.load(std::memory_order_acquire) == write_.load(std::memory_order_acquire);
    }

  private:
    // Separate cache lines, so the two threads do not invalidate each other's writes.
    alignas(64) std::atomic<std::uint64_t> write_{0};
    alignas(64) std::atomic<std::uint64_t> read_{0};
    alignas(64) std::size_t mask_ = 0;
    std::unique_ptr<T[]> items_;
};

}  // namespace brevane
