#pragma once

// Keeps subnormal floats out of the recursive filters and delay networks: while an object of
// this type lives, the calling thread's floating-point unit flushes subnormal results and
// operands to zero. A decaying tail then ends in exact zeros instead of running on numbers
// that cost a hundred times more per operation on common processors.
//
// Thread: affects only the thread that creates it; create and destroy on the same thread.
// Nests freely: each guard restores the state it found.

#include <cstdint>

#if defined(__SSE__) || defined(__x86_64__)
#include <xmmintrin.h>
#endif

namespace brevane {

class ScopedFlushDenormals {
  public:
#if defined(__SSE__) || defined(__x86_64__)
    ScopedFlushDenormals() : saved_(_mm_getcsr()) {
        // Flush-to-zero (bit 15) and denormals-are-zero (bit 6).
        _mm_setcsr(saved_ | 0x8040u);
    }
    ~ScopedFlushDenormals() {
        _mm_setcsr(saved_);
    }

  private:
    unsigned int saved_;
#elif defined(__aarch64__)
    ScopedFlushDenormals() {
        std::uint64_t fpcr;
        __asm__ __volatile__("mrs %0, fpcr" : "=r"(fpcr));
        saved_ = fpcr;
        fpcr |= (std::uint64_t{1} << 24);  // FZ
        __asm__ __volatile__("msr fpcr, %0" : : "r"(fpcr));
    }
    ~ScopedFlushDenormals() {
        __asm__ __volatile__("msr fpcr, %0" : : "r"(saved_));
    }

  private:
    std::uint64_t saved_;
#else
    // Other processors: the units' own flushing of their recursive state still applies.
    ScopedFlushDenormals() = default;
#endif

  public:
    ScopedFlushDenormals(const ScopedFlushDenormals&) = delete;
    ScopedFlushDenormals& operator=(const ScopedFlushDenormals&) = delete;
};

}  // namespace brevane
