#include "banks/background/background_bank.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>
#include <utility>

#include "base/comma_record.h"
#include "base/dialogs.h"
#include "base/file_io.h"
#include "base/random.h"
#include "core/application.h"
#include "core/slot_volume.h"

namespace brevane {

namespace fs = std::filesystem;

namespace {

constexpr int kVolumeStep = 15;
constexpr int kVolumeTop = 250;
constexpr int kBalanceDownStep = 15;
constexpr int kBalanceTop = 250;
constexpr int kRateStep = 50;
constexpr int kRateTop = 999;
constexpr int kRangeStep = 10;

// The order in which a file load clears the check boxes between its two starts.
constexpr std::array<int, kBackgroundSlots> kRestartClearOrder{11, 12, 13, 14, 15, 16, 17, 1, 2,
                                                               3,  4,  5,  6,  7,  8,  9,  10};

std::int16_t toShort(double value) {
    if (!(value > std::numeric_limits<std::int16_t>::min())) {
        return std::numeric_limits<std::int16_t>::min();
    }
    if (value >= std::numeric_limits<std::int16_t>::max()) {
        return std::numeric_limits<std::int16_t>::max();
    }
    return static_cast<std::int16_t>(value);
}

// A limit as the drift reads it from its text box: the whole number the text begins
// with, 0 for anything else. The boxes only ever hold what the bars wrote.
std::int16_t limitOf(const TextBox& box) {
    const std::string& text = box.text();
    std::size_t start = text.find_first_not_of(' ');
    if (start == std::string::npos) {
        return 0;
    }
    long long value = 0;
    const char* first = text.data() + start;
    const char* last = text.data() + text.size();
    if (*first == '+') {
        ++first;
    }
    const auto result = std::from_chars(first, last, value);
    if (result.ec == std::errc::result_out_of_range) {
        return text[start] == '-' ? std::numeric_limits<std::int16_t>::min()
                                  : std::numeric_limits<std::int16_t>::max();
    }
    if (result.ec != std::errc()) {
        return 0;
    }
    return toShort(static_cast<double>(value));
}

std::string baseNameOf(const std::string& path) {
    return fs::path(path).stem().string();
}

}  // namespace

// Every value of a bank file, read before any is applied.
struct BackgroundBank::FileValues {
    std::array<int, kBankRecordFields> numbers{};
    std::array<std::string, kBackgroundSlots> paths;
    std::array<std::string, kBackgroundSlots> captions;
    // Field k, counted from 1.
    int field(int k) const { return numbers.at(static_cast<std::size_t>(k - 1)); }
};

BackgroundSoundSlot::BackgroundSoundSlot(EventLoop& loop)
    : timer(loop, BackgroundBank::kDesignDriftMs) {}

BackgroundBank::BackgroundBank(Application& app, BackgroundBankConfig config)
    : app_(app), config_(std::move(config)) {
    window.setCaption(config_.caption);
    slots_.reserve(kBackgroundSlots);
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        slots_.push_back(std::make_unique<BackgroundSoundSlot>(app_.loop));
        BackgroundSoundSlot& sl = slot(s);
        sl.on.setCaption(config_.names.at(static_cast<std::size_t>(s - 1)));
        // The three sliders wake with the loop.
        sl.volume.setEnabled(false);
        sl.balance.setEnabled(false);
        sl.rate.setEnabled(false);
        for (ScrollBar* bar : {&sl.lowLimitBar, &sl.highLimitBar}) {
            bar->setSmallChange(kLimitStep);
            bar->setLargeChange(kLimitStep);
        }
        sl.lowLimitText.setText(std::to_string(kLimitTop - sl.lowLimitBar.value()));
        sl.highLimitText.setText(std::to_string(kLimitTop - sl.highLimitBar.value()));
        sl.chooser.setCaption("...");
        sl.chooser.setVisible(config_.custom);

        sl.on.onClick = [this, s] { checkClicked(s); };
        sl.volume.onChange = [this, s] { applySlotVolume(s); };
        sl.balance.onChange = [this, s] { applySlotPan(s); };
        sl.rate.onChange = [this, s] { applyRate(s); };
        sl.lowLimitBar.onChange = [this, s] { lowLimitBarChanged(s); };
        sl.highLimitBar.onChange = [this, s] { highLimitBarChanged(s); };
        sl.lowLimitText.onChange = [this, s] { drawTarget(s); };
        sl.highLimitText.onChange = [this, s] { drawTarget(s); };
        sl.timer.onTick = [this, s] { driftTick(s); };
        sl.chooser.onClick = [this, s] { chooseFile(s); };
    }

