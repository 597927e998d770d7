#include "ui/core/main_window.h"

#include <QApplication>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>
#include <QSystemTrayIcon>
#include <QTimer>
#include <QVBoxLayout>

#include "core/frmmain.h"
#include "ui/binding/bindings.h"
#include "ui/core/panel_window_follow.h"
#include "ui/core/tray_view.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/lcd_display_widget.h"
#include "ui/widgets/slider_row.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

// Every status display has the same width, so the two columns of them line up: a
// caption column wide enough for "Equalizer" and a blank, and room for a name.
constexpr int kLcdColumns = 30;
constexpr int kLcdCaptionColumns = 10;
constexpr int kFaderHeight = 190;
constexpr int kButtonWidth = 112;

QPushButton* button(CommandButton& control, QWidget* parent, int minWidth = kButtonWidth) {
    auto* b = new QPushButton(parent);
    b->setMinimumWidth(minWidth);
    bindWidget(control, *b);
    return b;
}

QPushButton* button(ToggleButton& control, QWidget* parent, int minWidth = kButtonWidth) {
    auto* b = new QPushButton(parent);
    b->setMinimumWidth(minWidth);
    bindWidget(control, *b);
    return b;
}

QGroupBox* group(const QString& title, QWidget* parent) {
    auto* box = new QGroupBox(title, parent);
    return box;
}

QWidget* mixSection(Frmmain& console, QWidget* parent) {
    auto* mix = group(QStringLiteral("Mix"), parent);
    auto* layout = new QVBoxLayout(mix);
    style::applySpacing(*layout);
    auto* faders = new QHBoxLayout();
    faders->setSpacing(style::kSpacing);
    faders->addWidget(verticalFader(console.Master, QStringLiteral("Master"), kFaderHeight, mix));
    faders->addWidget(
        verticalFader(console.Background, QStringLiteral("Background"), kFaderHeight, mix));
    faders->addWidget(verticalFader(console.Random, QStringLiteral("Random"), kFaderHeight, mix));
    faders->addWidget(verticalFader(console.MP3, QStringLiteral("MP3"), kFaderHeight, mix));
    faders->addWidget(verticalFader(console.CD, QStringLiteral("CD"), kFaderHeight, mix));
    faders->addWidget(verticalFader(console.Bwaves, QStringLiteral("Bwaves"), kFaderHeight, mix));
    layout->addLayout(faders, 1);
    layout->addSpacing(style::kSpacing);
    // Master Stop silences everything: a warm border sets it apart from the panel
    // buttons without shouting, in every scheme (ui/widgets/style.cpp).
    auto* stop = new QPushButton(mix);
    stop->setObjectName(QStringLiteral("masterStop"));
    bindWidget(console.masterStopButton, *stop);
    layout->addWidget(stop);
    return mix;
}

QWidget* statusSection(Frmmain& console, QWidget* parent) {
    auto* status = group(QStringLiteral("Status"), parent);
    auto* grid = new QGridLayout(status);
    style::applySpacing(*grid);
    grid->setHorizontalSpacing(style::kSectionGap);
    // The scenario side on the left, the clock and the generators on the right.
    LcdDisplay* const placed[4][2] = {{&console.LCD1, &console.LCD2},
                                      {&console.LCD5, &console.LCD3},
                                      {&console.LCD7, &console.LCD4},
                                      {&console.LCD8, &console.LCD6}};
    for (int row = 0; row < 4; ++row) {
        for (int col = 0; col < 2; ++col) {
            grid->addWidget(
                new LcdDisplayWidget(*placed[row][col], LcdDisplayWidget::Layout::Captioned,
                                     kLcdColumns, kLcdCaptionColumns, status),
                row, col);
        }
    }
    // The displays spread over the height the faders give the row.
    for (int row = 0; row < 4; ++row) {
        grid->setRowStretch(row, 1);
    }
    return status;
}

