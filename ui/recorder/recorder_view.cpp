#include "ui/recorder/recorder_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "recorder/recorder_panel.h"
#include "ui/binding/bindings.h"
#include "ui/core/panel_window_follow.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

// A caption beside a field, the field named after it for a screen reader.
template <class W, class C>
W* field(C& control, QWidget* parent, QGridLayout& grid, int row, int column) {
    auto* caption = new QLabel(qtDisplayText(control.caption()) + QLatin1Char(':'), parent);
    auto* widget = bound<W>(control, parent);
    nameAfter(control, *widget);
    caption->setBuddy(widget);
    grid.addWidget(caption, row, column);
    grid.addWidget(widget, row, column + 1);
    return widget;
}

QProgressBar* meter(RangeControl& control, QWidget* parent) {
    auto* bar = bound<QProgressBar>(control, parent);
    bar->setTextVisible(true);
    bar->setFormat(QStringLiteral("%v dB"));
    bar->setMinimumWidth(260);
    return bar;
}

QHBoxLayout* buttonRow(std::initializer_list<CommandButton*> controls, QWidget* parent) {
    auto* row = new QHBoxLayout();
    row->addStretch(1);
    for (CommandButton* c : controls) {
        auto* b = bound<QPushButton>(*c, parent);
        b->setMinimumWidth(96);
        row->addWidget(b);
    }
    return row;
}

}  // namespace

RecorderView::RecorderView(RecorderPanel& panel, QWidget* parent) : QWidget(parent, Qt::Window) {
    auto* root = new QVBoxLayout(this);
    style::applySpacing(*root);

    auto* modes = new QHBoxLayout();
    for (OptionButton* mode : {&panel.renderMode, &panel.recordMode}) {
        modes->addWidget(bound<QRadioButton>(*mode, this));
    }
    modes->addStretch(1);
    root->addLayout(modes);

    // Render.
    auto* render = new QGroupBox(QStringLiteral("Render"), this);
    bindWidget(panel.renderFrame, *render);
    auto* renderGrid = new QGridLayout(render);
    style::applySpacing(*renderGrid);
    auto* scenario = field<QComboBox>(panel.scenarioBox, render, *renderGrid, 0, 0);
    scenario->setMinimumWidth(200);
    auto* length = new QComboBox(render);
    length->setEditable(true);
    bindWidget(panel.lengthBox, *length);
    nameAfter(panel.lengthBox, *length);
    auto* lengthCaption = new QLabel(QStringLiteral("Length:"), render);
    lengthCaption->setBuddy(length);
    renderGrid->addWidget(lengthCaption, 0, 2);
    renderGrid->addWidget(length, 0, 3);
    auto* include = new QHBoxLayout();
    for (CheckBox* c : {&panel.weatherCheck, &panel.nightCheck, &panel.equalizerCheck,
                        &panel.reverbCheck, &panel.brainwavesCheck}) {
        include->addWidget(bound<QCheckBox>(*c, render));
    }
    include->addStretch(1);
    renderGrid->addWidget(new QLabel(QStringLiteral("Include:"), render), 1, 0);
    renderGrid->addLayout(include, 1, 1, 1, 3);
    auto* ends = new QHBoxLayout();
    for (CheckBox* c : {&panel.fadeInCheck, &panel.fadeOutCheck}) {
        ends->addWidget(bound<QCheckBox>(*c, render));
    }
    ends->addStretch(1);
    renderGrid->addWidget(new QLabel(QStringLiteral("Ends:"), render), 2, 0);
    renderGrid->addLayout(ends, 2, 1);
    field<QLineEdit>(panel.seedBox, render, *renderGrid, 2, 2)->setMaximumWidth(120);
    auto* bar = bound<QProgressBar>(panel.progress, render);
    bar->setFormat(QStringLiteral("%p%"));
    renderGrid->addWidget(new QLabel(QStringLiteral("Progress:"), render), 3, 0);
    renderGrid->addWidget(bar, 3, 1, 1, 2);
    auto* left = bound<QLabel>(panel.timeLeftLabel, render);
    left->setFont(style::smallFont());
    renderGrid->addWidget(left, 3, 3);
    renderGrid->addLayout(buttonRow({&panel.renderButton, &panel.cancelButton}, render), 4, 0, 1,
                          4);
    renderGrid->setColumnStretch(1, 1);
    root->addWidget(render);

    // Record.
    auto* record = new QGroupBox(QStringLiteral("Record"), this);
    bindWidget(panel.recordFrame, *record);
    auto* recordGrid = new QGridLayout(record);
    style::applySpacing(*recordGrid);
    int row = 0;
    for (Slider* level : {&panel.levelLeft, &panel.levelRight}) {
        recordGrid->addWidget(new QLabel(qtDisplayText(level->caption()), record), row, 0);
        recordGrid->addWidget(meter(*level, record), row++, 1, 1, 3);
    }
    recordGrid->addWidget(new QLabel(QStringLiteral("Time:"), record), row, 0);
    recordGrid->addWidget(bound<QLabel>(panel.elapsedLabel, record), row, 1);
    recordGrid->addWidget(new QLabel(QStringLiteral("Size:"), record), row, 2);
    recordGrid->addWidget(bound<QLabel>(panel.sizeLabel, record), row++, 3);
    recordGrid->addLayout(buttonRow({&panel.recordButton, &panel.stopButton}, record), row, 0, 1,
                          4);
    recordGrid->setColumnStretch(1, 1);
    recordGrid->setColumnStretch(3, 1);
    root->addWidget(record);

    // The file.
    auto* output = new QGroupBox(QStringLiteral("File"), this);
    auto* outputGrid = new QGridLayout(output);
    style::applySpacing(*outputGrid);
    field<QComboBox>(panel.formatBox, output, *outputGrid, 0, 0)->setMinimumWidth(140);
    outputGrid->setAlignment(outputGrid->itemAtPosition(0, 1)->widget(), Qt::AlignLeft);
    auto* file = field<QLineEdit>(panel.fileBox, output, *outputGrid, 1, 0);
    file->setMinimumWidth(360);
    outputGrid->addWidget(bound<QPushButton>(panel.browseButton, output), 1, 2);
    outputGrid->setColumnStretch(1, 1);
    root->addWidget(output);

    auto* status = bound<QLabel>(panel.statusLabel, this);
    status->setWordWrap(true);
    status->setFont(style::smallFont());
    root->addWidget(status);
    root->addStretch(1);
    root->addLayout(buttonRow({&panel.closeButton}, this));

    giveMnemonics(*this);
    resize(620, 0);
    followPanelWindow(panel.window, *this, [&panel] { panel.close(); });
}

}  // namespace brevane
