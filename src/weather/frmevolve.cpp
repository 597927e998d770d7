#include "weather/frmevolve.h"

#include <array>
#include <filesystem>

#include "base/dialogs.h"
#include "base/field_list.h"
#include "base/file_io.h"
#include "base/preset_folder.h"
#include "base/random.h"
#include "core/application.h"

namespace brevane {

namespace fs = std::filesystem;

namespace {

constexpr int kThunderSlots = 11;
// The rain's loops on background bank one: "Light rain", "Heavy rain", "Rain on leaves".
constexpr int kLightRain = 3;
constexpr int kHeavyRain = 4;
constexpr int kRainOnLeaves = 5;
// The night: the day loops of background bank two, and the night loops that replace
// them.
constexpr std::array<int, 7> kDayLoops = {4, 5, 6, 7, 13, 14, 15};
constexpr std::array<int, 4> kDayLoopsWithSpeed = {4, 5, 6, 7};
constexpr std::array<int, 3> kDayLoopsSwitchedOff = {4, 5, 6};
constexpr int kNightCrickets = 11;
constexpr int kCrickets = 12;
constexpr int kCampfire = 16;
constexpr int kCracklingFire = 17;
// The night groups on the random banks.
constexpr int kNightBirdsFirst = 1;
constexpr int kNightBirdsLast = 6;
constexpr int kInsectsFirst = 7;
constexpr int kInsectsLast = 22;
constexpr int kFrogsFirst = 24;
constexpr int kFrogsLast = 28;
constexpr int kNightFadeInStep = 5;
// Left out of the day fade's end test on random banks one and three.
constexpr int kUntestedSlot = 14;

// Which hint a slider's value gives: the first row whose test holds.
struct HintRow {
    bool (*holds)(int);
    const char* text;
};

template <std::size_t N>
const char* hintFor(const std::array<HintRow, N>& rows, int value) {
    for (const HintRow& row : rows) {
        if (row.holds(value)) {
            return row.text;
        }
    }
    return rows.back().text;
}

bool always(int) {
    return true;
}

// The two Occurence sliders read alike, rain and thunder.
constexpr std::array<HintRow, 4> kRainOccurrenceHints{{
    {[](int v) { return v > 75; },
     "Settings around this mark will generate a rain shower once every few minutes on average."},
    {[](int v) { return v > 25 && v < 76; },
     "Settings around this mark will generate a rain shower once every 10 to 20 minutes on "
     "average."},
    {[](int v) { return v > 1 && v < 26; },
     "Settings around this mark will generate a rain shower approximately once every 30 minutes "
     "to an hour. Recommended only if you plan to leave one soundscape running for a prolonged "
     "period of time."},
    {always, "Rain shower generation is disabled at this setting"},
}};
constexpr std::array<HintRow, 3> kRainSeverityHints{{
    {[](int v) { return v == 1; },
     "This setting will generate light showers. Most suitable for generating gentle summer "
     "rain."},
    {[](int v) { return v == 2; }, "This setting will generate medium strength showers."},
    {always,
     "This setting will generate heavy showers. Most suitable for thunder and storm based "
     "soundscapes."},
}};
constexpr std::array<HintRow, 3> kRainSpeedHints{{
    {[](int v) { return v > 750; },
     "Settings around this mark will allow the rain to change in intensity very quickly. Use "
     "with background wind sounds to simulate blustery conditions."},
    {[](int v) { return v > 350 && v < 750; },
     "Settings around this mark will allow the rain to change in intensity at a slow to medium "
     "rate. Most suitable for general scenarios."},
    {always,
     "Settings around this mark will allow the rain to change in intensity at a very gradual "
     "rate. Most suitable for relaxing summer scenarios, especially if you intend to leave your "
     "scenario running for 30 minutes or more."},
}};
constexpr std::array<HintRow, 3> kRainLengthHints{{
    {[](int v) { return v > 4300; },
     "Settings around this mark will make generated rain showers last for prolonged periods "
     "before dissipating. Most suitable if you are planning to leave one scenario running for a "
     "long period of time."},
    {[](int v) { return v > 3500 && v < 4300; },
     "Settings around this mark will mean generated rain showers last for between a few minutes "
     "and around 30 minutes before dissipating. Recommended use is with a medium 'Rate of Vol "
     "Change' setting."},
    {always,
     "Settings around this mark will mean generated rain showers last for only a few minutes "
     "before dissipating. Most useful for simulating brief summer showers."},
}};
constexpr std::array<HintRow, 1> kRainMaxHints{{
    {always,
     "This setting controls the overall maximum volume of the generated rain. Turn this down if "
     "you find the generated rain overpowers the rest of the soundscape."},
}};
constexpr std::array<HintRow, 4> kThunderOccurrenceHints{{
    {[](int v) { return v > 75; },
     "Settings around this mark will generate a thunderstorm once every few minutes on average."},
    {[](int v) { return v > 25 && v < 76; },
     "Settings around this mark will generate a thunderstorm once every 10 to 20 minutes on "
     "average."},
    {[](int v) { return v > 1 && v < 26; },
     "Settings around this mark will generate a thunderstorm approximately once every 30 "
     "minutes to an hour. Recommended only if you plan to leave one soundscape running for a "
     "prolonged period of time."},
    {always, "Thunderstorm generation is disabled at this setting."},
}};
constexpr std::array<HintRow, 3> kThunderSeverityHints{{
    {[](int v) { return v < 80; }, "This setting will generate low intensity thunderstorms."},
    {[](int v) { return v > 79 && v < 170; },
     "This setting will generate medium intensity thunderstorms."},
    {always, "This setting will generate very intense thunderstorms."},
}};
constexpr std::array<HintRow, 3> kThunderSpeedHints{{
    {[](int v) { return v >= 700; },
     "Settings around this mark will allow the thunderstorm to change in intensity very "
     "quickly."},
    {[](int v) { return v > 300 && v < 700; },
     "Settings around this mark will allow the thunder to change in intensity at a slow to "
     "medium rate."},
    {always,
     "Settings around this mark will allow the thunder to change in intensity at a very "
     "gradual rate."},
}};
constexpr std::array<HintRow, 3> kThunderLengthHints{{
    {[](int v) { return v >= 700; },
     "Settings around this mark will make generated thunderstorms last for prolonged periods "
     "before dissipating. Most suitable if you are planning to leave one scenario running for a "
     "long period of time."},
    {[](int v) { return v > 300 && v < 700; },
     "Settings around this mark will mean generated thunderstorms last for between a few "
     "minutes and around 30 minutes before dissipating. Recommended use is with a medium 'Rate "
     "of Vol Change' setting."},
    {always,
     "Settings around this mark will mean generated thunderstorms last for only a few minutes "
     "before dissipating."},
}};
constexpr std::array<HintRow, 1> kThunderMaxHints{{
    {always,
     "This setting controls the overall maximum volume of the generated thunder. Turn this "
     "down if you find the generated thunder overpowers the rest of the soundscape."},
}};

// Sets a drift limit through its scroll bar, which holds 250 - limit.
void setLowLimit(BackgroundSoundSlot& slot, int limit) {
    slot.lowLimitBar.setValue(BackgroundBank::kLimitTop - limit);
}
void setHighLimit(BackgroundSoundSlot& slot, int limit) {
    slot.highLimitBar.setValue(BackgroundBank::kLimitTop - limit);
}

}  // namespace

// The record's fields as read, before any is applied.
struct Frmevolve::Values {
    std::array<int, 10> weather{};  // fields 1-10
    std::array<int, 5> checks{};    // 11-15
    std::array<int, 12> night{};    // 16-27
    bool nightOn = false;           // 28
    bool weatherOn = false;         // 29
    std::string preset;             // 30
};

namespace {

// Fields 1-10, 11-15 and 16-27, by the controls they come from, in record order.
template <class Panel>
auto weatherFields(Panel& p) {
    return std::array{&p.hscrollthunder,       &p.hscrollrain,         &p.hscrollsevthun,
                      &p.hscrollsevrain,       &p.hscrollthunderspeed, &p.Hscrollweatherspeed,
                      &p.hscrollthunderlength, &p.Hscrollduration,     &p.hscrollmaxthunder,
                      &p.hscrollmaxrain};
}
template <class Panel>
auto checkFields(Panel& p) {
    return std::array{&p.Frogs, &p.Insects, &p.nightbirdscheck, &p.Crickets, &p.Campfire};
}
template <class Panel>
auto nightFields(Panel& p) {
    return std::array{&p.frogsfreq,      &p.Insectsfreq,    &p.Nightfreq,     &p.spareSize1,
                      &p.spareSize2,     &p.frogsvolume,    &p.insectsvolume, &p.nightbirdsvolume,
                      &p.cricketsvolume, &p.campfirevolume, &p.delay,         &p.Ratetonight};
}

template <class Io, class V>
void recordFields(Io& io, V& v) {
    for (auto& f : v.weather) {
        io.number(f);
    }
    for (auto& f : v.checks) {
        io.number(f);
    }
    for (auto& f : v.night) {
        io.number(f);
    }
    io.truth(v.nightOn);
    io.truth(v.weatherOn);
    io.text(v.preset);
}

}  // namespace

Frmevolve::Frmevolve(Application& app)
    : Timerevolve(app.loop, kTickMs),
      Timerthun(app.loop, kTickMs),
      thundervolume(app.loop, 1000),
      Timerthunderlength(app.loop, kThunderHoldMs),
      timerthundervolumefade(app.loop, 1000),
      nighttimer(app.loop, kNightMinuteMs),
      nightfadeout(app.loop, 1000),
      nightfadein(app.loop, kNightFadeInMs),
      presets(app.dialogs, app.appPath / kPresetFolder, kPresetExtension, presetBox),
      app_(app),
      rainBank_(app.frmback),
      nightBank_(app.frmback2) {
    window.setCaption("Evolve");

    const auto hinted = [this](Slider& slider, const auto& rows) {
        slider.onChange = [this, &slider, &rows] { showHint(hintFor(rows, slider.value())); };
    };
    hinted(hscrollsevrain, kRainSeverityHints);
    hinted(hscrollsevthun, kThunderSeverityHints);
    hinted(hscrollthunderspeed, kThunderSpeedHints);
    hinted(hscrollthunderlength, kThunderLengthHints);
    hinted(hscrollthunder, kThunderOccurrenceHints);
    hscrollrain.onChange = [this] {
        rainChance = hscrollrain.value();
        showHint(hintFor(kRainOccurrenceHints, hscrollrain.value()));
    };
    Hscrollduration.onChange = [this] {
        rainLength = Hscrollduration.value();
        showHint(hintFor(kRainLengthHints, Hscrollduration.value()));
    };
    hscrollmaxrain.onChange = [this] {
        // A shower under way keeps its limit; the next one takes the new maximum.
        rainMaxLevel = hscrollmaxrain.value();
        showHint(hintFor(kRainMaxHints, hscrollmaxrain.value()));
    };
    Hscrollweatherspeed.onChange = [this] {
        weatherSpeedChanged();
        showHint(hintFor(kRainSpeedHints, Hscrollweatherspeed.value()));
    };
    hscrollmaxthunder.onChange = [this] {
        maxThunderChanged();
        showHint(hintFor(kThunderMaxHints, hscrollmaxthunder.value()));
    };
    delay.onChange = [this] { delayMinutes.setCaption(std::to_string(delay.value()) + " min"); };
    delayMinutes.setCaption(std::to_string(delay.value()) + " min");

    masterevolve.setCaption(kEnableWeather);
    masterevolve.onClick = [this] { MasterEvolve_Click(); };
    masternight.setCaption(kEnableNight);
    masternight.onClick = [this] { Masternight_Click(); };
    Frogs.setCaption("Frogs");
    Insects.setCaption("Insects");
    nightbirdscheck.setCaption("Night Birds");
    Crickets.setCaption("Crickets");
    Campfire.setCaption("Campfire");

    presets.write = [this](const fs::path& file) { return dosave(file); };
    presets.read = [this](const fs::path& file) { return readPreset(file); };
    presetBox.onClick = [this] { presets.loadSelected(); };
    saveButton.setCaption("Save");
    saveButton.onClick = [this] { presets.save(); };
    saveAsButton.setCaption("Save As");
    saveAsButton.onClick = [this] { presets.saveAs(); };
    deleteButton.setCaption("Delete");
    deleteButton.onClick = [this] { presets.remove(); };
    defaultsButton.setCaption("Defaults");
    defaultsButton.onClick = [this] { presets.restoreDefaults(); };
    previousButton.setCaption("<");
    previousButton.setToolTip("Previous preset");
    previousButton.onClick = [this] { stepPrevious(presetBox); };
    nextButton.setCaption(">");
    nextButton.setToolTip("Next preset");
    nextButton.onClick = [this] { stepNext(presetBox); };
    closeButton.setCaption("Close");
    closeButton.onClick = [this] { window.hide(); };

    Timerevolve.onTick = [this] { evolveTick(); };
    Timerthun.onTick = [this] { thunderTick(); };
    thundervolume.onTick = [this] { thunderRiseTick(); };
    Timerthunderlength.onTick = [this] { thunderHoldTick(); };
    timerthundervolumefade.onTick = [this] { thunderFadeTick(); };
    nighttimer.onTick = [this] { nightMinuteTick(); };
    nightfadeout.onTick = [this] { nightFadeOutTick(); };
    nightfadein.onTick = [this] { nightFadeInTick(); };
}

int Frmevolve::roll(int n) {
    return app_.random.roll(n);
}

void Frmevolve::showHint(const std::string& text) {
    hintBox.setText(text);
}

// ---- life ----

void Frmevolve::load() {
    presets.refill();
    std::error_code ec;
    if (fs::is_regular_file(app_.appPath / kSessionFile, ec)) {
        doload(app_.appPath / kSessionFile);
    } else {
        // A panel as it comes holds the default preset's values: it says so, and the
        // console's weather line shows that name once the weather is on.
        presetBox.setText(presets.defaultName());
    }
    position = readWindowPosition(app_.settings, kSettingsSection, kTopOffset);
}

void Frmevolve::unload() {
    if (position) {
        writeWindowPosition(app_.settings, kSettingsSection, *position);
    }
    dosave(app_.appPath / kSessionFile);
    for (Timer* t : {&Timerevolve, &Timerthun, &thundervolume, &Timerthunderlength,
                     &timerthundervolumefade, &nighttimer, &nightfadeout, &nightfadein}) {
        t->setEnabled(false);
    }
}

// ---- the toggles ----

void Frmevolve::refreshCaches() {
    rainChance = hscrollrain.value();
    rainLength = Hscrollduration.value();
    rainMaxLevel = hscrollmaxrain.value();
}

void Frmevolve::setWeatherSlidersEnabled(bool enabled) {
    for (Slider* s : {&hscrollthunder, &hscrollsevthun, &hscrollthunderspeed, &hscrollthunderlength,
                      &hscrollmaxthunder, &hscrollrain, &hscrollsevrain, &Hscrollweatherspeed,
                      &Hscrollduration, &hscrollmaxrain}) {
        s->setEnabled(enabled);
    }
    hintBox.setEnabled(enabled);
}

void Frmevolve::MasterEvolve_Click() {
    if (masterevolve.value()) {
        Timerevolve.setEnabled(true);
        Timerthun.setEnabled(true);
        app_.weatherStatus = presetBox.text();
        masterevolve.setCaption(kDisableWeather);
        setWeatherSlidersEnabled(false);
        hintBox.setText("");
    } else {
        masterevolve.setCaption(kEnableWeather);
        // thundervolume is left running: a storm on its way up outlives the switch.
        Timerevolve.setEnabled(false);
        Timerthun.setEnabled(false);
        Timerthunderlength.setEnabled(false);
        timerthundervolumefade.setEnabled(false);
        app_.weatherStatus = "Static";
        setWeatherSlidersEnabled(true);
    }
    app_.nightStatus = masternight.value() ? "Enabled" : "Disabled";
    refreshCaches();
    app_.frmmain.checklcd();
}

void Frmevolve::setNightControlsEnabled(bool enabled) {
    for (Control* c : std::initializer_list<Control*>{
             &frogsfreq, &Insectsfreq, &Nightfreq, &frogsvolume, &insectsvolume, &nightbirdsvolume,
             &cricketsvolume, &campfirevolume, &delay, &Ratetonight, &Frogs, &Insects,
             &nightbirdscheck, &Crickets, &Campfire, &delayMinutes}) {
        c->setEnabled(enabled);
    }
}

void Frmevolve::Masternight_Click() {
    if (masternight.value()) {
        masternight.setCaption(kDisableNight);
        nighttimer.setEnabled(true);
        minuteCounter = 0;
        app_.nightStatus = "Enabled";
        nightfadeout.setInterval(800 - Ratetonight.value());
        setNightControlsEnabled(false);
    } else {
        masternight.setCaption(kEnableNight);
        // nightfadeout runs on: a day already fading goes on into the night.
        nighttimer.setEnabled(false);
        nightfadein.setEnabled(false);
        app_.nightStatus = "Disabled";
        setNightControlsEnabled(true);
    }
    app_.frmmain.checklcd();
}

void Frmevolve::scenarioLoaded() {
    // Weather: running again from what the panel holds, or forced off.
    if (!masterevolve.value()) {
        masterevolve.setValue(false);
        masterevolve.setValue(false);
    }
    MasterEvolve_Click();
    // Night: armed again from the start of its delay, or stopped where it stands.
    if (masternight.value()) {
        Masternight_Click();
    } else {
        masternight.setCaption(kEnableNight);
        nightfadein.setEnabled(false);
        nightfadeout.setEnabled(false);
    }
}

// ---- rain ----

void Frmevolve::evolveTick() {
    // 1. A rain loop whose level has reached 0 stops.
    for (int s : {kHeavyRain, kRainOnLeaves, kLightRain}) {
        if (rainBank_.slot(s).volume.value() <= 0) {
            rainBank_.slot(s).on.setValue(0);
        }
    }
    const bool showering = rainBank_.slot(kLightRain).on.checked() ||
                           rainBank_.slot(kHeavyRain).on.checked() ||
                           rainBank_.slot(kRainOnLeaves).on.checked();
    if (showering) {
        // 2. A shower goes on while the roll stays under its length, else it dissipates:
        //    both limits to 0, and the drift brings the levels down at their own speed.
        const int r = roll(5000);
        rainLength = Hscrollduration.value();
        if (r < Hscrollduration.value()) {
            return;
        }
        for (int s : {kLightRain, kHeavyRain, kRainOnLeaves}) {
            rainBank_.slot(s).lowLimitText.setText("0");
            rainBank_.slot(s).highLimitText.setText("0");
        }
        for (int s : {kLightRain, kHeavyRain, kRainOnLeaves}) {
            rainBank_.slot(s).lowLimitBar.setValue(BackgroundBank::kLimitBarMax);
            rainBank_.slot(s).highLimitBar.setValue(BackgroundBank::kLimitBarMax);
        }
        return;
    }
    // 3. Clear skies: a shower starts on the roll, with as many loops as its severity.
    if (roll(800) >= hscrollrain.value()) {
        return;
    }
    startRainSlot(kLightRain, Hscrollweatherspeed.value() + roll(30));
    if (hscrollsevrain.value() >= 2) {
        startRainSlot(kRainOnLeaves, Hscrollweatherspeed.value() + roll(30));
    }
    if (hscrollsevrain.value() == 3) {
        startRainSlot(kHeavyRain, Hscrollweatherspeed.value());
    }
}

void Frmevolve::startRainSlot(int s, int speed) {
    BackgroundSoundSlot& slot = rainBank_.slot(s);
    slot.on.setValue(1);
    slot.volume.setValue(1);
    slot.rate.setValue(speed);
    setLowLimit(slot, 20);
    setHighLimit(slot, rainMaxLevel);
}

void Frmevolve::weatherSpeedChanged() {
    for (int s : {kHeavyRain, kRainOnLeaves, kLightRain}) {
        rainBank_.slot(s).rate.setValue(Hscrollweatherspeed.value());
    }
}

// ---- thunder ----

void Frmevolve::thunderTick() {
    if (roll(1000) >= hscrollthunder.value()) {
        return;
    }
    RandomBank& bank = app_.frmrandommain4;
    for (int s = 1; s <= kThunderSlots; ++s) {
        if (bank.slot(s).frequency.value() > 0) {
            // Thunder still has a frequency: a storm is taken to be under way.
            timerthundervolumefade.setEnabled(true);
            return;
        }
    }
    Timerthun.setEnabled(false);
    for (int s = 1; s <= kThunderSlots; ++s) {
        bank.slot(s).volume.setValue(0);
    }
    for (int s = 1; s <= kThunderSlots; ++s) {
        bank.slot(s).frequency.setValue(hscrollsevthun.value());
    }
    thundervolume.setEnabled(true);
    thundervolume.setInterval(2100 - hscrollthunderspeed.value());
}

void Frmevolve::thunderRiseTick() {
    RandomBank& bank = app_.frmrandommain4;
    // Tested before the step, so the rise ends one above the maximum; slot 1 decides.
    if (bank.slot(1).volume.value() >= hscrollmaxthunder.value()) {
        thundervolume.setEnabled(false);
        Timerthunderlength.setEnabled(true);
    }
    for (int s = 1; s <= kThunderSlots; ++s) {
        bank.slot(s).volume.setValue(bank.slot(s).volume.value() + 1);
    }
}

void Frmevolve::thunderHoldTick() {
    if (roll(1005) > hscrollthunderlength.value()) {
        Timerthunderlength.setEnabled(false);
        timerthundervolumefade.setEnabled(true);
        timerthundervolumefade.setInterval(thundervolume.interval());
    }
}

void Frmevolve::thunderFadeTick() {
    RandomBank& bank = app_.frmrandommain4;
    if (bank.slot(1).volume.value() < 1) {
        timerthundervolumefade.setEnabled(false);
        Timerthun.setEnabled(true);
    }
    // A slider at 0 holds there: the fade passes it over.
    for (int s = 1; s <= kThunderSlots; ++s) {
        bank.slot(s).volume.setValue(bank.slot(s).volume.value() - 1);
    }
}

void Frmevolve::maxThunderChanged() {
    RandomBank& bank = app_.frmrandommain4;
    for (int s = 1; s <= kThunderSlots; ++s) {
        if (bank.slot(s).volume.value() > hscrollmaxthunder.value()) {
            bank.slot(s).volume.setValue(hscrollmaxthunder.value());
        }
    }
}

// ---- night ----

void Frmevolve::nightMinuteTick() {
    ++minuteCounter;
    if (minuteCounter < delay.value()) {
        return;
    }
    nighttimer.setEnabled(false);
    nightfadein.setEnabled(false);
    nightfadeout.setEnabled(true);
    // The day loops fall to 0: "0" and "5" as texts, then both bars to the bottom.
    for (int s : kDayLoops) {
        nightBank_.slot(s).lowLimitText.setText("0");
        nightBank_.slot(s).highLimitText.setText("5");
    }
    for (int s : kDayLoops) {
        nightBank_.slot(s).lowLimitBar.setValue(BackgroundBank::kLimitBarMax);
        nightBank_.slot(s).highLimitBar.setValue(BackgroundBank::kLimitTop);
    }
    for (int s : kDayLoopsWithSpeed) {
        nightBank_.slot(s).rate.setValue(Ratetonight.value());
    }
    if (Crickets.checked()) {
        startNightLoop(kNightCrickets, kCrickets, cricketsvolume.value());
    }
    if (Campfire.checked()) {
        startNightLoop(kCampfire, kCracklingFire, campfirevolume.value());
    }
}

void Frmevolve::startNightLoop(int first, int second, int high) {
    int s = 0;
    if (!nightBank_.slot(first).on.checked()) {
        s = first;
    } else if (!nightBank_.slot(second).on.checked()) {
        s = second;
    } else {
        return;
    }
    BackgroundSoundSlot& slot = nightBank_.slot(s);
    slot.volume.setValue(0);
    slot.on.setValue(1);
    slot.rate.setValue(Ratetonight.value());
    setLowLimit(slot, 0);
    setHighLimit(slot, high);
}

void Frmevolve::nightFadeOutTick() {
    for (int s : kDayLoopsSwitchedOff) {
        if (nightBank_.slot(s).volume.value() == 0) {
            nightBank_.slot(s).on.setValue(0);
        }
    }
    RandomBank* const banks[] = {&app_.frmrandommain, &app_.frmrandommain3, &app_.frmrandommain2};
    for (RandomBank* bank : banks) {
        for (int s = 1; s <= kRandomSlots; ++s) {
            Slider& f = bank->slot(s).frequency;
            if (f.value() != 0) {
                f.setValue(f.value() - 1);
            }
        }
    }
    for (RandomBank* bank : banks) {
        const bool withSlot14 = bank == &app_.frmrandommain2;
        for (int s = 1; s <= kRandomSlots; ++s) {
            if ((withSlot14 || s != kUntestedSlot) && bank->slot(s).frequency.value() != 0) {
                return;
            }
        }
    }
    // The day is out: the night groups get their levels, checked or not.
    for (int s = kNightBirdsFirst; s <= kNightBirdsLast; ++s) {
        app_.frmrandommain.slot(s).volume.setValue(nightbirdsvolume.value());
    }
    for (int s = kFrogsFirst; s <= kFrogsLast; ++s) {
        app_.frmrandommain2.slot(s).volume.setValue(frogsvolume.value());
    }
    for (int s = kInsectsFirst; s <= kInsectsLast; ++s) {
        app_.frmrandommain2.slot(s).volume.setValue(insectsvolume.value());
    }
    nightfadein.setEnabled(true);
    nighttimer.setEnabled(false);
    nightfadeout.setEnabled(false);
}

void Frmevolve::nightFadeInTick() {
    // Each step is tested first, so a frequency ends up to 5 above its target; the
    // night keeps it there for as long as it lasts.
    const auto raise = [](Slider& f, int target) {
        if (f.value() <= target) {
            f.setValue(f.value() + kNightFadeInStep);
        }
    };
    if (nightbirdscheck.checked()) {
        for (int s = kNightBirdsFirst; s <= kNightBirdsLast; ++s) {
            raise(app_.frmrandommain.slot(s).frequency, Nightfreq.value());
        }
    }
    if (Frogs.checked()) {
        RandomBank& bank = app_.frmrandommain2;
        raise(bank.slot(kFrogsFirst).frequency, frogsfreq.value());
        for (int s = kFrogsFirst + 1; s <= kFrogsLast; ++s) {
            if (bank.slot(s).frequency.value() <= frogsfreq.value()) {
                bank.slot(s).frequency.setValue(bank.slot(kFrogsFirst).frequency.value() +
                                                kNightFadeInStep);
            }
        }
    }
    if (Insects.checked()) {
        for (int s = kInsectsFirst; s <= kInsectsLast; ++s) {
            raise(app_.frmrandommain2.slot(s).frequency, Insectsfreq.value());
        }
    }
}

// ---- the settings record ----

std::string Frmevolve::record() const {
    Values v;
    const auto weather = weatherFields(*this);
    for (std::size_t i = 0; i < weather.size(); ++i) {
        v.weather[i] = weather[i]->value();
    }
    const auto checks = checkFields(*this);
    for (std::size_t i = 0; i < checks.size(); ++i) {
        v.checks[i] = checks[i]->value();
    }
    const auto night = nightFields(*this);
    for (std::size_t i = 0; i < night.size(); ++i) {
        v.night[i] = night[i]->value();
    }
    v.nightOn = masternight.value();
    v.weatherOn = masterevolve.value();
    v.preset = presetBox.text();
    return writeFields(v, [](auto& io, auto& r) { recordFields(io, r); });
}

bool Frmevolve::dosave(const fs::path& file) {
    return writeFileAtomically(file, record());
}

void Frmevolve::apply(const Values& v, int fields) {
    const auto weather = weatherFields(*this);
    const auto checks = checkFields(*this);
    const auto night = nightFields(*this);
    int field = 0;
    for (std::size_t i = 0; i < weather.size() && ++field <= fields; ++i) {
        weather[i]->setValue(v.weather[i]);
    }
    for (std::size_t i = 0; i < checks.size() && ++field <= fields; ++i) {
        checks[i]->setValue(v.checks[i] != 0 ? 1 : 0);
    }
    for (std::size_t i = 0; i < night.size() && ++field <= fields; ++i) {
        night[i]->setValue(v.night[i]);
    }
}

void Frmevolve::doload(const fs::path& file) {
    const auto content = readWholeFile(file);
    if (!content) {
        return;
    }
    const FieldsRead<Values> read =
        readFields<Values>(*content, kRecordFields, [](auto& io, auto& r) { recordFields(io, r); });
    // The toggles (28, 29) are read and left as they stand.
    apply(read.record, read.fields);
    if (read.has(kRecordFields)) {
        presetBox.setText(read.record.preset);
    }
    hintBox.setText("");
}

// ---- presets ----

bool Frmevolve::readPreset(const fs::path& file) {
    const auto content = readWholeFile(file);
    if (!content) {
        return false;
    }
    const FieldsRead<Values> read =
        readFields<Values>(*content, kRecordFields, [](auto& io, auto& r) { recordFields(io, r); });
    // A preset is all of it or nothing: a damaged one changes no slider. The box keeps
    // the name selected.
    if (!read.whole(kRecordFields)) {
        return false;
    }
    apply(read.record, kRecordFields);
    hintBox.setText("");
    return true;
}

void Frmevolve::docolors() {
    colours.paint(app_.scheme);
}

}  // namespace brevane
