#include "ui/banks/random/form3_view.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "banks/random/randomize_settings.h"
#include "ui/binding/bindings.h"
#include "ui/core/kept_window_position.h"
#include "ui/core/panel_window_follow.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/style.h"

namespace brevane {

RandomizeSettingsView::RandomizeSettingsView(RandomizeSettings& panel, QWidget* parent)
    : QWidget(parent, Qt::Window) {
    auto* root = new QVBoxLayout(this);
    style::applySpacing(*root);

    // "Randomize every                 minutes": the list stands in the blank stretch.
    const QString caption = qtText(panel.periodLabel.caption());
    const qsizetype gap = caption.indexOf(QStringLiteral("  "));
    auto* periodRow = new QHBoxLayout();
    periodRow->setSpacing(style::kSpacing);
    periodRow->addWidget(new QLabel(caption.left(gap).trimmed(), this));
    auto* period = new QComboBox(this);
    period->setAccessibleName(QStringLiteral("Randomize period"));
    bindWidget(panel.period, *period);
    periodRow->addWidget(period);
    periodRow->addWidget(new QLabel(caption.mid(gap).trimmed(), this));
    periodRow->addStretch(1);
    root->addLayout(periodRow);

    auto* thresholdRow = new QHBoxLayout();
    thresholdRow->setSpacing(style::kSpacing);
    auto* thresholdLabel = new QLabel(this);
    bindWidget(panel.thresholdLabel, *thresholdLabel);
    thresholdRow->addWidget(thresholdLabel);
    auto* threshold = new QSlider(Qt::Horizontal, this);
    threshold->setMinimumWidth(200);
    threshold->setPageStep(10);
    threshold->setAccessibleName(QStringLiteral("Frequency threshold"));
    bindWidget(panel.threshold, *threshold);
    thresholdRow->addWidget(threshold, 1);
    auto* value = new QLabel(this);
    value->setMinimumWidth(value->fontMetrics().horizontalAdvance(QStringLiteral("245")) + 4);
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    showValue(panel.threshold, *value);
    thresholdRow->addWidget(value);
    root->addLayout(thresholdRow);

    auto* buttons = new QHBoxLayout();
    buttons->addStretch(1);
    auto* close = new QPushButton(this);
    close->setMinimumWidth(90);
    bindWidget(panel.closeButton, *close);
    buttons->addWidget(close);
    root->addLayout(buttons);

    followColours(panel.colours, *this);

    followPanelWindow(panel.window, *this, OnClose::HidePanel);
    keepWindowPosition(*this, panel.position);
}

}  // namespace brevane