    maxvol.onChange = [this] { maxvolChanged(); };
    Master.onChange = [this] { masterChanged(); };
    MP3.onChange = [this] { app_.frmmain.MP3.setValue(MP3.value()); };
    CD.onChange = [this] { app_.frmmain.CD.setValue(CD.value()); };
    Random.onChange = [this] { app_.frmmain.Random.setValue(Random.value()); };
    Bwaves.onChange = [this] { app_.frmmain.Bwaves.setValue(Bwaves.value()); };

    // Captions say the step; tool tips say what the button does to every slot.
    const std::string balanceUp = "+" + std::to_string(config_.balanceUpStep);
    struct ButtonText {
        std::string caption;
        std::string tip;
    };
    const std::array<std::array<ButtonText, 4>, 4> texts{{
        {{{"Min", "Every volume to 0"},
          {"-15", "Every volume down 15"},
          {"+15", "Every volume up 15"},
          {"Max", "Every volume to 250"}}},
        {{{"Left", "Every balance to the left"},
          {"-15", "Every balance 15 to the left"},
          {balanceUp, "Every balance " + balanceUp.substr(1) + " to the right"},
          {"Right", "Every balance to 250, near the right"}}},
        {{{"Min", "Every rate to 0: no drift"},
          {"-50", "Every rate down 50"},
          {"+50", "Every rate up 50"},
          {"Max", "Every rate to 999"}}},
        {{{"+10", "Every lower limit up 10"},
          {"-10", "Every lower limit down 10"},
          {"+10", "Every upper limit up 10"},
          {"-10", "Every upper limit down 10"}}},
    }};
    using Bulk = void (BackgroundBank::*)(int);
    const std::array<std::pair<std::array<CommandButton, 4>*, Bulk>, 4> columns{{
        {&volumeButtons, &BackgroundBank::bulkVolume},
        {&balanceButtons, &BackgroundBank::bulkBalance},
        {&rateButtons, &BackgroundBank::bulkRate},
        {&rangeButtons, &BackgroundBank::bulkRange},
    }};
    for (std::size_t c = 0; c < columns.size(); ++c) {
        const auto [buttons, action] = columns[c];
        for (std::size_t b = 0; b < 4; ++b) {
            CommandButton& button = (*buttons)[b];
            button.setCaption(texts[c][b].caption);
            button.setToolTip(texts[c][b].tip);
            button.onClick = [this, action, which = static_cast<int>(b)] {
                (this->*action)(which);
            };
        }
    }

    stopButton.setCaption("Stop");
    stopButton.onClick = [this] { stopAll(); };
    loadButton.setCaption("Load");
    loadButton.onClick = [this] { loadCommand(); };
    saveButton.setCaption("Save");
    saveButton.onClick = [this] { saveCommand(); };
    resetAllButton.setCaption("Reset All");
    resetAllButton.setVisible(config_.custom);
    resetAllButton.onClick = [this] { resetAll(); };
    selectSoundsButton.setCaption("Select Sounds");
    selectSoundsButton.setVisible(config_.custom);
    selectSoundsButton.onClick = [this] { app_.Form2.open(SelectionMode::Back); };

    hiddenVolume.setVisible(false);
    hiddenRate.setVisible(false);
    hiddenCheck.setVisible(false);
}

BackgroundBank::~BackgroundBank() = default;

void BackgroundBank::load() {
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        applyRate(s);
    }
    // The colour scheme is applied here, once schemes exist.
}

void BackgroundBank::unload() {
    dosave(sessionPath());
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        slot(s).timer.setEnabled(false);
    }
}

void BackgroundBank::show() {
    if (config_.custom) {
        app_.PanelMarker = 3;
    }
    window.show();
}

fs::path BackgroundBank::sessionPath() const {
    return app_.appPath / config_.sessionFile;
}

// ---- switching ----

void BackgroundBank::checkClicked(int s) {
    BackgroundSoundSlot& sl = slot(s);
    if (config_.custom && s == 1 && renameFirstSlot) {
        const std::string name = app_.dialogs.inputBox(kRenamePrompt, {}, {});
        if (!name.empty()) {
            sl.on.setCaption(name);
        }
        return;
    }
    if (sl.on.checked()) {
        switchOn(s);
    } else {
        switchOff(s);
    }
}

fs::path BackgroundBank::slotFile(int s) const {
    if (config_.custom) {
        return app_.appPath / slot(s).path;
    }
    return app_.appPath / ("bin/" + std::to_string(config_.fileBase + s) + ".isz");
}

