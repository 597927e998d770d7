#include "ui/media/cd_view.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "media/cd_player.h"
#include "ui/binding/bindings.h"
#include "ui/core/kept_window_position.h"
#include "ui/core/panel_window_follow.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/lcd_display_widget.h"
#include "ui/widgets/slider_row.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

constexpr int kLcdColumns = 30;

}  // namespace

CdView::CdView(Frmcd& panel, QWidget* parent) : QWidget(parent, Qt::Window) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(style::kSectionGap, style::kSectionGap, style::kSectionGap,
                             style::kMargin);
    root->setSpacing(style::kSpacing);
    root->addWidget(
        new LcdDisplayWidget(panel.LCD1, LcdDisplayWidget::Layout::Lines, kLcdColumns, 0, this));

    auto* grid = new QGridLayout();
    grid->setHorizontalSpacing(style::kSectionGap);
    const QString driveCaption = qtText(panel.Combo1.caption());
    auto* driveLabel = new QLabel(driveCaption, this);
    auto* drive = new QComboBox(this);
    drive->setAccessibleName(driveCaption);
    bindWidget(panel.Combo1, *drive);
    driveLabel->setBuddy(drive);
    grid->addWidget(driveLabel, 0, 0);
    grid->addWidget(drive, 0, 1, 1, 2);
    sliderRow(*grid, 1, panel.hscroll1, qtText(panel.hscroll1.caption()), this);
    grid->setColumnStretch(1, 1);
    root->addLayout(grid);

    auto* transport = new QHBoxLayout();
    transport->setSpacing(style::kSpacing);
    for (CommandButton* b : {&panel.cmdprevious, &panel.cmdplay, &panel.cmdpause, &panel.cmdstop,
                             &panel.cmdnext, &panel.cmdeject}) {
        transport->addWidget(bound<QPushButton>(*b, this));
    }
    root->addLayout(transport);

    auto* bottom = new QHBoxLayout();
    bottom->addStretch(1);
    bottom->addWidget(bound<QPushButton>(panel.closeButton, this));
    root->addLayout(bottom);

    followPanelWindow(panel.window, *this, [&panel] { panel.closeButton.click(); });
    followColours(panel.colours, *this);
    keepWindowPosition(*this, panel.position);
}

}  // namespace brevane
