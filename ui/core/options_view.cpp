#include "ui/core/options_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/options_panel.h"
#include "ui/binding/bindings.h"
#include "ui/core/panel_window_follow.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

// A page is shown while its frame control is visible.
QGroupBox* page(Label& frame, QWidget* parent) {
    auto* box = new QGroupBox(qtText(frame.caption()), parent);
    auto* layout = new QVBoxLayout(box);
    layout->setSpacing(style::kSpacing);
    box->setVisible(frame.visible());
    const Control::WatchId id = frame.watch([box, &frame] { box->setVisible(frame.visible()); });
    QObject::connect(box, &QObject::destroyed, [&frame, id] { frame.unwatch(id); });
    return box;
}

void addCheck(CheckBox& control, QGroupBox& box) {
    auto* check = new QCheckBox(&box);
    bindWidget(control, *check);
    box.layout()->addWidget(check);
}

QPushButton* button(CommandButton& control, QWidget* parent) {
    auto* b = new QPushButton(parent);
    b->setMinimumWidth(130);
    bindWidget(control, *b);
    return b;
}

}  // namespace

OptionsView::OptionsView(OptionsPanel& panel, QWidget* parent) : QWidget(parent, Qt::Window) {
    auto* root = new QVBoxLayout(this);
    style::applySpacing(*root);

    auto* body = new QHBoxLayout();
    body->setSpacing(style::kSectionGap);
    auto* pageButtons = new QVBoxLayout();
    pageButtons->setSpacing(style::kSpacing);
    for (CommandButton* control : {&panel.startupOptionsButton, &panel.programOptionsButton,
                                   &panel.soundcardSelectButton, &panel.hotkeysButton}) {
        pageButtons->addWidget(button(*control, this));
    }
    pageButtons->addStretch(1);
    body->addLayout(pageButtons);

    auto* pages = new QVBoxLayout();
    QGroupBox* startup = page(panel.startupFrame, this);
    addCheck(panel.startHidden, *startup);
    addCheck(panel.previousScenario, *startup);
    addCheck(panel.launchOnBoot, *startup);
    static_cast<QVBoxLayout*>(startup->layout())->addStretch(1);
    pages->addWidget(startup);

    QGroupBox* program = page(panel.programFrame, this);
    addCheck(panel.colourWithScenario, *program);
    addCheck(panel.colourOnRemote, *program);
    addCheck(panel.autoHide, *program);
    addCheck(panel.secondMonitor, *program);
    auto* inactivityRow = new QHBoxLayout();
    auto* inactivityLabel = new QLabel(program);
    bindWidget(panel.inactivityLabel, *inactivityLabel);
    inactivityRow->addWidget(inactivityLabel);
    auto* inactivity = new QComboBox(program);
    inactivity->setEditable(true);
    inactivity->setAccessibleName(qtText(panel.inactivityLabel.caption()));
    bindWidget(panel.inactivityTime, *inactivity);
    inactivityRow->addWidget(inactivity);
    inactivityRow->addStretch(1);
    static_cast<QVBoxLayout*>(program->layout())->addLayout(inactivityRow);
    addCheck(panel.confirmExit, *program);
    addCheck(panel.brainwaveWithScenario, *program);
    addCheck(panel.dragContents, *program);
    static_cast<QVBoxLayout*>(program->layout())->addStretch(1);
    pages->addWidget(program);

    QGroupBox* soundcard = page(panel.soundcardFrame, this);
    auto* devices = new QListWidget(soundcard);
    devices->setAccessibleName(QStringLiteral("Sound devices"));
    bindWidget(panel.soundDevices, *devices);
    soundcard->layout()->addWidget(devices);
    auto* current = new QLabel(soundcard);
    bindWidget(panel.currentSoundcard, *current);
    soundcard->layout()->addWidget(current);
    auto* applyRow = new QHBoxLayout();
    applyRow->addStretch(1);
    applyRow->addWidget(button(panel.applyButton, soundcard));
    static_cast<QVBoxLayout*>(soundcard->layout())->addLayout(applyRow);
    pages->addWidget(soundcard);

    QGroupBox* hotkeys = page(panel.hotkeysFrame, this);
    auto* keys = new QListWidget(hotkeys);
    keys->setAccessibleName(QStringLiteral("Keys"));
    keys->setFont(QFont(QStringLiteral("monospace"), style::kBodyPointSize));
    keys->setSelectionMode(QAbstractItemView::NoSelection);
    bindWidget(panel.hotkeys, *keys);
    hotkeys->layout()->addWidget(keys);
    pages->addWidget(hotkeys);

    body->addLayout(pages, 1);
    root->addLayout(body, 1);

    auto* closeRow = new QHBoxLayout();
    closeRow->addStretch(1);
    closeRow->addWidget(button(panel.closeButton, this));
    root->addLayout(closeRow);

    resize(640, 380);
    followColours(panel.colours, *this);
    followPanelWindow(panel.window, *this, OnClose::HidePanel);
}

}  // namespace brevane