QWidget* scenarioSection(Frmmain& console, QWidget* parent) {
    auto* box = group(QStringLiteral("Scenarios"), parent);
    auto* layout = new QVBoxLayout(box);
    style::applySpacing(*layout);

    auto* list = new QListWidget(box);
    list->setAccessibleName(QStringLiteral("Scenarios"));
    list->setMinimumHeight(72);
    bindWidget(console.scenarioList, *list);
    // A double click, or Enter, on a scenario loads it, as the Load button does.
    QObject::connect(list, &QListWidget::itemActivated, list, [&console] {
        if (console.loadButton.enabled()) {
            console.loadButton.click();
        }
    });
    layout->addWidget(list, 1);

    auto* information = new QPlainTextEdit(box);
    information->setAccessibleName(QStringLiteral("Scenario information"));
    information->setFixedHeight(84);
    bindWidget(console.information, *information);
    layout->addWidget(information);

    auto* files = new QHBoxLayout();
    files->setSpacing(style::kSpacing);
    files->addWidget(button(console.loadButton, box, 0));
    files->addWidget(button(console.saveButton, box, 0));
    files->addWidget(button(console.saveAsButton, box, 0));
    files->addWidget(button(console.deleteButton, box, 0));
    layout->addLayout(files);
    // Scenarios travel as packages; the information belongs to the one selected.
    auto* more = new QHBoxLayout();
    more->setSpacing(style::kSpacing);
    more->addWidget(button(console.importButton, box, 0));
    more->addWidget(button(console.exportButton, box, 0));
    more->addStretch(1);
    more->addWidget(button(console.infoButton, box, 0));
    layout->addLayout(more);
    return box;
}

