#include "registry.h"

#include <algorithm>
#include <charconv>
#include <sstream>

#include "finish.h"
#include "recipes.h"

namespace brevane::soundgen {

namespace {

// Number in a name like "bin/17.isz", for ordering within a bank; names without one last.
int fileNumber(const std::string& file) {
    const auto slash = file.find_last_of('/');
    const std::string base = file.substr(slash == std::string::npos ? 0 : slash + 1);
    int n = 0;
    const auto [end, ec] = std::from_chars(base.data(), base.data() + base.size(), n);
    (void)end;
    return ec == std::errc() ? n : 1 << 30;
}

std::vector<Recipe> build() {
    std::vector<Recipe> all;
    addRainRecipes(all);
    addWindRecipes(all);
    addSeaRecipes(all);
    addWaterRecipes(all);
    addFireRecipes(all);
    addThunderRecipes(all);
    addToneRecipes(all);
    addBirdRecipes(all);
    addInsectRecipes(all);
    addFarmRecipes(all);
    addLivingRecipes(all);
    // Group by bank in order of first appearance, files in numeric order within a bank.
    std::vector<std::string> banks;
    for (const auto& r : all) {
        if (std::find(banks.begin(), banks.end(), r.bank) == banks.end()) {
            banks.push_back(r.bank);
        }
    }
    std::stable_sort(all.begin(), all.end(), [&](const Recipe& a, const Recipe& b) {
        const auto ba = std::find(banks.begin(), banks.end(), a.bank);
        const auto bb = std::find(banks.begin(), banks.end(), b.bank);
        if (ba != bb) {
            return ba < bb;
        }
        return fileNumber(a.file) < fileNumber(b.file);
    });
    return all;
}

}  // namespace

const std::vector<Recipe>& recipes() {
    static const std::vector<Recipe> all = build();
    return all;
}

const Recipe* findRecipe(std::string_view file) {
    for (const auto& r : recipes()) {
        if (r.file == file) {
            return &r;
        }
    }
    return nullptr;
}

std::vector<std::int16_t> renderFinished(const Recipe& recipe) {
    Rng rng = Rng::fromName(recipe.file);
    const Edge edge =
        (recipe.kind == Kind::Loop || recipe.kind == Kind::Chime) ? Edge::Circular : Edge::Linear;
    Take take{rng, samples(recipe.seconds), edge};
    Buffer b = recipe.render(take);
    switch (recipe.kind) {
        case Kind::Loop:
            b.resize(take.n, 0.0f);
            return finishLoop(std::move(b));
        case Kind::OneShot:
            return finishOneShot(std::move(b));
        case Kind::Chime:
            b.resize(take.n, 0.0f);
            return finishChime(std::move(b));
        case Kind::Tone:
            break;
    }
    return toPcm16(b);
}

std::string soundsMarkdown() {
    std::ostringstream md;
    md << "# The stock sounds\n\n"
          "Every stock sound is made by `tools/soundgen` at build time, from the recipe in "
          "one line below.\n"
          "Loops are rings: filters, grains and control curves run round from the end to the "
          "start, so no loop has a seam.\n"
          "Loops play at -20 dBFS RMS, one-shots peak at -3 dBFS. The spectrogram sheets in "
          "`docs/sounds/` show each bank (`cmake --build <build> --target sound_sheets`).\n";
    std::string bank;
    for (const auto& r : recipes()) {
        if (r.bank != bank) {
            bank = r.bank;
            md << "\n## " << bank << "\n\n";
        }
        md << "- `" << r.file << "` \"" << r.name << "\": " << r.summary << "\n";
    }
    return md.str();
}

}  // namespace brevane::soundgen