bool BackgroundBank::weatherOrder(int s) const {
    for (int w : config_.weatherOrderSlots) {
        if (w == s) {
            return true;
        }
    }
    return false;
}

void BackgroundBank::loadSlotSample(int s, const fs::path& file, bool checked) {
    BackgroundSoundSlot& sl = slot(s);
    sl.sample = checked ? app_.engine.loadCheckedSample(file) : app_.engine.loadSample(file);
    held_.at(static_cast<std::size_t>(s - 1)) = sl.sample != 0;
}

void BackgroundBank::freeSlotSample(int s) {
    app_.engine.freeSample(slot(s).sample);
    held_.at(static_cast<std::size_t>(s - 1)) = false;
}

void BackgroundBank::switchOn(int s) {
    BackgroundSoundSlot& sl = slot(s);
    SoundEngine& engine = app_.engine;
    sl.volume.setEnabled(true);
    sl.balance.setEnabled(true);
    sl.rate.setEnabled(true);
    // The custom bank loads a slot's file when it is chosen as well; that copy is given
    // back here, so a slot never holds two.
    if (held_.at(static_cast<std::size_t>(s - 1))) {
        freeSlotSample(s);
    }
    loadSlotSample(s, slotFile(s));
    sl.timer.setEnabled(true);
    if (weatherOrder(s)) {
        // The weather's slots set the volume on the channel they had before playing, and
        // once more on the new one at the end.
        engine.setVolume(sl.channel, slotVolumeOf(s));
        sl.channel = engine.play(sl.sample);
        engine.setPan(sl.channel, sl.balance.value());
        engine.setLoopMode(sl.channel, LoopMode::Normal);
        applySlotVolume(s);
    } else {
        sl.channel = engine.play(sl.sample);
        engine.setPan(sl.channel, sl.balance.value());
        engine.setVolume(sl.channel, slotVolumeOf(s));
        engine.setLoopMode(sl.channel, LoopMode::Normal);
    }
    // The custom bank also tells the export wizard the slot's file here, once the
    // wizard exists.
}

void BackgroundBank::switchOff(int s) {
    BackgroundSoundSlot& sl = slot(s);
    sl.volume.setEnabled(false);
    sl.balance.setEnabled(false);
    sl.rate.setEnabled(false);
    app_.engine.stop(sl.channel);
    freeSlotSample(s);
    sl.timer.setEnabled(false);
}

int BackgroundBank::slotVolumeOf(int s) const {
    return slotVolume(app_.frmmain.Master.value(), maxvol.value(), slot(s).volume.value());
}

void BackgroundBank::applySlotVolume(int s) {
    app_.engine.setVolume(slot(s).channel, slotVolumeOf(s));
}

void BackgroundBank::applySlotPan(int s) {
    app_.engine.setPan(slot(s).channel, slot(s).balance.value());
}

void BackgroundBank::stopAll() {
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        slot(s).on.setValue(0);
    }
}

// ---- drift ----

void BackgroundBank::applyRate(int s) {
    BackgroundSoundSlot& sl = slot(s);
    const int r = sl.rate.value();
    sl.timer.setInterval(r == 0 ? 0 : (1000 - r) * 5);
}

void BackgroundBank::driftTick(int s) {
    BackgroundSoundSlot& sl = slot(s);
    if (sl.volume.value() < sl.driftTarget) {
        sl.volume.setValue(sl.volume.value() + 1);
    }
    if (sl.volume.value() > sl.driftTarget) {
        sl.volume.setValue(sl.volume.value() - 1);
    }
    if (sl.volume.value() == sl.driftTarget) {
        drawTarget(s);
    }
}

void BackgroundBank::drawTarget(int s) {
    BackgroundSoundSlot& sl = slot(s);
    lowScratch = limitOf(sl.lowLimitText);
    highScratch = limitOf(sl.highLimitText);
    const double span = static_cast<double>(highScratch) - static_cast<double>(lowScratch);
    const double target = app_.random.next() * span + static_cast<double>(lowScratch);
    // Rounded to nearest, halves to even (the rounding mode the program never leaves):
    // both limits come up at about half the chance of a value between them.
    sl.driftTarget = toShort(std::nearbyint(target));
}

// ---- Volume Range ----

