#include "ui/core/tips_view.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/tips_panel.h"
#include "ui/binding/bindings.h"
#include "ui/core/panel_window_follow.h"
#include "ui/widgets/style.h"

namespace brevane {

TipsView::TipsView(TipsPanel& panel, QWidget* parent) : QWidget(parent, Qt::Window) {
    auto* root = new QVBoxLayout(this);
    style::applySpacing(*root);

    auto* number = new QLabel(this);
    number->setFont(style::smallFont());
    bindWidget(panel.tipNumber, *number);
    root->addWidget(number);

    auto* text = new QLabel(this);
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    text->setMinimumHeight(140);
    bindWidget(panel.tipText, *text);
    root->addWidget(text, 1);

    auto* buttons = new QHBoxLayout();
    buttons->addStretch(1);
    for (CommandButton* control : {&panel.nextButton, &panel.closeButton}) {
        auto* b = new QPushButton(this);
        b->setMinimumWidth(90);
        bindWidget(*control, *b);
        buttons->addWidget(b);
    }
    root->addLayout(buttons);

    resize(440, 260);
    followColours(panel.colours, *this);
    followPanelWindow(panel.window, *this, OnClose::HidePanel);
}

}  // namespace brevane
