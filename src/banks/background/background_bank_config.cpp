#include "banks/background/background_bank_config.h"

namespace brevane {

namespace {

using Names = std::array<std::string, kBackgroundSlots>;

const Names kBankOneNames{
    "Hail on tin roof", "Rain on car roof", "Light rain",    "Heavy rain", "Rain on leaves",
    "Rain on pavement", "Winter wind",      "Light breeze",  "Gusty wind", "Wind in leaves",
    "Wind in foliage",  "Wind in trees",    "Shingle ocean", "Rough sea",  "Gentle ocean",
    "Harbor",           "Lake shore"};

const Names kBankTwoNames{"Fountain",       "Stream",         "River",          "Pine forest",
                          "Woodland birds", "Country meadow", "Country lake",   "African jungle",
                          "Indian jungle",  "Rainforest",     "Night crickets", "Crickets",
                          "Indian cicada",  "African cicada", "Western cicada", "Campfire",
                          "Crackling fire"};

std::array<int, kBackgroundFillerFields> fillerOf(int slot) {
    std::array<int, kBackgroundFillerFields> filler{};
    filler.fill(slot);
    return filler;
}

}  // namespace

BackgroundBankConfig backgroundBankConfig(BackgroundBankId id) {
    BackgroundBankConfig c;
    c.id = id;
    c.bankFilter = "Background Config Files (*.bcf)|*.bcf";
    switch (id) {
        case BackgroundBankId::One:
            c.caption = "Background 1";
            c.names = kBankOneNames;
            c.fileBase = 0;
            c.weatherOrderSlots = {3, 4, 5};
            c.balanceUpStep = 10;
            c.sessionFile = "back.ini";
            c.bankFolder = "config/main/background bank one";
            c.loadFailedText = "There was a problem loading the background bank one settings.";
            // Bank one fills its filler with slot 17's check box.
            c.fillerCheckSlots = fillerOf(17);
            break;
        case BackgroundBankId::Two:
            c.caption = "Background 2";
            c.names = kBankTwoNames;
            c.fileBase = 50;
            c.balanceUpStep = 15;
            c.sessionFile = "back2.ini";
            c.bankFolder = "config/main/background bank two";
            c.loadFailedText = "There was a problem loading the background bank two settings.";
            // Bank two fills it with another check box: slot 16's.
            c.fillerCheckSlots = fillerOf(16);
            break;
        case BackgroundBankId::Custom:
            c.caption = "Custom Background";
            c.names.fill(kNotSetCaption);
            // The custom bank keeps bank one's unequal balance steps.
            c.balanceUpStep = 10;
            c.sessionFile = "backc.ini";
            c.bankFolder = "config/main/custom background";
            c.bankFilter = "Custom Background Files (*.cbf)|*.cbf";
            c.loadFailedText =
                "One or more custom backgrounds could not be located. The most likely reason "
                "for this is that they have be moved or deleted. To prevent this message "
                "showing in the future, please reselect the sounds on the custom backgrounds "
                "panel and resave the scenario.";
            c.custom = true;
            break;
    }
    return c;
}

}  // namespace brevane