void BackgroundBank::lowLimitBarChanged(int s) {
    BackgroundSoundSlot& sl = slot(s);
    sl.lowLimitText.setText(std::to_string(kLimitTop - sl.lowLimitBar.value()));
    if (sl.lowLimitBar.value() >= kLimitTop) {
        sl.lowLimitBar.setValue(kLimitTop);
    }
    // Dragged past the upper limit, the lower one pushes it along.
    if (sl.lowLimitBar.value() < sl.highLimitBar.value()) {
        sl.highLimitBar.setValue(sl.lowLimitBar.value());
    }
}

void BackgroundBank::highLimitBarChanged(int s) {
    BackgroundSoundSlot& sl = slot(s);
    sl.highLimitText.setText(std::to_string(kLimitTop - sl.highLimitBar.value()));
    if (sl.highLimitBar.value() >= kLimitTop) {
        sl.highLimitBar.setValue(kLimitTop);
    }
    if (sl.highLimitBar.value() > sl.lowLimitBar.value()) {
        sl.lowLimitBar.setValue(sl.highLimitBar.value());
    }
}

// ---- group strip ----

void BackgroundBank::maxvolChanged() {
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        applySlotVolume(s);
    }
    app_.frmmain.Background.setValue(maxvol.value());
}

void BackgroundBank::masterChanged() {
    app_.frmmain.Master.setValue(Master.value());
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        applySlotVolume(s);
    }
}

Slider* BackgroundBank::groupCopy(MixGroup group) {
    return groupCopyAmong(group, {&Master, &maxvol, &Random, &MP3, &CD, &Bwaves});
}

// ---- bulk buttons ----

void BackgroundBank::bulkVolume(int button) {
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        Slider& v = slot(s).volume;
        const int values[4] = {0, v.value() - kVolumeStep, v.value() + kVolumeStep, kVolumeTop};
        v.setValue(values[button]);
    }
}

void BackgroundBank::bulkBalance(int button) {
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        Slider& b = slot(s).balance;
        const int values[4] = {0, b.value() - kBalanceDownStep, b.value() + config_.balanceUpStep,
                               kBalanceTop};
        b.setValue(values[button]);
    }
}

void BackgroundBank::bulkRate(int button) {
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        Slider& r = slot(s).rate;
        const int values[4] = {0, r.value() - kRateStep, r.value() + kRateStep, kRateTop};
        r.setValue(values[button]);
    }
}

void BackgroundBank::bulkRange(int button) {
    const bool lower = button < 2;
    const bool up = button == 0 || button == 2;
    auto bar = [this, lower](int s) -> ScrollBar& {
        return lower ? slot(s).lowLimitBar : slot(s).highLimitBar;
    };
    if (up) {
        // A bar at 5 would be refused at -5: it is first taken to 10, so that it reaches
        // the top. Any other value that would fall below 0 is refused and stays.
        for (int s = 1; s <= kBackgroundSlots; ++s) {
            if (bar(s).value() == 5) {
                bar(s).setValue(10);
            }
        }
        for (int s = 1; s <= kBackgroundSlots; ++s) {
            bar(s).setValue(bar(s).value() - kRangeStep);
        }
    } else {
        for (int s = 1; s <= kBackgroundSlots; ++s) {
            bar(s).setValue(bar(s).value() + kRangeStep);
        }
    }
}

// ---- bank files ----

std::vector<int> BackgroundBank::numericFields() const {
    std::vector<int> f(kBankRecordFields, 0);
    auto set = [&f](int k, int value) { f.at(static_cast<std::size_t>(k - 1)) = value; };
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        set(s, slot(s).volume.value());
        set(20 + s, slot(s).balance.value());
        set(40 + s, slot(s).rate.value());
        set(58 + s, slot(s).on.value());
        set(95 + 2 * (s - 1), slot(s).lowLimitBar.value());
        set(96 + 2 * (s - 1), slot(s).highLimitBar.value());
    }
    set(19, Bwaves.value());
    set(20, Master.value());
    set(39, MP3.value());
    set(40, Random.value());
    if (config_.custom) {
        set(18, hiddenVolume.value());
        // Slot 16's balance stands in fields 36 to 38: slot 17's is never written.
        set(37, slot(16).balance.value());
        set(38, slot(16).balance.value());
        set(58, hiddenRate.value());
        set(76, hiddenCheck.value());
        // Fields 77 to 94 hold the panel's further hidden check boxes, which nothing sets.
    } else {
        set(18, slot(17).volume.value());
        set(38, slot(17).balance.value());
        set(58, slot(17).rate.value());
        for (int i = 0; i < kBackgroundFillerFields; ++i) {
            set(76 + i, slot(config_.fillerCheckSlots.at(static_cast<std::size_t>(i))).on.value());
        }
    }
    return f;
}

