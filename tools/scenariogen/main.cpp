// scenariogen: writes the stock scenarios, the first run's soundscape, the stock preset
// list, the stock weather, brainwave and effects presets, the stock colour schemes and the
// colour picker's palette into a folder laid out as the install tree (config/scenarios,
// config/presets, config/evolve, config/bwaves, config/fx, config/colors, XP.pal).
//
//   scenariogen <folder>
//
// Each recipe is applied to a headless program on a scratch tree, through the same
// controls a hand moves, and saved by the console's own save, so every member is
// exactly what the program writes and reads. The first recipe is saved a second time
// as the members of the empty name, without a marker: what a first run loads. The stock
// scenarios carry no colours (members 9 and 7): loading one leaves the user's scheme.

#include <cstdio>
#include <filesystem>
#include <string>
#include "base/file_io.h"
#include "base/scratch_tree.h"
#include "core/headless_program.h"
#include "engine/recording_engine.h"
#include "scenarios/scenario_files.h"
#include "shell/colour_files.h"
#include "stock_brainwaves.h"
#include "stock_colours.h"
#include "stock_effects.h"
#include "stock_scenarios.h"
#include "stock_weather.h"

namespace fs = std::filesystem;
using namespace brevane;

namespace {

// The program on a scratch tree, headless, on virtual time, with a silent engine.
struct StockProgram {
    ScratchTree tree{"brevane-scenariogen"};
    HeadlessProgram<RecordingEngine> program{tree.root(), 1};
    Application& app = program.app;
    ScriptedDialogs& dialogs = program.dialogs;
    Application& started() { return program.started(); }
};

void applyLoop(Application& app, const stock::Loop& loop) {
    BackgroundBank& bank = loop.bank == 1 ? app.frmback : app.frmback2;
    BackgroundSoundSlot& slot = bank.slot(loop.slot);
    // The bars hold 250 - limit; the upper limit first, so the lower never pushes it.
    slot.highLimitBar.setValue(BackgroundBank::kLimitTop - loop.high);
    slot.lowLimitBar.setValue(BackgroundBank::kLimitTop - loop.low);
    slot.volume.setValue(loop.volume);
    slot.rate.setValue(loop.rate);
    slot.balance.setValue(loop.balance);
    slot.on.setValue(1);
}

void applyShot(Application& app, const stock::Shot& shot) {
    RandomBank* bank = app.randomBank(shot.bank);
    if (bank == nullptr || shot.bank > 4) {
        return;
    }
    bank->slot(shot.slot).volume.setValue(shot.volume);
    bank->slot(shot.slot).frequency.setValue(shot.frequency);
}

// The program on a scratch tree with the recipe applied, saved under `name`; its
// family is copied into `out`, under `savedAs` (the empty name drops the marker).
bool saveRecipe(const stock::Scenario& recipe, const fs::path& out, const std::string& savedAs) {
    StockProgram program;
    Application& app = program.started();
    app.frmmain.Background.setValue(recipe.background);
    app.frmmain.Random.setValue(recipe.random);
    for (const stock::Loop& l : recipe.loops) {
        applyLoop(app, l);
    }
    for (const stock::Shot& s : recipe.shots) {
        applyShot(app, s);
    }
    if (!app.frmmain.dosave(recipe.name) || !program.dialogs.shown().empty()) {
        std::fprintf(stderr, "scenariogen: \"%s\" could not be saved\n", recipe.name.c_str());
        return false;
    }
    const fs::path scratch = program.tree.root() / kScenarioFolder;
    const fs::path target = out / kScenarioFolder;
    fs::create_directories(target);
    for (const auto& entry : fs::directory_iterator(scratch)) {
        const std::string file = entry.path().filename().string();
        if (file.rfind(recipe.name, 0) != 0) {
            continue;
        }
        const std::string rest = file.substr(recipe.name.size());
        if (savedAs.empty() && rest == kScenarioMarkerExtension) {
            continue;
        }
        const auto colourMember = [&](ScenarioMember m) {
            return entry.path().filename() ==
                   scenarioMemberFile(scratch, recipe.name, m).filename();
        };
        if (colourMember(ScenarioMember::Colours) || colourMember(ScenarioMember::ColoursAgain)) {
            continue;
        }
        fs::copy_file(entry.path(), target / (savedAs + rest),
                      fs::copy_options::overwrite_existing);
    }
    // The information text is the user's to edit; the stock one is written here.
    return writeFileAtomically(scenarioInformationFile(target, savedAs), recipe.information);
}

// The Evolve panel set as the preset says, saved by its own writer.
bool saveWeatherPreset(Application& app, const stock::WeatherPreset& p, const fs::path& out) {
    Frmevolve& e = app.frmevolve;
    e.hscrollrain.setValue(p.rainOccurrence);
    e.hscrollsevrain.setValue(p.rainSeverity);
    e.Hscrollweatherspeed.setValue(p.rainSpeed);
    e.Hscrollduration.setValue(p.rainLength);
    e.hscrollmaxrain.setValue(p.rainMax);
    e.hscrollthunder.setValue(p.thunderOccurrence);
    e.hscrollsevthun.setValue(p.thunderSeverity);
    e.hscrollthunderspeed.setValue(p.thunderSpeed);
    e.hscrollthunderlength.setValue(p.thunderLength);
    e.hscrollmaxthunder.setValue(p.thunderMax);
    e.Frogs.setChecked(p.frogs);
    e.Insects.setChecked(p.insects);
    e.nightbirdscheck.setChecked(p.nightBirds);
    e.Crickets.setChecked(p.crickets);
    e.Campfire.setChecked(p.campfire);
    e.frogsfreq.setValue(p.frogsAmount);
    e.Insectsfreq.setValue(p.insectsAmount);
    e.Nightfreq.setValue(p.nightBirdsAmount);
    e.frogsvolume.setValue(p.frogsVolume);
    e.insectsvolume.setValue(p.insectsVolume);
    e.nightbirdsvolume.setValue(p.nightBirdsVolume);
    e.cricketsvolume.setValue(p.cricketsVolume);
    e.campfirevolume.setValue(p.campfireVolume);
    e.delay.setValue(p.delayMinutes);
    e.Ratetonight.setValue(p.rate);
    e.presetBox.setText(p.name);
    fs::create_directories(out / Frmevolve::kPresetFolder);
    return e.dosave(out / Frmevolve::kPresetFolder / (p.name + Frmevolve::kPresetExtension));
}

bool saveWeatherPresets(const fs::path& out) {
    bool ok = true;
    for (const stock::WeatherPreset& preset : stock::weatherPresets()) {
        // A fresh panel for each, so what one preset leaves out stays at the default.
        StockProgram program;
        ok = ok && saveWeatherPreset(program.app, preset, out);
    }
    return ok;
}

bool saveBrainwavePresets(const fs::path& out) {
    bool ok = true;
    fs::create_directories(out / Frmbwave::kPresetFolder);
    for (const stock::BrainwavePreset& p : stock::brainwavePresets()) {
        StockProgram program;
        Frmbwave& b = program.app.frmbwave;
        b.basestart.setValue(p.baseStart);
        b.beatstart.setValue(p.beatStart);
        b.Check100.setChecked(p.baseGlide);
        b.baseminutes.setText(p.baseMinutes);
        b.baseend.setValue(p.baseEnd);
        b.Check101.setChecked(p.beatGlide);
        b.beatminutes.setText(p.beatMinutes);
        b.beatend.setValue(p.beatEnd);
        ok = ok &&
             b.presets.write(out / Frmbwave::kPresetFolder / (p.name + Frmbwave::kPresetExtension));
    }
    return ok;
}

// Each curve and room set on a fresh panel's sliders and saved by its own writers.
bool saveEffectsPresets(const fs::path& out) {
    bool ok = true;
    fs::create_directories(out / Frmeffects::kEqFolder);
    fs::create_directories(out / Frmeffects::kReverbFolder);
    for (const stock::EqPreset& p : stock::eqPresets()) {
        StockProgram program;
        Frmeffects& fx = program.app.frmeffects;
        for (std::size_t i = 0; i < p.bands.size(); ++i) {
            fx.VScroll1[i].setValue(p.bands[i]);
        }
        ok = ok &&
             fx.eqPresets.write(out / Frmeffects::kEqFolder / (p.name + Frmeffects::kEqExtension));
    }
    for (const stock::ReverbPreset& p : stock::reverbPresets()) {
        StockProgram program;
        Frmeffects& fx = program.app.frmeffects;
        for (std::size_t i = 0; i < p.sliders.size(); ++i) {
            fx.hscroll101[i].setValue(p.sliders[i]);
        }
        ok = ok && fx.reverbPresets.write(out / Frmeffects::kReverbFolder /
                                          (p.name + Frmeffects::kReverbExtension));
    }
    return ok;
}

// Each scheme set on a fresh scheme panel through its swatches and palette list, as a
// hand sets them, and saved by the panel's own writer; the palette by the picker's.
bool saveColourSchemes(const fs::path& out) {
    bool ok = true;
    for (const stock::ColourSchemeRecipe& recipe : stock::colourSchemes()) {
        StockProgram program;
        Frmdemo& demo = program.app.frmDemo;
        for (int target = 1; target <= kSchemeTargets; ++target) {
            demo.setColour(target, *recipe.scheme.target(target));
        }
        demo.paletteList.setListIndex(recipe.scheme.palette);
        ok = ok && demo.scheme() == recipe.scheme &&
             demo.dosave(out / kColourFolder / (recipe.name + kSchemeExtension));
    }
    return ok && writeFileAtomically(out / kPaletteFile, writePaletteFile(stock::pickerPalette()));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: scenariogen <folder>\n");
        return 2;
    }
    const fs::path out = argv[1];
    const auto& recipes = stock::scenarios();
    bool ok = !recipes.empty() && saveRecipe(recipes.front(), out, "");
    for (const stock::Scenario& recipe : recipes) {
        ok = ok && saveRecipe(recipe, out, recipe.name);
    }
    const stock::PresetList& list = stock::presetList();
    fs::create_directories(out / kPresetFolder);
    ok = ok && writeFileAtomically(out / kPresetFolder / (list.name + kPresetListExtension),
                                   writePresetList(list.captions));
    ok = ok && saveWeatherPresets(out) && saveBrainwavePresets(out) && saveEffectsPresets(out) &&
         saveColourSchemes(out);
    if (!ok) {
        return 1;
    }
    std::printf(
        "scenariogen: %zu scenarios, the preset list \"%s\", %zu weather and %zu brainwave "
        "presets, %zu equalizer and %zu reverb presets, %zu colour schemes in %s\n",
        recipes.size(), list.name.c_str(), stock::weatherPresets().size(),
        stock::brainwavePresets().size(), stock::eqPresets().size(), stock::reverbPresets().size(),
        stock::colourSchemes().size(), out.string().c_str());
    return 0;
}
