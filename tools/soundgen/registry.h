// Every stock sound the generator makes, keyed by its file in the install tree.
//
// A recipe renders float samples; the registry's finishing step (by kind) gives them their
// loudness, start and end and turns them into the 16-bit samples that are written. The
// same code serves the generator, the quality tests and the spectrogram sheets.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "dsp.h"

namespace brevane::soundgen {

enum class Kind {
    Loop,     // a ring of exactly `seconds`, seamless, at the loop loudness
    OneShot,  // rendered over `seconds`, cut to its onset and faded to silence
    Tone,     // samples written exactly as rendered
    Chime,    // a ring that keeps its start, peak-normalised
};

// What a recipe is given: its own random stream, the length to render and the edge rule
// (Circular for loops and chimes, Linear otherwise).
struct Take {
    Rng& rng;
    std::size_t n;
    Edge edge;
};

struct Recipe {
    std::string file;  // path inside the install tree, "/" separated: "bin/1.isz"
    std::string name;  // the name the program shows: "Hail on tin roof"
    std::string bank;  // the group it is shown with on a spectrogram sheet
    Kind kind = Kind::Loop;
    double seconds = 0.0;
    std::string summary;  // one line on how it is made, for docs/SOUNDS.md
    std::function<Buffer(Take&)> render;
};

// All recipes, in the order of the sheets and of docs/SOUNDS.md. Built once, thread-safe
// to read.
const std::vector<Recipe>& recipes();
// Nothing when no recipe writes that file.
const Recipe* findRecipe(std::string_view file);

// Renders and finishes one recipe. Deterministic: the random stream is seeded from the
// file name. Safe to call from several threads at once for different recipes.
std::vector<std::int16_t> renderFinished(const Recipe& recipe);

// docs/SOUNDS.md: one line per sound, grouped by bank.
std::string soundsMarkdown();

}  // namespace brevane::soundgen
