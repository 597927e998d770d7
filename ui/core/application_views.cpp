#include "ui/core/application_views.h"

#include <QApplication>

#include "core/application.h"
#include "ui/banks/background/background_bank_view.h"
#include "ui/banks/random/form3_view.h"
#include "ui/banks/random/identify_view.h"
#include "ui/banks/random/random_bank_view.h"
#include "ui/banks/random/select_sounds_view.h"
#include "ui/binding/bindings.h"
#include "ui/brainwaves/bwave_view.h"
#include "ui/core/hotkeys_binding.h"
#include "ui/core/main_window.h"
#include "ui/core/options_view.h"
#include "ui/core/remote_view.h"
#include "ui/core/splash_view.h"
#include "ui/core/tips_view.h"
#include "ui/core/tray_view.h"
#include "ui/fx/effects_view.h"
#include "ui/media/cd_view.h"
#include "ui/media/mp3_view.h"
#include "ui/scenarios/export_view.h"
#include "ui/scenarios/import_view.h"
#include "ui/scheduling/alarm_view.h"
#include "ui/scheduling/scheduler_view.h"
#include "ui/shell/colour_picker_view.h"
#include "ui/shell/demo_view.h"
#include "ui/visuals/visual_views.h"
#include "ui/weather/evolve_view.h"
#include "ui/widgets/program_icon.h"

namespace brevane {

namespace {

// The visuals' inactivity watch measures from the user's last key or pointer movement
// anywhere in the program.
class InputWatch final : public QObject {
  public:
    explicit InputWatch(Application& app) : app_(app) {}
    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
            case QEvent::KeyPress:
            case QEvent::MouseMove:
            case QEvent::MouseButtonPress:
            case QEvent::Wheel:
                app_.noteInput();
                break;
            default:
                break;
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    Application& app_;
};

}  // namespace

ApplicationViews::ApplicationViews(Application& app) : app_(app) {
    QApplication::setWindowIcon(programIcon());
    mainWindow_ = std::make_unique<MainWindow>(app.frmmain);
    tray_ = std::make_unique<TrayView>(app.frmmain);
    byPanel_[&app.frmmain.window] = mainWindow_.get();
    add(app.STARTUP.window, std::make_unique<SplashView>(app.STARTUP));
    for (BackgroundBank* bank : app.backgroundBanks()) {
        add(bank->window, std::make_unique<BackgroundBankView>(*bank));
    }
    for (RandomBank* bank : app.randomBanks()) {
        add(bank->window, std::make_unique<RandomBankView>(*bank));
    }
    add(app.frmcustom.window, std::make_unique<RandomBankView>(app.frmcustom));
    add(app.Form3.window, std::make_unique<RandomizeSettingsView>(app.Form3));
    add(app.Form33.window, std::make_unique<RandomizeSettingsView>(app.Form33));
    add(app.Frmsoundindent.window, std::make_unique<IdentifyView>(app.Frmsoundindent));
    add(app.Form2.window, std::make_unique<SelectSoundsView>(app.Form2));
    add(app.FRMOPTIONS.window, std::make_unique<OptionsView>(app.FRMOPTIONS));
    add(app.frmevolve.window, std::make_unique<EvolveView>(app.frmevolve));
    add(app.frmbwave.window, std::make_unique<BwaveView>(app.frmbwave));
    add(app.frmeffects.window, std::make_unique<EffectsView>(app.frmeffects));
    auto player = std::make_unique<Mp3View>(app.frmmainmp3);
    auto list = std::make_unique<Mp3ListView>(app.frmmainmp3.frmList, *player);
    add(app.frmmainmp3.window, std::move(player));
    add(app.frmmainmp3.frmList.window, std::move(list));
    add(app.frmmainmp3.Formmp3adddir.window,
        std::make_unique<Mp3FolderView>(app.frmmainmp3.Formmp3adddir));
    add(app.frmcd.window, std::make_unique<CdView>(app.frmcd));
    add(app.Alarm.window, std::make_unique<AlarmView>(app.Alarm));
    add(app.Timers.window, std::make_unique<SchedulerView>(app.Timers));
    add(app.frmaddscenariodirectory.window,
        std::make_unique<ScenarioFolderView>(app.frmaddscenariodirectory));
    add(app.Frmimport.window, std::make_unique<ImportView>(app.Frmimport));
    add(app.formexportscen.window, std::make_unique<ExportView>(app.formexportscen));
    add(app.Formtips.window, std::make_unique<TipsView>(app.Formtips));
    add(app.frmDemo.window, std::make_unique<DemoView>(app.frmDemo));
    add(app.Frmcolorpicker.window, std::make_unique<ColourPickerView>(app.Frmcolorpicker));
    add(app.frmremote2.window, std::make_unique<RemoteView>(app.frmremote2));
    add(app.Form1.window, std::make_unique<SlideshowView>(app, app.Form1));
    add(app.form999.window, std::make_unique<PanoramicView>(app, app.form999));
    add(app.Formfolderselect.window,
        std::make_unique<SlideshowSelectorView>(app, app.Formfolderselect));
    add(app.Formfolderselect.folderselect.window,
        std::make_unique<SlideshowPickerView>(app.Formfolderselect.folderselect));
    inputWatch_ = std::make_unique<InputWatch>(app);
    qApp->installEventFilter(inputWatch_.get());
    bindProgramHotkeys(app, *mainWindow_);
    // Every window answers Alt with its buttons' letters, so it works from the keyboard.
    for (QWidget* window : windows()) {
        giveMnemonics(*window);
    }

    app.placeWindow = [this](const PanelWindow& target, const PanelWindow& reference) {
        QWidget* to = windowOf(target);
        QWidget* from = windowOf(reference);
        if (to != nullptr && from != nullptr) {
            to->move(from->pos());
        }
    };
}

ApplicationViews::~ApplicationViews() {
    app_.placeWindow = nullptr;
    qApp->removeEventFilter(inputWatch_.get());
}

void ApplicationViews::add(const PanelWindow& panel, std::unique_ptr<QWidget> window) {
    byPanel_[&panel] = window.get();
    windows_.push_back(std::move(window));
}

std::vector<QWidget*> ApplicationViews::windows() {
    std::vector<QWidget*> all{mainWindow_.get()};
    for (const auto& window : windows_) {
        all.push_back(window.get());
    }
    return all;
}

QWidget* ApplicationViews::windowOf(const PanelWindow& panel) const {
    const auto it = byPanel_.find(&panel);
    return it == byPanel_.end() ? nullptr : it->second;
}

}  // namespace brevane
