#include "fx/frmeffects.h"

#include <filesystem>

#include "base/dialogs.h"
#include "base/field_list.h"
#include "base/file_io.h"
#include "core/application.h"

namespace brevane {

namespace fs = std::filesystem;

namespace {

PresetTexts eqTexts() {
    PresetTexts t;
    t.loadProblem = "This preset could not be found.";
    t.namePrompt = "Please type a name to identify this equalizer configuration";
    return t;
}

PresetTexts reverbTexts() {
    PresetTexts t;
    t.loadProblem = "This preset could not be found.";
    t.restoreDefaults =
        "This will restore all reverb settings to their defaults. Do you wish to continue?";
    return t;
}

// The spare echo's settings: all echo, every repeat as loud as the last, two seconds
// apart, swapping sides.
constexpr EchoParams kSpareEcho{100.0f, 100.0f, 2000.0f, 2000.0f, true};

template <class Io, class Array>
void numbers(Io& io, Array& values, int count) {
    for (int i = 0; i < count; ++i) {
        io.number(values[static_cast<std::size_t>(i)]);
    }
}

}  // namespace

// A record's fields as read or written.
struct Frmeffects::Values {
    std::array<int, kBands> bands{};
    std::array<int, kReverbSliders> reverb{};
    bool eqOn = false;
    bool reverbOn = false;
    std::string eqName;
    std::string reverbName;
    // effects.tmp keeps the toggles as numbers.
    int eqValue = 0;
    int reverbValue = 0;
};

namespace {

template <class Io, class V>
void eqPresetFields(Io& io, V& v) {
    numbers(io, v.bands, Frmeffects::kBands);
}

template <class Io, class V>
void reverbPresetFields(Io& io, V& v) {
    numbers(io, v.reverb, Frmeffects::kReverbFileFields);
}

template <class Io, class V>
void recordFields(Io& io, V& v) {
    eqPresetFields(io, v);
    reverbPresetFields(io, v);
    io.truth(v.eqOn);
    io.truth(v.reverbOn);
    io.text(v.eqName);
    io.text(v.reverbName);
}

template <class Io, class V>
void sessionFields(Io& io, V& v) {
    io.number(v.eqValue);
    io.text(v.eqName);
    io.number(v.reverbValue);
    io.text(v.reverbName);
}
constexpr int kSessionFields = 4;

}  // namespace

Frmeffects::Frmeffects(Application& app)
    : eqPresets(app.dialogs, app.appPath / kEqFolder, kEqExtension, Combo1, eqTexts()),
      reverbPresets(app.dialogs, app.appPath / kReverbFolder, kReverbExtension, Combo2,
                    reverbTexts()),
      app_(app) {
    window.setCaption("Effects");
    eqIds.fill(-1);

    for (int i = 0; i < kBands; ++i) {
        Slider& s = VScroll1[static_cast<std::size_t>(i)];
        s.setRange(0, kBandTop);
        s.setValue(kFlat);
        s.setLargeChange(3);
        s.setCaption(kBandCaptions[static_cast<std::size_t>(i)]);
        s.onChange = [this, i] { eqSliderMoved(i); };
    }
    for (std::size_t i = 0; i < hscroll101.size(); ++i) {
        const ReverbSlider& row = kReverbSliderTable[i];
        Slider& s = hscroll101[i];
        s.setRange(row.min, row.max);
        s.setValue(row.value);
        s.setLargeChange(std::max(1, (row.max - row.min) / 20));
        s.setCaption(row.caption);
        // The spare elements are kept, not shown: they drive nothing.
        s.setVisible(row.caption[0] != '\0');
        s.onChange = [this] { reverbSliderMoved(); };
    }

    check_eq.setCaption("On / Off");
    check_eq.onClick = [this] { eqToggled(); };
    check_rev3d.setCaption("On / Off");
    check_rev3d.onClick = [this] { reverbToggled(); };

    eqPresets.write = [this](const fs::path& file) {
        Values v;
        for (std::size_t i = 0; i < VScroll1.size(); ++i) {
            v.bands[i] = VScroll1[i].value();
        }
        return writeFileAtomically(
            file, writeFields(v, [](auto& io, auto& r) { eqPresetFields(io, r); }));
    };
    eqPresets.read = [this](const fs::path& file) { return readEqPreset(file); };
    reverbPresets.write = [this](const fs::path& file) {
        Values v;
        for (std::size_t i = 0; i < hscroll101.size(); ++i) {
            v.reverb[i] = hscroll101[i].value();
        }
        return writeFileAtomically(
            file, writeFields(v, [](auto& io, auto& r) { reverbPresetFields(io, r); }));
    };
    reverbPresets.read = [this](const fs::path& file) { return readReverbPreset(file); };
    Combo1.onClick = [this] { presetPicked(Combo1, eqPresets); };
    Combo2.onClick = [this] { presetPicked(Combo2, reverbPresets); };

    eqSaveButton.setCaption("Save Preset");
    eqSaveButton.onClick = [this] { eqPresets.saveAs(); };
    eqDeleteButton.setCaption("Delete");
    eqDeleteButton.onClick = [this] {
        eqPresets.remove();
        showOnConsole();
    };
    eqDefaultsButton.setCaption("Restore Defaults");
    eqDefaultsButton.onClick = [this] {
        for (Slider& s : VScroll1) {
            s.setValue(kFlat);
        }
    };
    eqPreviousButton.setCaption("<");
    eqPreviousButton.setToolTip("Previous equalizer preset");
    eqPreviousButton.onClick = [this] { stepPrevious(Combo1); };
    eqNextButton.setCaption(">");
    eqNextButton.setToolTip("Next equalizer preset");
    eqNextButton.onClick = [this] { stepNext(Combo1); };

    reverbSaveButton.setCaption("Save Preset");
    reverbSaveButton.onClick = [this] { reverbPresets.saveAs(); };
    reverbDeleteButton.setCaption("Delete");
    reverbDeleteButton.onClick = [this] {
        reverbPresets.remove();
        showOnConsole();
    };
    reverbDefaultsButton.setCaption("Restore Defaults");
    reverbDefaultsButton.onClick = [this] { reverbPresets.restoreDefaults(); };
    reverbPreviousButton.setCaption("<");
    reverbPreviousButton.setToolTip("Previous reverb preset");
    reverbPreviousButton.onClick = [this] { stepPrevious(Combo2); };
    reverbNextButton.setCaption(">");
    reverbNextButton.setToolTip("Next reverb preset");
    reverbNextButton.onClick = [this] { stepNext(Combo2); };

    Command3.setCaption("Echo");
    Command3.setVisible(false);
    Command3.onClick = [this] {
        SoundEngine& engine = app_.engine;
        engine.setAllPaused(true);
        engine.disableEffects();
        engine.setEcho(engine.enableEffect(EffectKind::Echo), kSpareEcho);
        engine.setAllPaused(false);
    };
    closeButton.setCaption("Close");
    closeButton.onClick = [this] { window.hide(); };
}

// ---- life ----

void Frmeffects::load() {
    eqPresets.refill();
    reverbPresets.refill();
    // A fresh panel stands on the stock presets its sliders match.
    Combo1.setText(kFlatPreset);
    Combo2.setText(kDefaultPreset);
    restoreSession();
    position = readWindowPosition(app_.settings, kSettingsSection);
}

void Frmeffects::restoreSession() {
    // The rebuild runs once, after everything the file names is in place.
    applying_ = true;
    if (const auto kept = readWholeFile(app_.appPath / kSessionFile)) {
        const FieldsRead<Values> read = readFields<Values>(
            *kept, kSessionFields, [](auto& io, auto& r) { sessionFields(io, r); });
        if (read.whole(kSessionFields)) {
            const Values& v = read.record;
            for (auto [box, name] : {std::pair{&Combo1, &v.eqName}, {&Combo2, &v.reverbName}}) {
                const int index = box->find(*name);
                box->setListIndex(-1);
                box->setText(*name);
                if (index >= 0) {
                    box->setListIndex(index);
                }
            }
            check_eq.setChecked(v.eqValue != 0);
            check_rev3d.setChecked(v.reverbValue != 0);
        }
    }
    applying_ = false;
    rebuild();
    showOnConsole();
}

void Frmeffects::unload() {
    if (position) {
        writeWindowPosition(app_.settings, kSettingsSection, *position);
    }
    Values v;
    v.eqValue = check_eq.value();
    v.eqName = Combo1.text();
    v.reverbValue = check_rev3d.value();
    v.reverbName = Combo2.text();
    writeFileAtomically(app_.appPath / kSessionFile,
                        writeFields(v, [](auto& io, auto& r) { sessionFields(io, r); }));
}

// ---- the chain ----

void Frmeffects::rebuild() {
    if (applying_) {
        return;
    }
    SoundEngine& engine = app_.engine;
    engine.setAllPaused(true);
    engine.disableEffects();
    enableControls();
    // Pausing again costs nothing and keeps each of the four shapes one bracket.
    engine.setAllPaused(true);
    engine.disableEffects();
    if (check_eq.checked()) {
        enableEqualizer();
    }
    if (check_rev3d.checked()) {
        enableReverb();
        setReverb();
    }
    engine.setAllPaused(false);
}

void Frmeffects::enableControls() {
    const bool eq = check_eq.checked();
    for (Slider& s : VScroll1) {
        s.setEnabled(eq);
    }
    for (Control* c :
         std::initializer_list<Control*>{&Combo1, &eqSaveButton, &eqDefaultsButton, &eqDeleteButton,
                                         &eqPreviousButton, &eqNextButton}) {
        c->setEnabled(eq);
    }
    const bool reverb = check_rev3d.checked();
    for (Slider& s : hscroll101) {
        s.setEnabled(reverb);
    }
    for (Control* c : std::initializer_list<Control*>{&Combo2, &reverbSaveButton,
                                                      &reverbDefaultsButton, &reverbDeleteButton}) {
        c->setEnabled(reverb);
    }
}

void Frmeffects::enableEqualizer() {
    for (int& id : eqIds) {
        id = app_.engine.enableEffect(EffectKind::Equalizer);
    }
    for (int i = 0; i < kBands; ++i) {
        FXSetEQ(i, static_cast<float>(VScroll1[static_cast<std::size_t>(i)].value() - kFlat));
    }
}

void Frmeffects::enableReverb() {
    reverbId = app_.engine.enableEffect(EffectKind::Reverb);
}

void Frmeffects::setReverb() {
    app_.engine.setReverb(reverbId, reverbParams());
}

void Frmeffects::FXSetEQ(int band, float gainDb) {
    if (band < 0 || band >= kBands) {
        return;
    }
    const auto b = static_cast<std::size_t>(band);
    app_.engine.setEqualizerBand(eqIds[b], EqualizerBandParams{static_cast<float>(kCentreHz[b]),
                                                               kBandwidthSemitones, gainDb});
}

ReverbParams Frmeffects::reverbParams() const {
    std::array<int, kReverbSliders> values{};
    for (std::size_t i = 0; i < hscroll101.size(); ++i) {
        values[i] = hscroll101[i].value();
    }
    return reverbParams(values);
}

ReverbParams Frmeffects::reverbParams(const std::array<int, kReverbSliders>& v) {
    ReverbParams p;
    p.room = static_cast<float>(v[0] - 10000);
    p.roomHF = static_cast<float>(v[1] - 10000);
    p.roomRolloffFactor = static_cast<float>(v[4] - 10);
    p.decayTime = static_cast<float>(v[6]) / 100.0f;
    p.decayHFRatio = static_cast<float>(v[7]) / 100.0f;
    // Above the level's range on purpose: the engine reads it back into the range.
    p.reflections = static_cast<float>(v[8] + 11000);
    p.reflectionsDelay = static_cast<float>(v[9]) / 1000.0f;
    p.reverb = static_cast<float>(v[10]);
    p.reverbDelay = static_cast<float>(v[11]) / 1000.0f;
    p.diffusion = static_cast<float>(v[12]);
    p.density = static_cast<float>(v[13]);
    p.hfReference = static_cast<float>(v[14]);
    return p;
}

// ---- the hand ----

void Frmeffects::eqToggled() {
    if (Combo1.text().empty()) {
        Combo1.setText(kCustom);
    }
    showOnConsole();
    rebuild();
}

void Frmeffects::reverbToggled() {
    if (Combo2.text().empty()) {
        Combo2.setText(kCustom);
    }
    showOnConsole();
    rebuild();
}

namespace {

// A box after a hand's move: no entry selected, so picking the preset again reloads it.
void showCustom(ComboBox& box) {
    box.setListIndex(-1);
    box.setText(Frmeffects::kCustom);
}

}  // namespace

void Frmeffects::eqSliderMoved(int band) {
    if (applying_) {
        return;
    }
    FXSetEQ(band, static_cast<float>(VScroll1[static_cast<std::size_t>(band)].value() - kFlat));
    showCustom(Combo1);
    showOnConsole();
}

void Frmeffects::reverbSliderMoved() {
    if (applying_) {
        return;
    }
    setReverb();
    rebuild();
    showCustom(Combo2);
    showOnConsole();
}

void Frmeffects::presetPicked(ComboBox& box, PresetFolder& presets) {
    if (box.listIndex() < 0 || box.text().empty()) {
        box.setText(kCustom);
    } else {
        presets.loadSelected();
    }
    showOnConsole();
}

void Frmeffects::showOnConsole() {
    LcdDisplay& lcd = app_.frmmain.LCD6;
    lcd.setLine(3, check_rev3d.checked() ? Combo2.text() : std::string(kDisabled));
    lcd.setLine(4, check_eq.checked() ? Combo1.text() : std::string(kDisabled));
}

// ---- presets and records ----

void Frmeffects::setBandsQuietly(const std::array<int, kBands>& values) {
    const bool was = applying_;
    applying_ = true;
    for (std::size_t i = 0; i < VScroll1.size(); ++i) {
        VScroll1[i].setValue(values[i]);
    }
    applying_ = was;
}

void Frmeffects::setReverbQuietly(const std::array<int, kReverbSliders>& values, int count) {
    const bool was = applying_;
    applying_ = true;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        hscroll101[i].setValue(values[i]);
    }
    applying_ = was;
}

