#include "ui/banks/random/form3_view.h"

#include <algorithm>

#include <QComboBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMoveEvent>
#include <QPushButton>
#include <QScreen>
#include <QSlider>
#include <QVBoxLayout>

#include "banks/random/randomize_settings.h"
#include "ui/binding/bindings.h"
#include "ui/core/panel_window_follow.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {
// The kept position is in twips, as the settings have always held it.
constexpr int kTwipsPerPixel = 15;
}  // namespace

RandomizeSettingsView::RandomizeSettingsView(RandomizeSettings& panel, QWidget* parent)
    : QWidget(parent, Qt::Window), panel_(panel) {
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

    followPanelWindow(panel.window, *this, OnClose::HidePanel);
}

void RandomizeSettingsView::showEvent(QShowEvent* event) {
    if (panel_.position) {
        QPoint at(panel_.position->left / kTwipsPerPixel, panel_.position->top / kTwipsPerPixel);
        // A place kept from another screen, or crept down past this one, comes back
        // inside it.
        if (const QScreen* screen = QGuiApplication::screenAt(at) != nullptr
                                        ? QGuiApplication::screenAt(at)
                                        : QGuiApplication::primaryScreen()) {
            const QRect area = screen->availableGeometry();
            at.setX(std::clamp(at.x(), area.left(), std::max(area.left(), area.right() - width())));
            at.setY(std::clamp(at.y(), area.top(), std::max(area.top(), area.bottom() - height())));
        }
        move(at);
    }
    QWidget::showEvent(event);
}

void RandomizeSettingsView::moveEvent(QMoveEvent* event) {
    if (isVisible()) {
        panel_.position =
            RandomizeSettings::Position{pos().x() * kTwipsPerPixel, pos().y() * kTwipsPerPixel};
    }
    QWidget::moveEvent(event);
}

}  // namespace brevane