// The pointer over a preset button shows its scenario on the preset line.
class PresetHover final : public QObject {
  public:
    PresetHover(Frmmain& console, int index, QWidget& button)
        : QObject(&button), console_(console), index_(index) {
        button.installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Enter) {
            console_.presetHover(index_);
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    Frmmain& console_;
    int index_;
};

QWidget* presetSection(Frmmain& console, QWidget* parent) {
    auto* box = group(QStringLiteral("Presets"), parent);
    auto* layout = new QVBoxLayout(box);
    style::applySpacing(*layout);
    auto* grid = new QGridLayout();
    grid->setSpacing(style::kSpacing);
    const int rows = Frmmain::kPresetButtons / 2;
    for (int p = 0; p < Frmmain::kPresetButtons; ++p) {
        QPushButton* preset = button(console.presetButtons[static_cast<std::size_t>(p)], box);
        preset->setAccessibleDescription(QStringLiteral("Preset %1").arg(p + 1));
        withoutMnemonic(*preset);
        new PresetHover(console, p, *preset);
        grid->addWidget(preset, p % rows, p / rows);
    }
    layout->addLayout(grid);
    layout->addStretch(1);
    auto* commands = new QHBoxLayout();
    commands->setSpacing(style::kSpacing);
    commands->addWidget(button(console.presetAssignButton, box, 0));
    commands->addWidget(button(console.presetClearButton, box, 0));
    commands->addWidget(button(console.presetSaveAsButton, box, 0));
    commands->addWidget(button(console.presetLoadButton, box, 0));
    layout->addLayout(commands);
    return box;
}

QWidget* panelSection(Frmmain& console, QWidget* parent) {
    auto* box = group(QStringLiteral("Panels"), parent);
    auto* layout = new QVBoxLayout(box);
    style::applySpacing(*layout);
    auto* grid = new QGridLayout();
    grid->setSpacing(style::kSpacing);
    CommandButton* const panels[][2] = {
        {&console.background1Button, &console.randomButton},
        {&console.background2Button, &console.identifyButton},
        {&console.customBackgroundButton, &console.brainwavesButton},
        {&console.evolveButton, &console.effectsButton},
        {&console.mp3Button, &console.cdButton},
    };
    int row = 0;
    for (const auto& pair : panels) {
        grid->addWidget(button(*pair[0], box), row, 0);
        grid->addWidget(button(*pair[1], box), row, 1);
        ++row;
    }
    layout->addLayout(grid);
    layout->addStretch(1);

    // The clock's panels: the schedule, and the alarm with its settings beside it.
    auto* clock = new QGridLayout();
    clock->setSpacing(style::kSpacing);
    clock->addWidget(button(console.scheduleButton, box, 0), 0, 0, 1, 3);
    clock->addWidget(button(console.alarmOnButton, box, 0), 1, 0);
    clock->addWidget(button(console.alarmOffButton, box, 0), 1, 1);
    QPushButton* settings = button(console.alarmSettingsButton, box, 0);
    settings->setMaximumWidth(settings->fontMetrics().horizontalAdvance(QStringLiteral("....")) +
                              4 * style::kSpacing);
    clock->addWidget(settings, 1, 2);
    layout->addLayout(clock);
    return box;
}

// Without a notification area a hidden console has no way back, as the tray's "Show
// Main" is not there to click. On such a desktop the console goes to the task bar
// instead whenever it hides with no other window of the program left on screen, and
// coming back from the task bar shows it again.
class ConsoleWithoutTray final : public QObject {
  public:
    ConsoleWithoutTray(Frmmain& console, QMainWindow& window)
        : QObject(&window), console_(console), panel_(console.window), window_(window) {
        window_.installEventFilter(this);
        watchId_ = panel_.watch([this] { follow(); });
    }
    ~ConsoleWithoutTray() override { panel_.unwatch(watchId_); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        // Only a window coming back from the task bar brings the console back.
        if (watched == &window_ && event->type() == QEvent::WindowStateChange &&
            (static_cast<QWindowStateChangeEvent*>(event)->oldState() & Qt::WindowMinimized) &&
            !window_.isMinimized() && window_.isVisible() && !panel_.visible()) {
            panel_.show();
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    void follow() {
        if (panel_.visible()) {
            if (window_.isMinimized()) {
                window_.showNormal();
            }
            return;
        }
        // Once the change has settled: the panel taking the console's place shows after
        // the console hides, and a start hides the console just after showing it. A
        // window manager still busy with the hide may map the window again as a normal
        // one, which would look like the user bringing it back.
        QTimer::singleShot(MainWindow::kTaskBarSettleMs, this, [this] { minimizeIfAlone(); });
    }

    void minimizeIfAlone() {
        // The quit hides the console on its way out; that is no time to show it.
        if (panel_.visible() || console_.quitting() || QSystemTrayIcon::isSystemTrayAvailable()) {
            return;
        }
        for (QWidget* other : QApplication::topLevelWidgets()) {
            const Qt::WindowType type = other->windowType();
            if (other != &window_ && other->isVisible() &&
                (type == Qt::Window || type == Qt::Dialog)) {
                // Another window (the first run's tips) stands for the program for now;
                // when it goes, the console must not go with it.
                QTimer::singleShot(MainWindow::kTaskBarSettleMs, this,
                                   [this] { minimizeIfAlone(); });
                return;
            }
        }
        window_.showMinimized();
    }

    Frmmain& console_;
    PanelWindow& panel_;
    QMainWindow& window_;
    Control::WatchId watchId_ = 0;
};

}  // namespace

MainWindow::MainWindow(Frmmain& console, QWidget* parent) : QMainWindow(parent) {
    auto* central = new QWidget(this);
    // One grid for the whole face, so the sections line up in columns: the mix above
    // the scenarios, the displays above the presets and the panel buttons.
    auto* root = new QGridLayout(central);
    root->setContentsMargins(style::kSectionGap, style::kSectionGap, style::kSectionGap,
                             style::kMargin);
    root->setHorizontalSpacing(style::kSectionGap);
    root->setVerticalSpacing(style::kSectionGap);
    root->addWidget(mixSection(console, central), 0, 0);
    root->addWidget(statusSection(console, central), 0, 1, 1, 2);
    root->addWidget(scenarioSection(console, central), 1, 0);
    root->addWidget(presetSection(console, central), 1, 1);
    root->addWidget(panelSection(console, central), 1, 2);
    root->setRowStretch(1, 1);
    root->setColumnStretch(0, 3);
    root->setColumnStretch(1, 3);
    root->setColumnStretch(2, 2);

    // The console's own settings on the left, leaving it on the right.
    auto* footer = new QHBoxLayout();
    footer->setSpacing(style::kSpacing);
    footer->addWidget(button(console.optionsButton, central, 0));
    footer->addWidget(button(console.colorsButton, central, 0));
    footer->addStretch(1);
    footer->addWidget(button(console.recButton, central, 0));
    footer->addWidget(button(console.helpButton, central, 0));
    footer->addSpacing(style::kSectionGap);
    footer->addWidget(button(console.switchToControllerButton, central));
    root->addLayout(footer, 2, 0, 1, 3);

    setCentralWidget(central);
    // Closing the console is the program's quit, which the quit routine handles.
    followColours(console.colours, *this);
    followPanelWindow(console.window, *this, OnClose::Leave);
    new ConsoleWithoutTray(console, *this);

    // A right click on the console offers the tray menu: on a desktop without a
    // notification area it is the only way to Mute and the tray's other entries.
    auto* menu = new QMenu(this);
    connect(menu, &QMenu::aboutToShow, menu,
            [menu, &console] { populateMenu(*menu, console.mnutray); });
    central->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(central, &QWidget::customContextMenuRequested, menu,
            [menu, central](const QPoint& at) { menu->popup(central->mapToGlobal(at)); });
}

}  // namespace brevane
