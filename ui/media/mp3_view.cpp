#include "ui/media/mp3_view.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "media/mp3_player.h"
#include "ui/binding/bindings.h"
#include "ui/core/kept_window_position.h"
#include "ui/core/panel_window_follow.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/dialog_layout.h"
#include "ui/widgets/lcd_display_widget.h"
#include "ui/widgets/slider_row.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

constexpr int kLcdColumns = 34;

}  // namespace

Mp3View::Mp3View(Frmmainmp3& panel, QWidget* parent) : QWidget(parent, Qt::Window) {
    auto* root = panelLayout(this);
    root->addWidget(
        new LcdDisplayWidget(panel.LCD1, LcdDisplayWidget::Layout::Lines, kLcdColumns, 0, this));

    auto* grid = new QGridLayout();
    grid->setHorizontalSpacing(style::kSectionGap);
    sliderRow(*grid, 0, panel.Slider1, qtText(panel.Slider1.caption()), this);
    sliderRow(*grid, 1, panel.hscroll1, qtText(panel.hscroll1.caption()), this);
    grid->setColumnStretch(1, 1);
    root->addLayout(grid);

    auto* transport = new QHBoxLayout();
    transport->setSpacing(style::kSpacing);
    for (CommandButton* b :
         {&panel.command4, &panel.cmdplay, &panel.command7, &panel.Command3, &panel.COMMAND5}) {
        transport->addWidget(bound<QPushButton>(*b, this));
    }
    root->addLayout(transport);

    auto* options = new QHBoxLayout();
    options->addWidget(bound<QCheckBox>(panel.optrnd, this));
    options->addWidget(bound<QCheckBox>(panel.Check1, this));
    options->addStretch(1);
    options->addWidget(bound<QPushButton>(panel.closeButton, this));
    root->addLayout(options);

    followPanelWindow(panel.window, *this, [&panel] { panel.closeButton.click(); });
    followColours(panel.colours, *this);
    keepWindowPosition(*this, panel.position);
}

Mp3ListView::Mp3ListView(FrmList& panel, QWidget& player, QWidget* parent)
    : QWidget(parent, Qt::Window) {
    auto* root = panelLayout(this);
    auto* list = new QListWidget(this);
    list->setAccessibleName(qtText(panel.window.caption()));
    list->setMinimumHeight(180);
    bindWidget(panel.List1, *list);
    QObject::connect(list, &QListWidget::itemDoubleClicked, list,
                     [&panel, list](QListWidgetItem* item) { panel.activate(list->row(item)); });
    root->addWidget(list, 1);

    auto* buttons = new QHBoxLayout();
    buttons->setSpacing(style::kSpacing);
    for (CommandButton* b : {&panel.fileButton, &panel.dirButton, &panel.selButton,
                             &panel.allButton, &panel.loadButton, &panel.saveButton}) {
        QPushButton* button = bound<QPushButton>(*b, this);
        button->setToolTip(qtText(b->toolTip()));
        buttons->addWidget(button);
    }
    root->addLayout(buttons);

    followPanelWindow(panel.window, *this, OnClose::HidePanel);
    followColours(panel.colours, *this);
    // Docked: the list opens under the player, as wide as it.
    const Control::WatchId id = panel.window.watch([this, &player, &panel] {
        if (panel.window.visible()) {
            const QRect frame = player.frameGeometry();
            move(frame.left(), frame.bottom() + 1);
            resize(player.width(), height());
        }
    });
    QObject::connect(this, &QObject::destroyed, [&panel, id] { panel.window.unwatch(id); });
}

Mp3FolderView::Mp3FolderView(Mp3FolderPanel& panel, QWidget* parent) : QWidget(parent, Qt::Window) {
    auto* root = panelLayout(this);
    root->addWidget(bound<QLabel>(panel.folderLabel, this));
    auto* folderRow = new QHBoxLayout();
    auto* path = new QLineEdit(this);
    path->setAccessibleName(qtText(panel.folderLabel.caption()));
    bindWidget(panel.Dir1, *path);
    folderRow->addWidget(path, 1);
    folderRow->addWidget(bound<QPushButton>(panel.browseButton, this));
    root->addLayout(folderRow);

    root->addWidget(bound<QLabel>(panel.filesLabel, this));
    auto* files = new QListWidget(this);
    files->setAccessibleName(qtText(panel.filesLabel.caption()));
    bindWidget(panel.File1, *files);
    root->addWidget(files, 1);

    addDialogButtons(*root, panel.okButton, panel.cancelButton, this);
    resize(420, 360);

    followPanelWindow(panel.window, *this, OnClose::HidePanel);
    followColours(panel.colours, *this);
    keepWindowPosition(*this, panel.position);
}

}  // namespace brevane