bool Frmeffects::readEqPreset(const fs::path& file) {
    const auto content = readWholeFile(file);
    if (!content) {
        return false;
    }
    const FieldsRead<Values> read =
        readFields<Values>(*content, kBands, [](auto& io, auto& r) { eqPresetFields(io, r); });
    // All ten or nothing: a damaged preset leaves the sound as it is.
    if (!read.whole(kBands)) {
        return false;
    }
    setBandsQuietly(read.record.bands);
    rebuild();
    return true;
}

bool Frmeffects::readReverbPreset(const fs::path& file) {
    const auto content = readWholeFile(file);
    if (!content) {
        return false;
    }
    const FieldsRead<Values> read = readFields<Values>(
        *content, kReverbFileFields, [](auto& io, auto& r) { reverbPresetFields(io, r); });
    if (!read.whole(kReverbFileFields)) {
        return false;
    }
    setReverbQuietly(read.record.reverb, kReverbFileFields);
    rebuild();
    return true;
}

std::string Frmeffects::record() const {
    Values v;
    for (std::size_t i = 0; i < VScroll1.size(); ++i) {
        v.bands[i] = VScroll1[i].value();
    }
    for (std::size_t i = 0; i < hscroll101.size(); ++i) {
        v.reverb[i] = hscroll101[i].value();
    }
    v.eqOn = check_eq.checked();
    v.reverbOn = check_rev3d.checked();
    v.eqName = Combo1.text();
    v.reverbName = Combo2.text();
    return writeFields(v, [](auto& io, auto& r) { recordFields(io, r); });
}

bool Frmeffects::dosave(const fs::path& file) {
    return writeFileAtomically(file, record());
}

void Frmeffects::doload(const fs::path& file) {
    const auto content = readWholeFile(file);
    if (!content) {
        return;
    }
    const FieldsRead<Values> read =
        readFields<Values>(*content, kRecordFields, [](auto& io, auto& r) { recordFields(io, r); });
    if (!read.whole(kRecordFields)) {
        return;
    }
    const Values& v = read.record;
    applying_ = true;
    setBandsQuietly(v.bands);
    setReverbQuietly(v.reverb, kReverbFileFields);
    check_eq.setChecked(v.eqOn);
    check_rev3d.setChecked(v.reverbOn);
    for (auto [box, name] : {std::pair{&Combo1, &v.eqName}, {&Combo2, &v.reverbName}}) {
        box->setListIndex(-1);
        box->setText(*name);
    }
    applying_ = false;
    rebuild();
    showOnConsole();
}

void Frmeffects::docolors() {
    colours.paint(app_.scheme);
}

}  // namespace brevane
