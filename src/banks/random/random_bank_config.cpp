#include "banks/random/random_bank_config.h"

#include <string>

namespace brevane {

namespace {

using Names = std::array<std::string, kRandomSlots>;

// Captions as the banks have always shown them, trailing blanks and spellings kept.
const Names kBank1Names{
    "Barn owl 1", "Barn owl 2", "Tawny owl ", "Long eared owl", "Wings flap 1", "Wings flap 2",
    "Dove 1",     "Dove 2",     "Dove 3",     "Gull",           "Seagulls 1",   "Seagulls 2",
    "Loon 1",     "Loon 2",     "Loon 3",     "Finch",          "Starling",     "Starling 2",
    "Bluetit",    "Robin",      "Chaffinch",  "Sparrow",        "Thrush ",      "Starling",
    "Lark1",      "Lark2",      "Kingfisher", "Skylark"};

const Names kBank2Names{"Bumble bee 1",     "Wasp",           "Hoverfly 1",     "Hoverfly 2",
                        "Hoverfly 3",       "Hoverfly 4",     "African cicada", "Prarie cicada",
                        "Grassland cicada", "Indian cicada",  "Brown Cicada",   "Tree cricket",
                        "Raspy cricket",    "Creek hopper",   "Leaf cricket",   "Indian cricket",
                        "Spotted katydid",  "Common katydid", "Leaf roller ",   "Brown lizard 1",
                        "Brown lizard 2",   "Branch climber", "Tree lizard",    "Green frog 2",
                        "Marsh frog 1",     "Marsh frog 2",   "Tree frog 1",    "Tree frog 2"};

const Names kBank3Names{"Cow moo 1",
                        "Cow moo 2",
                        "Cow moo 3",
                        "Cat meow 1",
                        "Cat meow 2",
                        "Rooster 1",
                        "Rooster 2",
                        "Dog bark 1",
                        "Dog bark 2",
                        "Dog bark 3",
                        "Dog bark 4",
                        "Dog bark 5",
                        "Lamb",
                        "Sheep 1",
                        "Sheep 2",
                        "Sheep 3",
                        "Sheep 4",
                        "Horse trotting",
                        "Horse whinney 1",
                        "Horse whinney 2",
                        "Horse canter past",
                        "Horse canter past 2",
                        "Horse snort",
                        "Goat bleat 1 ",
                        "Goat bleat 2",
                        "Geese 1",
                        "Geese 2",
                        "Geese 3"};

const Names kBank4Names{
    "Thunder rumble 1", "Thunder rumble 2",   "Thunder rumble 3", "Thunder rumble 4",
    "Thunder rumble 5", "Thunder rumble 6",   "Thunder rumble 7", "Thunder rumble 8",
    "Thunder rumble 9", "Thunder rumble10",   "Thunder rumble11", "Treewind gust",
    "Small tree gust",  "Small gust",         "Medium gust",      "Stormy gust",
    "High wind gust",   "High wind gust 2",   "Blustery gust 1",  "Blustery gust 2",
    "Shingle wave",     "Small shingle wave", "Small wave 1",     "Small wave 2",
    "Small wave 3",     "Small wave 4",       "Small wave 5",     "Large wave"};

std::string soundFile(int number) {
    return "bin/" + std::to_string(number) + ".raz";
}

// What every bank shares: file numbers in a run from the base, and the oddities of
// all four banks.
RandomBankConfig common(int number, int fileBase, const Names& names) {
    RandomBankConfig c;
    c.number = number;
    c.heading = "BANK" + std::to_string(number);
    c.names = names;
    for (int s = 1; s <= kRandomSlots; ++s) {
        const auto i = static_cast<std::size_t>(s - 1);
        c.startFiles[i] = soundFile(fileBase + s);
        c.previewFiles[i] = soundFile(fileBase + s);
    }
    c.locationColumn1 = "Bank " + std::to_string(number) + " - column 1";
    c.locationColumn2 = "Bank " + std::to_string(number) + " - column 2";
    c.drawOrder = DrawOrder::PickThenRoll;
    // The pass after a maxvol or Master change has always begun at slot 2.
    c.volumePassFirstSlot = 2;

    c.sessionFile = number == 1 ? "rand.ini" : "rand" + std::to_string(number) + ".ini";
    c.bankFolder = "config/main/random bank " + std::to_string(number);
    c.bankFilter = "Random Config Files (*.rcf)|*.rcf";

    c.fireLevel[23] = {FireLevelSource::Mp3Group, 0};
    c.fireLevel[24] = {FireLevelSource::BackgroundGroup, 0};
    c.fireLevel[25] = {FireLevelSource::RowVolume, 24};
    c.fireLevel[26] = {FireLevelSource::RowVolume, 25};
    c.fireLevel[27] = {FireLevelSource::RowVolume, 26};
    c.locationAtTopSlot = 24;
    c.previewVolumeFrom = 20;
    c.previewVolumeTo = 21;
    for (int s = 5; s <= kRandomSlots; ++s) {
        c.stopSlots.push_back(s);
    }
    return c;
}

// The custom bank: the same machine with the user's files, its own constants and none
// of the fixed banks' slot oddities.
RandomBankConfig custom() {
    RandomBankConfig c;
    c.number = kCustomRandomBankNumber;
    c.heading = "CUSTOM";
    c.names.fill(kRandomNotSetCaption);
    c.locationColumn1 = "Custom - column 1";
    c.locationColumn2 = "Custom - column 2";
    // A third more firings than a fixed bank at the same setting, and no dead stretch:
    // a Frequency of 1 fires, rarely.
    c.drawOrder = DrawOrder::PickThenRollWhenPicked;
    c.pick = {42, 0};
    c.roll = {255, 0};
    c.pan = {255, 0};
    c.loopOffOnPlay = true;
    c.previewLoadsMissingSample = false;
    // Every slot reads its own sliders here, slot 1 included in the volume pass.
    c.volumePassFirstSlot = 1;
    c.sessionFile = "randc.ini";
    c.bankFolder = "config/main/custom random";
    c.bankFilter = "Custom Random Config Files (*.crf)|*.crf";
    c.userFiles = true;
    return c;
}

}  // namespace

RandomBankConfig randomBankConfig(int number) {
    switch (number) {
        case kCustomRandomBankNumber:
            return custom();
        case 2:
        case 3:
        case 4: {
            const int base = number == 2 ? 50 : number == 3 ? 150 : 200;
            const Names& names = number == 2   ? kBank2Names
                                 : number == 3 ? kBank3Names
                                               : kBank4Names;
            RandomBankConfig c = common(number, base, names);
            c.previewRepanSlot = 2;
            c.previewRepanTarget = 1;
            c.previewRepanValue = 122;
            c.loadFailedText =
                number == 2 ? "The file could not be opened correctly."
                            : "The file could not be opened correctly -" + std::to_string(number);
            if (number == 3) {
                c.previewReloadSlot = 12;
            }
            if (number == 4) {
                // "Small shingle wave" loads the file of slot 21 at start.
                c.startFiles[21] = soundFile(221);
            }
            return c;
        }
        default: {
            RandomBankConfig c = common(1, 100, kBank1Names);
            c.drawOrder = DrawOrder::RollThenPick;
            c.loadFailedText = "The file could not be opened correctly - 1.";
            return c;
        }
    }
}

}  // namespace brevane