std::string BackgroundBank::record() const {
    RecordWriter w;
    for (int value : numericFields()) {
        w.number(value);
    }
    if (config_.custom) {
        for (int s = 1; s <= kBackgroundSlots; ++s) {
            w.text(slot(s).path);
        }
        for (int s = 1; s <= kBackgroundSlots; ++s) {
            w.text(slot(s).on.caption());
        }
    }
    w.endRecord();
    return w.str();
}

bool BackgroundBank::dosave(const fs::path& file) {
    return writeFileAtomically(file, record());
}

std::optional<BackgroundBank::FileValues> BackgroundBank::readFile(const fs::path& file) const {
    const auto content = readWholeFile(file);
    if (!content) {
        return std::nullopt;
    }
    RecordReader reader(*content);
    FileValues v;
    for (int& n : v.numbers) {
        n = reader.readLong();
    }
    if (config_.custom) {
        for (std::string& p : v.paths) {
            p = withForwardSlashes(reader.readText());
        }
        for (std::string& c : v.captions) {
            c = reader.readText();
        }
    }
    if (!reader.ok()) {
        return std::nullopt;
    }
    return v;
}

bool BackgroundBank::doload(const fs::path& file) {
    const auto values = readFile(file);
    if (!values) {
        app_.dialogs.message(MessageKind::Information, config_.loadFailedText);
        return false;
    }
    if (config_.custom) {
        applyCustomFile(*values);
    } else {
        applyBankFile(*values);
    }
    return true;
}

void BackgroundBank::setCheckBoxesFrom(const FileValues& v) {
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        slot(s).on.setValue(v.field(58 + s));
    }
}

void BackgroundBank::clearCheckBoxesForRestart() {
    for (int s : kRestartClearOrder) {
        slot(s).on.setValue(0);
    }
}

void BackgroundBank::setLimitBarsFrom(const FileValues& v) {
    // In field order, lower then upper of each slot; a value a bar refuses leaves it.
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        slot(s).lowLimitBar.setValue(v.field(95 + 2 * (s - 1)));
        slot(s).highLimitBar.setValue(v.field(96 + 2 * (s - 1)));
    }
}

void BackgroundBank::applyBankFile(const FileValues& v) {
    // The wanted loops start silently, everything stops, the values go in, and the
    // wanted loops start again at their real values: one silent restart of all loops.
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        slot(s).volume.setValue(0);
    }
    setCheckBoxesFrom(v);
    clearCheckBoxesForRestart();
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        slot(s).volume.setValue(v.field(s));
    }
    setLimitBarsFrom(v);
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        slot(s).balance.setValue(v.field(20 + s));
    }
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        slot(s).rate.setValue(v.field(40 + s));
    }
    // Fields 18 to 20, 38 to 40, 58 and 76 to 94 are not read back: a bank file brings
    // back the bank, not the console's mix.
    setCheckBoxesFrom(v);
}

void BackgroundBank::applyCustomFile(const FileValues& v) {
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        freeSlotSample(s);
    }
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        slot(s).on.setCaption(v.captions.at(static_cast<std::size_t>(s - 1)));
    }
    // The sliders in field order; the Bwaves, Master and MP3 fields (19, 20, 39) are
    // skipped, and field 38 repeats slot 16's balance.
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        slot(s).volume.setValue(v.field(s));
    }
    hiddenVolume.setValue(v.field(18));
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        slot(s).balance.setValue(v.field(20 + s));
    }
    Random.setValue(v.field(40));
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        slot(s).rate.setValue(v.field(40 + s));
    }
    hiddenRate.setValue(v.field(58));

    for (int s = 1; s <= kBackgroundSlots; ++s) {
        const std::string& path = v.paths.at(static_cast<std::size_t>(s - 1));
        loadSlotSample(s, app_.appPath / path);
        storePath(s, path);
    }
    // A file gone since the save: its row says so, and that is the only sign.
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        std::error_code ec;
        if (!fs::exists(slotFile(s), ec)) {
            slot(s).on.setCaption(kNotSetCaption);
            slot(s).on.setToolTip({});
        }
    }

    setCheckBoxesFrom(v);
    hiddenCheck.setValue(v.field(76));
    clearCheckBoxesForRestart();
    setLimitBarsFrom(v);
    setCheckBoxesFrom(v);
}

