#include "ui/banks/random/identify_view.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "banks/random/identify_panel.h"
#include "ui/binding/bindings.h"
#include "ui/core/kept_window_position.h"
#include "ui/core/panel_window_follow.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

QListWidget* list(ListBox& control, QWidget* parent) {
    auto* widget = new QListWidget(parent);
    widget->setMinimumWidth(170);
    widget->setAccessibleName(qtText(control.caption()));
    bindWidget(control, *widget);
    return widget;
}

}  // namespace

IdentifyView::IdentifyView(IdentifyPanel& panel, QWidget* parent) : QWidget(parent, Qt::Window) {
    auto* root = new QVBoxLayout(this);
    style::applySpacing(*root);

    auto* lists = new QGridLayout();
    lists->setHorizontalSpacing(style::kSpacing);
    lists->addWidget(new QLabel(qtText(panel.soundPlaying.caption()), this), 0, 0);
    lists->addWidget(new QLabel(qtText(panel.location.caption()), this), 0, 1);
    lists->addWidget(list(panel.soundPlaying, this), 1, 0);
    lists->addWidget(list(panel.location, this), 1, 1);
    lists->setRowStretch(1, 1);
    root->addLayout(lists, 1);

    auto* buttons = new QHBoxLayout();
    buttons->setSpacing(style::kSpacing);
    for (CommandButton& control : panel.bankButtons) {
        auto* b = new QPushButton(this);
        bindWidget(control, *b);
        buttons->addWidget(b);
    }
    auto* custom = new QPushButton(this);
    bindWidget(panel.customButton, *custom);
    buttons->addWidget(custom);
    buttons->addStretch(1);
    auto* clear = new QPushButton(this);
    bindWidget(panel.clearList, *clear);
    buttons->addWidget(clear);
    root->addLayout(buttons);

    resize(460, 420);
    followColours(panel.colours, *this);
    followPanelWindow(panel.window, *this, OnClose::HidePanel);
    keepWindowPosition(*this, panel.position);
}

}  // namespace brevane
