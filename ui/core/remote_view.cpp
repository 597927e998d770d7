#include "ui/core/remote_view.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "core/remote.h"
#include "ui/binding/bindings.h"
#include "ui/core/kept_window_position.h"
#include "ui/core/panel_window_follow.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/slider_row.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

constexpr int kFaderHeight = 110;
constexpr int kPresetColumns = 7;

}  // namespace

RemoteView::RemoteView(Frmremote2& panel, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::WindowStaysOnTopHint) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(style::kMargin, style::kMargin, style::kMargin, style::kMargin);
    root->setSpacing(style::kSpacing);

    // The status, as on the console's displays.
    auto* status = new QFrame(this);
    status->setFrameShape(QFrame::StyledPanel);
    auto* statusLayout = new QVBoxLayout(status);
    statusLayout->setContentsMargins(style::kSpacing, style::kSpacing, style::kSpacing,
                                     style::kSpacing);
    statusLayout->setSpacing(1);
    auto* scenario = bound<QLabel>(panel.scenarioCaption, status);
    scenario->setFont(style::headingFont());
    statusLayout->addWidget(scenario);
    for (Label* line : {&panel.presetsCaption, &panel.alarmCaption, &panel.schedulerCaption,
                        &panel.brainwavesCaption, &panel.mp3Caption}) {
        auto* label = bound<QLabel>(*line, status);
        label->setFont(style::smallFont());
        statusLayout->addWidget(label);
    }
    root->addWidget(status);

    auto* faders = new QHBoxLayout();
    faders->setSpacing(0);
    for (GroupSlider* s :
         {&panel.Master, &panel.Background, &panel.Random, &panel.MP3, &panel.CD, &panel.Bwaves}) {
        faders->addWidget(verticalFader(*s, qtText(s->caption()), kFaderHeight, this));
    }
    root->addLayout(faders);

    auto* scenarioRow = new QHBoxLayout();
    auto* list = new QComboBox(this);
    list->setAccessibleName(qtText(panel.scenarios.caption()));
    bindWidget(panel.scenarios, *list);
    scenarioRow->addWidget(list, 1);
    scenarioRow->addWidget(bound<QPushButton>(panel.loadButton, this));
    scenarioRow->addWidget(bound<QPushButton>(panel.randomButton, this));
    root->addLayout(scenarioRow);

    auto* presets = new QGridLayout();
    presets->setSpacing(2);
    for (int p = 0; p < Frmremote2::kPresetButtons; ++p) {
        CommandButton& control = panel.presetButtons[static_cast<std::size_t>(p)];
        auto* b = bound<QPushButton>(control, this);
        b->setAccessibleName(QStringLiteral("Preset %1").arg(p + 1));
        b->setMinimumWidth(36);
        // The tool tip names the scenario the preset loads.
        followControl(control, *b, [b, &control] { b->setToolTip(qtText(control.toolTip())); });
        b->setToolTip(qtText(control.toolTip()));
        presets->addWidget(b, p / kPresetColumns, p % kPresetColumns);
    }
    root->addLayout(presets);

    auto* visuals = new QHBoxLayout();
    for (CommandButton* b : {&panel.slideshowButton, &panel.slideshowSetButton,
                             &panel.panoramicButton, &panel.panoramicSetButton}) {
        auto* button = bound<QPushButton>(*b, this);
        button->setToolTip(qtText(b->toolTip()));
        visuals->addWidget(button);
    }
    root->addLayout(visuals);
    auto* speed = new QGridLayout();
    sliderRow(*speed, 0, panel.speed, QStringLiteral("Panoramic speed"), this);
    root->addLayout(speed);

    auto* footer = new QHBoxLayout();
    footer->addWidget(bound<QPushButton>(panel.muteButton, this));
    footer->addStretch(1);
    auto* main = bound<QPushButton>(panel.mainButton, this);
    main->setToolTip(qtText(panel.mainButton.toolTip()));
    footer->addWidget(main);
    root->addLayout(footer);

    // Until the user moves it, the remote stands in the lower right corner of the screen.
    adjustSize();
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        const QRect area = screen->availableGeometry();
        move(area.right() - width() - style::kSectionGap * 2,
             area.bottom() - height() - style::kSectionGap * 4);
    }
    followPanelWindow(panel.window, *this, [&panel] { panel.showMain(); });
    followColours(panel.colours, *this);
    keepWindowPosition(*this, panel.position);
}

}  // namespace brevane