void BackgroundBank::loadCommand() {
    const fs::path folder = app_.appPath / config_.bankFolder;
    std::error_code ec;
    fs::create_directories(folder, ec);
    FileDialogRequest request{config_.caption, folder, config_.bankFilter, {}};
    const auto chosen = app_.dialogs.openFile(request);
    if (chosen && !chosen->empty()) {
        doload(*chosen);
    }
}

void BackgroundBank::saveCommand() {
    const fs::path folder = app_.appPath / config_.bankFolder;
    std::error_code ec;
    fs::create_directories(folder, ec);
    // The dialog's name is preset to slot 1's lower limit ("0" as a rule), so even a
    // cancelled dialog leaves a name, and the bank is saved under it.
    const std::string preset = slot(1).lowLimitText.text();
    FileDialogRequest request{config_.caption, folder, config_.bankFilter, preset};
    const auto chosen = app_.dialogs.saveFile(request);
    const fs::path target = chosen ? *chosen : (preset.empty() ? fs::path() : folder / preset);
    if (!target.empty()) {
        dosave(target);
    }
}

// ---- the custom bank ----

void BackgroundBank::storePath(int s, const std::string& relative) {
    slot(s).path = relative;
    slot(s).on.setToolTip(relative);
}

void BackgroundBank::chooseFile(int s) {
    BackgroundSoundSlot& sl = slot(s);
    app_.engine.stop(sl.channel);

    const fs::path folder = app_.appPath / kBackgroundSoundsFolder;
    const std::string folderText = folder.string();
    std::optional<fs::path> chosen;
    for (;;) {
        chosen =
            app_.dialogs.openFile(FileDialogRequest{sl.on.caption(), folder, kSoundFileFilter, {}});
        if (!chosen) {
            return;
        }
        if (chosen->string().find(folderText) != std::string::npos) {
            break;
        }
        app_.dialogs.message(MessageKind::Information, kOutsideFolderText);
    }

    // A path that only names the folder on its way elsewhere ("..") is taken as a copy.
    const auto kept = keptInsideTree(app_.appPath.root(), *chosen, folder);
    if (!kept) {
        app_.dialogs.message(MessageKind::Information, kCannotOpenText);
        return;
    }
    const bool wasOn = sl.on.checked();
    sl.on.setValue(0);
    freeSlotSample(s);
    loadSlotSample(s, *kept, true);
    storePath(s, app_.appPath.relativeText(*kept));
    sl.on.setCaption(baseNameOf(sl.path));
    if (sl.sample != 0) {
        if (wasOn) {
            sl.on.setValue(0);
            sl.on.setValue(1);
        }
    } else {
        app_.dialogs.message(MessageKind::Information, kCannotOpenText);
    }
}

void BackgroundBank::renameFirstSlotByRightButton() {
    if (!config_.custom) {
        return;
    }
    renameFirstSlot = true;
    checkClicked(1);
    renameFirstSlot = false;
}

std::vector<std::string> BackgroundBank::bulkLoad(
    const std::array<std::string, kHandOverEntries>& handOver) {
    std::vector<std::string> failed;
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        slot(s).on.setValue(0);
    }
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        app_.engine.stop(slot(s).channel);
    }
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        const std::string& entry = handOver.at(static_cast<std::size_t>(s - 1));
        if (entry.empty()) {
            break;
        }
        // A sound from outside the tree comes in as a copy, so that the bank, and the
        // scenarios saved from it, never point outside.
        const auto kept =
            keptInsideTree(app_.appPath.root(), entry, app_.appPath / kBackgroundSoundsFolder);
        if (!kept) {
            failed.push_back(fs::path(entry).filename().string());
            continue;
        }
        const std::string relative = app_.appPath.relativeText(*kept);
        freeSlotSample(s);
        // Decoded on the spot, so that a file that will not play is known now.
        loadSlotSample(s, app_.appPath / relative, true);
        if (slot(s).sample == 0) {
            failed.push_back(fs::path(relative).filename().string());
        }
        slot(s).on.setCaption(baseNameOf(relative));
        storePath(s, relative);
    }
    return failed;
}

void BackgroundBank::resetAll() {
    if (!app_.dialogs.askYesNo(kResetAllQuestion)) {
        return;
    }
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        slot(s).on.setCaption(kNotSetCaption);
    }
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        freeSlotSample(s);
    }
    // An empty path names the program's folder itself, which loads as no sample.
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        storePath(s, {});
        loadSlotSample(s, slotFile(s));
    }
}

void BackgroundBank::docolors() {
    colours.paint(app_.scheme);
}

}  // namespace brevane
