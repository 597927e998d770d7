#include "brainwaves/frmbwave.h"

#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "base/dialogs.h"
#include "base/field_list.h"
#include "base/file_io.h"
#include "core/application.h"

namespace brevane {

namespace fs = std::filesystem;

namespace {

constexpr int kBaseDivisor = 10000;
constexpr int kBeatDivisor = 1000;
constexpr int kPanLeft = 0;
constexpr int kPanRight = 255;

// Halves to even, as a whole-number slider takes a fraction.
int wholeNumber(double x) {
    return static_cast<int>(std::nearbyint(x));
}

double numberOf(const std::string& text) {
    return std::strtod(text.c_str(), nullptr);
}

struct RangeRow {
    double upTo;
    const char* name;
};
constexpr std::array<RangeRow, 12> kRanges{{
    {2, "Low Delta"},
    {3, "Delta"},
    {4, "High Delta"},
    {5, "Low Theta"},
    {7, "Theta"},
    {8, "High Theta"},
    {10, "Low Alpha"},
    {11.5, "Alpha"},
    {13, "High Alpha"},
    {14, "Low Beta"},
    {16, "Beta"},
    {17, "High Beta"},
}};

}  // namespace

// A record's fields as read: the preset's nine, then the session's four more.
struct Frmbwave::Values {
    bool playing = false;
    int basestart = 0;
    int beatstart = 0;
    int check100 = 0;
    std::string baseminutes;
    int baseend = 0;
    int check101 = 0;
    std::string beatminutes;
    int beatend = 0;
    int fadeimmediate = 0;
    int fadeafter = 0;
    std::string fadewaitminutes;
    std::string preset;
};

namespace {

template <class Io, class V>
void presetFields(Io& io, V& v) {
    io.truth(v.playing);
    io.number(v.basestart);
    io.number(v.beatstart);
    io.number(v.check100);
    io.text(v.baseminutes);
    io.number(v.baseend);
    io.number(v.check101);
    io.text(v.beatminutes);
    io.number(v.beatend);
}

template <class Io, class V>
void sessionFields(Io& io, V& v) {
    presetFields(io, v);
    io.number(v.fadeimmediate);
    io.number(v.fadeafter);
    io.text(v.fadewaitminutes);
    io.text(v.preset);
}

void fillMinutes(ComboBox& box, const auto& minutes) {
    for (const char* m : minutes) {
        box.addItem(m);
    }
}

}  // namespace

Frmbwave::Frmbwave(Application& app)
    : presets(app.dialogs, app.appPath / kPresetFolder, kPresetExtension, presetBox),
      Timertrans1(app.loop, kTransitionMs),
      Timertrans2(app.loop, kTransitionMs),
      Timerfade(app.loop, kFadeMs),
      Timerfadewait(app.loop, kFadeWaitMs),
      app_(app) {
    window.setCaption("Brainwaves");

    basefreq.onChange = [this] { basefreqChanged(); };
    rightfreq.onChange = [this] {
        // Also while silent: the engine passes over a channel that is not playing.
        app_.engine.setFrequency(rightChannel, wholeNumber(rightfreq.value() / 10.0));
    };
    slideroffset.onChange = [this] { slideroffsetChanged(); };
    basestart.onChange = [this] {
        basefreq.setValue(basestart.value());
        baseStartText.setText(frequencyText(basestart.value(), kBaseDivisor));
    };
    baseend.onChange = [this] {
        baseEndText.setText(frequencyText(baseend.value(), kBaseDivisor));
        CHECKTRANS();
    };
    beatstart.onChange = [this] { beatstartChanged(); };
    beatend.onChange = [this] { beatendChanged(); };
    maxvol.onChange = [this] {
        // A hand's move after a fade to silence brings back the hand's lowest.
        if (maxvol.value() > 0 && maxvol.low() == 0) {
            maxvol.setRange(1, maxvol.high());
        }
        applyVolume();
    };
    currentRange.onChange = [this] {
        LCD3.setLine(3, currentRange.text());
        app_.frmmain.dobrainwavecheck();
    };
    currentBaseText.onChange = [this] { LCD1.setLine(3, currentBaseText.text() + " Hz"); };
    currentBeatText.onChange = [this] { LCD2.setLine(3, currentBeatText.text() + " Hz"); };
    statusWord.onChange = [this] { LCD3.setLine(4, statusWord.text()); };
    LCD1.setLine(1, "Base");
    LCD2.setLine(1, "Beat");
    LCD3.setLine(1, "Range");
    LCD3.setLine(2, "Status");
    for (TextBox* range : {&startRange, &endRange, &currentRange}) {
        range->setText(kNoRange);
    }
    statusWord.setText("IDLE");

    playtoggle.setCaption("Play");
    playtoggle.onClick = [this] { Command1_Click(); };
    Check100.setCaption("Change base frequency over time");
    Check100.onClick = [this] { check100Changed(); };
    Check101.setCaption("Change beat frequency over time");
    Check101.onClick = [this] { check101Changed(); };
    fadeimmediate.setCaption(
        "When beat frequency transition is complete, begin volume fade immediately");
    fadeimmediate.onClick = [this] {
        if (fadeimmediate.checked()) {
            fadeafter.setChecked(false);
        }
    };
    fadeafter.setCaption(
        "When beat frequency transition is complete, begin volume fade after                  "
        "mins");
    fadeafter.onClick = [this] {
        if (fadeafter.checked()) {
            fadeimmediate.setChecked(false);
        }
    };
    fillMinutes(baseminutes, kTransitionMinutes);
    fillMinutes(beatminutes, kTransitionMinutes);
    baseminutes.setListIndex(0);
    beatminutes.setListIndex(0);
    // The glides' controls wait for their check boxes.
    check100Changed();
    check101Changed();

    presets.write = [this](const fs::path& file) {
        Values v;
        v.playing = playing();
        v.basestart = basestart.value();
        v.beatstart = beatstart.value();
        v.check100 = Check100.value();
        v.baseminutes = baseminutes.text();
        v.baseend = baseend.value();
        v.check101 = Check101.value();
        v.beatminutes = beatminutes.text();
        v.beatend = beatend.value();
        return writeFileAtomically(file,
                                   writeFields(v, [](auto& io, auto& r) { presetFields(io, r); }));
    };
    presets.read = [this](const fs::path& file) { return readPreset(file); };
    presetBox.onClick = [this] { presets.loadSelected(); };
    saveButton.setCaption("Save");
    saveButton.onClick = [this] { presets.save(); };
    saveAsButton.setCaption("Save As");
    saveAsButton.onClick = [this] { presets.saveAs(); };
    deleteButton.setCaption("Delete");
    deleteButton.onClick = [this] { presets.remove(); };
    defaultButton.setCaption("Default");
    defaultButton.onClick = [this] { presets.restoreDefaults(); };
    previousButton.setCaption("<");
    previousButton.setToolTip("Previous preset");
    previousButton.onClick = [this] { stepPrevious(presetBox); };
    nextButton.setCaption(">");
    nextButton.setToolTip("Next preset");
    nextButton.onClick = [this] { stepNext(presetBox); };
    closeButton.setCaption("Close");
    closeButton.onClick = [this] { window.hide(); };

    Timertrans1.onTick = [this] { transitionBaseTick(); };
    Timertrans2.onTick = [this] { transitionBeatTick(); };
    Timerfade.onTick = [this] { fadeTick(); };
    Timerfadewait.onTick = [this] { fadeWaitTick(); };

    // The console's Bwaves and Master sliders set the pair's level with the panel's own.
    app.frmmain.onGroupMoved(MixGroup::Bwaves, [this](int) { applyVolume(); });
    app.frmmain.onGroupMoved(MixGroup::Master, [this](int) { applyVolume(); });
}

// ---- life ----

void Frmbwave::load() {
    fillMinutes(fadewaitminutes, kFadeWaitMinutes);
    fadewaitminutes.setListIndex(0);
    SoundEngine& engine = app_.engine;
    leftSample = engine.loadSample(app_.appPath / kLeftTone);
    rightSample = engine.loadSample(app_.appPath / kRightTone);
    applyVolume();
    presets.refill();
    // A panel as it comes stands on the default preset's values: it says so.
    std::string name = presets.defaultName();
    if (const auto kept = readWholeFile(app_.appPath / kSessionFile)) {
        RecordReader reader(*kept);
        std::string keptName = reader.readText();
        if (reader.ok()) {
            name = std::move(keptName);
        }
    }
    const int index = presetBox.find(name);
    if (index >= 0) {
        presetBox.setListIndex(index);
    } else {
        presetBox.setText(name);
    }
    for (Slider* s : {&basefreq, &slideroffset, &baseend, &basestart, &beatend, &beatstart}) {
        s->fireChange();
    }
    LCD1.setLine(3, baseStartText.text() + " Hz");
    position = readWindowPosition(app_.settings, kSettingsSection);
}

void Frmbwave::unload() {
    if (position) {
        writeWindowPosition(app_.settings, kSettingsSection, *position);
    }
    writeFileAtomically(app_.appPath / kSessionFile,
                        RecordWriter().text(presetBox.text()).endRecord().str());
    for (Timer* t : {&Timertrans1, &Timertrans2, &Timerfade, &Timerfadewait}) {
        t->setEnabled(false);
    }
}

// ---- frequencies and displays ----

std::string Frmbwave::frequencyText(int value, int divisor) {
    std::string text = std::to_string(value / divisor);
    int rest = value % divisor;
    if (rest != 0) {
        std::string digits;
        for (int d = divisor / 10; d > 0; d /= 10) {
            digits += static_cast<char>('0' + (rest / d) % 10);
        }
        while (!digits.empty() && digits.back() == '0') {
            digits.pop_back();
        }
        text += "." + digits;
    }
    return text;
}

std::optional<std::string> Frmbwave::rangeName(const std::string& beatText) {
    const double x = numberOf(beatText);
    for (const RangeRow& row : kRanges) {
        if (x <= row.upTo) {
            return std::string(row.name);
        }
    }
    return std::nullopt;
}

void Frmbwave::basefreqChanged() {
    currentBaseText.setText(frequencyText(basefreq.value(), kBaseDivisor));
    if (playing()) {
        app_.engine.setFrequency(leftChannel, wholeNumber(basefreq.value() / 10.0));
        rightfreq.setValue(basefreq.value() - offsetCache);
    }
}

void Frmbwave::slideroffsetChanged() {
    offsetCache = slideroffset.value();
    currentBeatText.setText(frequencyText(slideroffset.value(), kBeatDivisor));
    if (playing()) {
        basefreq.fireChange();
    }
}

void Frmbwave::beatstartChanged() {
    slideroffset.setValue(beatstart.value());
    beatStartText.setText(frequencyText(beatstart.value(), kBeatDivisor));
    LCD2.setLine(3, beatStartText.text() + " Hz");
    if (const auto name = rangeName(beatStartText.text())) {
        startRange.setText(*name);
        app_.frmmain.brainwaveRange.setCaption(*name);
        currentRange.setText(*name);
    }
}

void Frmbwave::beatendChanged() {
    beatEndText.setText(frequencyText(beatend.value(), kBeatDivisor));
    if (const auto name = rangeName(beatEndText.text())) {
        endRange.setText(*name);
    }
    CHECKTRANS();
}

void Frmbwave::showCurrentRange(const std::string& beatText) {
    if (const auto name = rangeName(beatText)) {
        currentRange.setText(*name);
        app_.frmmain.brainwaveRange.setCaption(*name);
        app_.frmmain.dobrainwavecheck();
    }
}

void Frmbwave::runFrequencyHandlers() {
    slideroffset.fireChange();
    basefreq.fireChange();
    rightfreq.fireChange();
}

// ---- volume ----

int Frmbwave::volume() const {
    const double bwaves = app_.frmmain.Bwaves.value();
    const double master = app_.frmmain.Master.value();
    return wholeNumber(maxvol.value() * (bwaves / 6) * (master / 6) / 100);
}

void Frmbwave::applyVolume() {
    const int v = volume();
    app_.engine.setVolume(leftChannel, v);
    app_.engine.setVolume(rightChannel, v);
}

// ---- play and stop ----

void Frmbwave::setPresetCommandsEnabled(bool enabled) {
    for (CommandButton* b : {&saveButton, &saveAsButton, &deleteButton}) {
        b->setEnabled(enabled);
    }
}

void Frmbwave::Command1_Click() {
    Timerfade.setEnabled(false);
    Timerfadewait.setEnabled(false);
    fadeWaitCounter = 0;
    if (!playing()) {
        STOPSOUNDS();
        Timertrans2.setEnabled(false);
        Timertrans1.setEnabled(false);
        return;
    }
    SoundEngine& engine = app_.engine;
    leftChannel = engine.play(leftSample);
    rightChannel = engine.play(rightSample);
    applyVolume();
    engine.setPan(leftChannel, kPanLeft);
    engine.setPan(rightChannel, kPanRight);
    engine.setLoopMode(leftChannel, LoopMode::Normal);
    engine.setLoopMode(rightChannel, LoopMode::Normal);
    if (Check100.checked()) {
        basefreq.setValue(basestart.value());
    }
    if (Check101.checked()) {
        slideroffset.setValue(beatstart.value());
    }
    setPresetCommandsEnabled(false);
    runFrequencyHandlers();
    setupTransitions(false);
    statusWord.setText("PLAYING");
    LCD3.setLine(3, startRange.text());
    app_.frmmain.dobrainwavecheck();
}

void Frmbwave::STOPSOUNDS() {
    setPresetCommandsEnabled(true);
    app_.engine.stop(leftChannel);
    app_.engine.stop(rightChannel);
    Timertrans1.setEnabled(false);
    Timertrans2.setEnabled(false);
    statusWord.setText("IDLE");
    app_.frmmain.dobrainwavecheck();
}

// ---- glides ----

void Frmbwave::setupTransitions(bool fromCheckTrans) {
    const auto distance = [](int end, int start, int kept) {
        return end > start ? end - start : end < start ? start - end : kept;
    };
    const auto stepOf = [](int dist, const ComboBox& minutes, int& seconds) {
        seconds = wholeNumber(numberOf(minutes.text()) * 60);
        return seconds != 0 ? wholeNumber(static_cast<double>(dist) / seconds) : 0;
    };
    baseDistance = distance(baseend.value(), basestart.value(), baseDistance);
    if (Check100.checked()) {
        baseStep = stepOf(baseDistance, baseminutes, baseSeconds);
        if (!fromCheckTrans || playing()) {
            Timertrans1.setEnabled(true);
        }
    }
    if (fromCheckTrans) {
        if (Check101.checked()) {
            slideroffset.setValue(beatstart.value());
        }
        runFrequencyHandlers();
    }
    if (Check101.checked()) {
        beatDistance = distance(beatend.value(), beatstart.value(), beatDistance);
        beatStep = stepOf(beatDistance, beatminutes, beatSeconds);
        if (!fromCheckTrans || playing()) {
            Timertrans2.setEnabled(true);
        }
    }
}

void Frmbwave::CHECKTRANS() {
    setupTransitions(true);
}

void Frmbwave::transitionBaseTick() {
    const double half = baseStep / 2.0;
    if (baseend.value() < basestart.value()) {
        basefreq.setValue(wholeNumber(basefreq.value() - half));
        if (basefreq.value() <= baseend.value()) {
            basefreq.setValue(baseend.value());
            Timertrans1.setEnabled(false);
        }
    } else if (baseend.value() > basestart.value()) {
        basefreq.setValue(wholeNumber(basefreq.value() + half));
        if (basefreq.value() >= baseend.value()) {
            // Only a rising base may start the fade.
            if (fadeimmediate.checked()) {
                Timerfade.setEnabled(true);
            }
            basefreq.setValue(baseend.value());
            Timertrans1.setEnabled(false);
        }
    }
}

void Frmbwave::transitionBeatTick() {
    const double half = beatStep / 2.0;
    if (beatend.value() < beatstart.value()) {
        slideroffset.setValue(wholeNumber(slideroffset.value() - half));
        if (slideroffset.value() <= beatend.value()) {
            if (fadeimmediate.checked()) {
                Timerfade.setEnabled(true);
            }
            if (fadeafter.checked()) {
                Timerfadewait.setEnabled(true);
            }
            Timertrans2.setEnabled(false);
            slideroffset.setValue(beatend.value());
        }
    } else if (beatend.value() > beatstart.value()) {
        slideroffset.setValue(wholeNumber(slideroffset.value() + half));
        if (slideroffset.value() >= beatend.value()) {
            // A rising beat says what comes next, and waits for the OK.
            if (fadeimmediate.checked()) {
                app_.dialogs.message(MessageKind::Information, kEnableFadeText);
                Timerfade.setEnabled(true);
            }
            if (fadeafter.checked()) {
                app_.dialogs.message(MessageKind::Information, kFadeWaitText);
                Timerfadewait.setEnabled(true);
            }
            Timertrans2.setEnabled(false);
            slideroffset.setValue(beatend.value());
        }
    }
    showCurrentRange(currentBeatText.text());
}

void Frmbwave::fadeWaitTick() {
    ++fadeWaitCounter;
    if (fadeWaitCounter == wholeNumber(numberOf(fadewaitminutes.text()))) {
        fadeWaitCounter = 0;
        Timerfade.setEnabled(true);
        Timerfadewait.setEnabled(false);
    }
}

void Frmbwave::fadeTick() {
    if (maxvol.value() == 0) {
        STOPSOUNDS();
        playtoggle.setValue(false);
        Timertrans2.setEnabled(false);
        Timertrans1.setEnabled(false);
        Timerfade.setEnabled(false);
        return;
    }
    // The fade goes below a hand's lowest to reach silence.
    if (maxvol.value() == 1) {
        maxvol.setRange(0, maxvol.high());
    }
    maxvol.setValue(maxvol.value() - 1);
}

// ---- check boxes ----

void Frmbwave::check100Changed() {
    const bool on = Check100.checked();
    baseend.setEnabled(on);
    baseEndText.setEnabled(on);
    baseminutes.setEnabled(on);
    if (!on) {
        Timertrans1.setEnabled(false);
        return;
    }
    baseSeconds = wholeNumber(numberOf(baseminutes.text()) * 60);
    baseStep = baseSeconds != 0 ? wholeNumber(static_cast<double>(baseDistance) / baseSeconds) : 0;
    if (playing()) {
        Timertrans1.setEnabled(true);
    }
    basefreq.setValue(basestart.value());
}

void Frmbwave::check101Changed() {
    const bool on = Check101.checked();
    for (Control* c :
         std::initializer_list<Control*>{&beatend, &beatEndText, &beatminutes, &startRange,
                                         &endRange, &fadeimmediate, &fadeafter, &fadewaitminutes}) {
        c->setEnabled(on);
    }
    if (!on) {
        Timertrans2.setEnabled(false);
        return;
    }
    slideroffset.setValue(beatstart.value());
    if (playing()) {
        Timertrans2.setEnabled(true);
    }
}

// ---- records ----

void Frmbwave::applyValues(const Values& v) {
    basestart.setValue(v.basestart);
    beatstart.setValue(v.beatstart);
    Check100.setValue(v.check100 != 0 ? 1 : 0);
    baseminutes.setText(v.baseminutes);
    baseend.setValue(v.baseend);
    Check101.setValue(v.check101 != 0 ? 1 : 0);
    beatminutes.setText(v.beatminutes);
    beatend.setValue(v.beatend);
}

bool Frmbwave::readPreset(const fs::path& file) {
    const auto content = readWholeFile(file);
    if (!content) {
        return false;
    }
    const FieldsRead<Values> read =
        readFields<Values>(*content, kPresetFields, [](auto& io, auto& r) { presetFields(io, r); });
    // All nine or nothing: a damaged preset leaves the sound as it is.
    if (!read.whole(kPresetFields)) {
        return false;
    }
    const bool wasPlaying = playing();
    if (wasPlaying) {
        STOPSOUNDS();
    }
    applyValues(read.record);
    if (wasPlaying) {
        // Playing goes on with the new values.
        Command1_Click();
    }
    return true;
}

std::string Frmbwave::record() const {
    Values v;
    v.playing = playing();
    v.basestart = basestart.value();
    v.beatstart = beatstart.value();
    v.check100 = Check100.value();
    v.baseminutes = baseminutes.text();
    v.baseend = baseend.value();
    v.check101 = Check101.value();
    v.beatminutes = beatminutes.text();
    v.beatend = beatend.value();
    v.fadeimmediate = fadeimmediate.value();
    v.fadeafter = fadeafter.value();
    v.fadewaitminutes = fadewaitminutes.text();
    v.preset = presetBox.text();
    return writeFields(v, [](auto& io, auto& r) { sessionFields(io, r); });
}

bool Frmbwave::dosave(const fs::path& file) {
    return writeFileAtomically(file, record());
}

void Frmbwave::doload(const fs::path& file) {
    const auto content = readWholeFile(file);
    if (!content) {
        return;
    }
    const FieldsRead<Values> read = readFields<Values>(
        *content, kSessionFields, [](auto& io, auto& r) { sessionFields(io, r); });
    if (!read.whole(kSessionFields) || read.record.preset == presetBox.text()) {
        return;
    }
    const Values& v = read.record;
    presetBox.setText(v.preset);
    applyValues(v);
    fadeimmediate.setValue(v.fadeimmediate != 0 ? 1 : 0);
    fadeafter.setValue(v.fadeafter != 0 ? 1 : 0);
    fadewaitminutes.setText(v.fadewaitminutes);
    if (playtoggle.value() == v.playing) {
        Command1_Click();
    } else {
        playtoggle.setValue(v.playing);
    }
}

void Frmbwave::docolors() {
    colours.paint(app_.scheme);
    for (LcdDisplay* display : {&LCD1, &LCD2, &LCD3}) {
        paintDisplay(*display, app_.scheme);
    }
}

}  // namespace brevane
