#include "core/application.h"

#include "base/dialogs.h"
#include "base/event_loop.h"
#include "base/random.h"
#include "base/settings_store.h"
#include "engine/sound_engine.h"

namespace brevane {

Application::Application(const Platform& platform)
    : appPath(platform.appPath),
      engine(platform.engine),
      loop(platform.loop),
      dialogs(platform.dialogs),
      settings(platform.settings),
      random(platform.random),
      autostart(platform.autostart),
      launcher(platform.launcher),
      desktop(platform.desktop),
      power(platform.power),
      STARTUP(*this),
      frmmain(*this),
      frmback(*this, backgroundBankConfig(BackgroundBankId::One)),
      frmback2(*this, backgroundBankConfig(BackgroundBankId::Two)),
      frmbackcustom(*this, backgroundBankConfig(BackgroundBankId::Custom)),
      frmrandommain(*this, randomBankConfig(1)),
      frmrandommain2(*this, randomBankConfig(2)),
      frmrandommain3(*this, randomBankConfig(3)),
      frmrandommain4(*this, randomBankConfig(4)),
      frmcustom(*this, randomBankConfig(kCustomRandomBankNumber)),
      Form3(*this, frmrandommain, "Randomize Settings", "Settings4"),
      Form33(*this, frmcustom, "Custom Randomize Settings", {}),
      Frmsoundindent(*this),
      Form2(*this),
      FRMOPTIONS(*this),
      Formtips(*this),
      frmevolve(*this),
      frmbwave(*this),
      frmeffects(*this),
      Alarm(*this),
      Timers(*this),
      frmaddscenariodirectory(*this),
      Frmimport(*this),
      formexportscen(*this),
      frmDemo(*this),
      Frmcolorpicker(*this),
      frmmainmp3(*this),
      frmcd(*this, platform.cdDrives),
      media(*this),
      frmremote2(*this),
      Form1(*this),
      Formfolderselect(*this),
      form999(*this) {}

Application::~Application() = default;

void Application::start() {
    STARTUP.show();
}

void Application::requestExit(ExitKind kind) {
    if (exitRequested_) {
        return;
    }
    exitRequested_ = kind;
    if (onExit) {
        onExit(kind);
    }
}

std::array<RandomBank*, 4> Application::randomBanks() {
    return {&frmrandommain, &frmrandommain2, &frmrandommain3, &frmrandommain4};
}

RandomBank* Application::randomBank(int number) {
    if (number == kCustomRandomBankNumber) {
        return &frmcustom;
    }
    if (number < 1 || number > 4) {
        return nullptr;
    }
    return randomBanks()[static_cast<std::size_t>(number - 1)];
}

std::vector<MixGroupFollower*> Application::groupFollowers() {
    // The console's order: frmback, frmback2, frmremote2, frmrandommain, frmbackcustom,
    // frmcustom, frmrandommain2, frmrandommain3, frmrandommain4. Panels not yet in the
    // program join at their place.
    return {&frmback,   &frmback2,       &frmremote2,     &frmrandommain, &frmbackcustom,
            &frmcustom, &frmrandommain2, &frmrandommain3, &frmrandommain4};
}

std::array<BackgroundBank*, 3> Application::backgroundBanks() {
    return {&frmback, &frmback2, &frmbackcustom};
}

void Application::hideBanks() {
    for (BackgroundBank* bank : backgroundBanks()) {
        bank->window.hide();
    }
    for (RandomBank* bank : randomBanks()) {
        bank->window.hide();
    }
    frmcustom.window.hide();
}

std::vector<PanelColours*> Application::paintedPanels() {
    std::vector<PanelColours*> panels{&frmmain.colours, &frmDemo.colours};
    for (BackgroundBank* bank : backgroundBanks()) {
        panels.push_back(&bank->colours);
    }
    for (RandomBank* bank : randomBanks()) {
        panels.push_back(&bank->colours);
    }
    for (PanelColours* c : {&frmcustom.colours,
                            &Form3.colours,
                            &Form33.colours,
                            &Frmsoundindent.colours,
                            &Form2.colours,
                            &Frmimport.colours,
                            &formexportscen.colours,
                            &FRMOPTIONS.colours,
                            &Formtips.colours,
                            &frmevolve.colours,
                            &frmbwave.colours,
                            &frmeffects.colours,
                            &Alarm.colours,
                            &Timers.colours,
                            &frmaddscenariodirectory.colours,
                            &Frmcolorpicker.colours,
                            &frmmainmp3.colours,
                            &frmmainmp3.frmList.colours,
                            &frmmainmp3.Formmp3adddir.colours,
                            &frmcd.colours,
                            &frmremote2.colours,
                            &Formfolderselect.colours,
                            &Formfolderselect.folderselect.colours}) {
        panels.push_back(c);
    }
    return panels;
}

void Application::applyScheme() {
    frmDemo.docolors();
    frmmain.docolors();
    for (PanelColours* panel : paintedPanels()) {
        if (panel != &frmDemo.colours && panel != &frmmain.colours && panel->open()) {
            panel->docolors();
        }
    }
}

void Application::placeLike(const PanelWindow& target, const PanelWindow& reference) {
    if (placeWindow) {
        placeWindow(target, reference);
    }
}

void Application::keepAwake() {
    power.holdAwake(Alarm.armed == 1 || Timers.changeDue());
}

void Application::unloadPanels() {
    // In turn: Alarm, folderselect, Form1, Form2, Form3, Form33, form999,
    // formexportscen, Formfolderselect, Formmp3adddir, Formtips,
    // frmaddscenariodirectory, frmback, frmback2, frmbackcustom, frmbwave, frmcd,
    // Frmcolorpicker, and the remaining panels. Each bank writes its session copy as it
    // unloads.
    Alarm.unload();
    Form1.unload();
    form999.unload();
    Formfolderselect.unload();
    frmremote2.unload();
    frmaddscenariodirectory.unload();
    frmmain.unload();
    Form3.unload();
    Form33.unload();
    frmback.unload();
    frmback2.unload();
    frmbackcustom.unload();
    frmrandommain.unload();
    frmrandommain2.unload();
    frmrandommain3.unload();
    frmrandommain4.unload();
    frmcustom.unload();
    Form2.unload();
    formexportscen.unload();
    Frmsoundindent.unload();
    frmevolve.unload();
    frmbwave.unload();
    frmeffects.unload();
    frmmainmp3.unload();
    frmcd.unload();
    Timers.unload();
    Frmcolorpicker.unload();
    frmDemo.unload();
    FRMOPTIONS.unload();
    STARTUP.unload();
    // Nothing is due once the panels are gone.
    power.holdAwake(false);
}

}  // namespace brevane
