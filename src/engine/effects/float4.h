#pragma once

// Four floats worked on together, for the effects' inner loops. A GCC and Clang vector
// extension: SSE on x86-64, NEON on ARM, plain element loops elsewhere. Arithmetic operators
// work lane by lane; a scalar operand applies to every lane.

namespace brevane {

typedef float Float4 __attribute__((vector_size(16)));

inline float sumOf(Float4 v) {
    return (v[0] + v[1]) + (v[2] + v[3]);
}

// [a, b, c, d] -> [c, d, a, b]
inline Float4 swapHalves(Float4 v) {
    return Float4{v[2], v[3], v[0], v[1]};
}

// [a, b, c, d] -> [b, a, d, c]
inline Float4 swapNeighbours(Float4 v) {
    return Float4{v[1], v[0], v[3], v[2]};
}

// Lanes whose magnitude is below `tiny` become exact zeros.
inline Float4 flushBelow(Float4 v, float tiny) {
    return (v >= tiny) | (v <= -tiny) ? v : Float4{};
}

inline bool allBelow(Float4 v, float tiny) {
    return v[0] < tiny && v[0] > -tiny && v[1] < tiny && v[1] > -tiny && v[2] < tiny &&
           v[2] > -tiny && v[3] < tiny && v[3] > -tiny;
}

}  // namespace brevane
