#include "ui/banks/group_strip.h"

#include <algorithm>
#include <array>

#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QSlider>

#include "ui/binding/bindings.h"
#include "ui/core/panel_window_follow.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

struct Fader {
    Slider* control;
    MixGroup group;
    QString name;
};

QLabel* stripLabel(const QString& text, bool own, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    QFont font = style::smallFont();
    font.setBold(own);
    label->setFont(font);
    label->setAlignment(Qt::AlignHCenter);
    return label;
}

}  // namespace

QGroupBox* groupStrip(const GroupStripSliders& sliders, MixGroup own, QWidget* parent) {
    auto* box = new QGroupBox(QStringLiteral("Mix"), parent);
    auto* grid = new QGridLayout(box);
    style::applySpacing(*grid);
    const std::array<Fader, 6> faders{{
        {&sliders.MP3, MixGroup::MP3, QStringLiteral("MP3")},
        {&sliders.CD, MixGroup::CD, QStringLiteral("CD")},
        {&sliders.Background, MixGroup::Background, QStringLiteral("Background")},
        {&sliders.Random, MixGroup::Random, QStringLiteral("Random")},
        {&sliders.Bwaves, MixGroup::Bwaves, QStringLiteral("Bwaves")},
        {&sliders.Master, MixGroup::Master, QStringLiteral("Master")},
    }};
    // Equal columns, wide enough for the other names and the largest value; the bank's
    // own column, named in bold, may take a little more.
    const QFontMetrics metrics(style::smallFont());
    int columnWidth = metrics.horizontalAdvance(QStringLiteral("0000"));
    for (const Fader& fader : faders) {
        if (fader.group != own) {
            columnWidth = std::max(columnWidth, metrics.horizontalAdvance(fader.name));
        }
    }
    int column = 0;
    for (const Fader& fader : faders) {
        const bool isOwn = fader.group == own;
        grid->setColumnMinimumWidth(column, columnWidth);
        auto* value = stripLabel(QString(), isOwn, box);
        showValue(*fader.control, *value);
        auto* slider = new QSlider(Qt::Vertical, box);
        slider->setMinimumHeight(140);
        slider->setAccessibleName(fader.name);
        bindWidget(*fader.control, *slider);
        grid->addWidget(value, 0, column, Qt::AlignHCenter);
        grid->addWidget(slider, 1, column, Qt::AlignHCenter);
        grid->addWidget(stripLabel(fader.name, isOwn, box), 2, column, Qt::AlignHCenter);
        ++column;
    }
    grid->setRowStretch(1, 1);
    return box;
}

}  // namespace brevane
