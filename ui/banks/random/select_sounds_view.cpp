#include "ui/banks/random/select_sounds_view.h"

#include <QFileSystemModel>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>
#include <QTreeView>
#include <QVBoxLayout>

#include "banks/random/select_sounds.h"
#include "ui/binding/bindings.h"
#include "ui/core/kept_window_position.h"
#include "ui/core/panel_window_follow.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

// The folder tree: the mode's own sound folder, shown as its one top row, and the
// folders under it. A click is a change of folder, which the panel judges; the tree
// follows wherever the panel then stands, and takes the mode's folder at each opening.
QTreeView* folderTree(SelectSoundsPanel& panel, QWidget* parent) {
    auto* model = new QFileSystemModel(parent);
    model->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
    auto* tree = new QTreeView(parent);
    tree->setModel(model);
    const auto rootAtMode = [&panel, model, tree] {
        const QString root = qtPath(panel.modeRoot());
        model->setRootPath(qtPath(panel.modeRoot().parent_path()));
        const QModelIndex top = model->index(qtPath(panel.modeRoot().parent_path()));
        if (tree->rootIndex() != top) {
            tree->setRootIndex(top);
        }
        // Only the mode's folder shows under the sound banks' folder.
        for (int row = 0; row < model->rowCount(top); ++row) {
            const QModelIndex child = model->index(row, 0, top);
            tree->setRowHidden(row, top, model->filePath(child) != root);
        }
        tree->expand(model->index(root));
    };
    QObject::connect(model, &QFileSystemModel::directoryLoaded, tree, rootAtMode);
    const Control::WatchId shown = panel.window.watch([&panel, rootAtMode] {
        if (panel.window.visible()) {
            rootAtMode();
        }
    });
    QObject::connect(tree, &QObject::destroyed, [&panel, shown] { panel.window.unwatch(shown); });
    rootAtMode();
    for (int column = 1; column < model->columnCount(); ++column) {
        tree->hideColumn(column);
    }
    tree->header()->hide();
    tree->setMinimumSize(220, 260);
    tree->setAccessibleName(qtText(panel.folderView.caption()));
    QObject::connect(tree, &QTreeView::clicked, tree, [&panel, model](const QModelIndex& index) {
        panel.folderView.setText(model->filePath(index).toStdString());
    });
    const auto follow = [&panel, tree, model] {
        const QModelIndex index = model->index(qtText(panel.folderView.text()));
        if (index.isValid() && tree->currentIndex() != index) {
            tree->setCurrentIndex(index);
        }
    };
    const Control::WatchId id = panel.folderView.watch(follow);
    QObject::connect(tree, &QObject::destroyed, [&panel, id] { panel.folderView.unwatch(id); });
    follow();
    return tree;
}

QListWidget* list(ListBox& control, QWidget* parent) {
    auto* widget = bound<QListWidget>(control, parent);
    widget->setMinimumSize(200, 260);
    widget->setAccessibleName(qtText(control.caption()));
    return widget;
}

QPushButton* button(CommandButton& control, QWidget* parent) {
    return bound<QPushButton>(control, parent);
}

}  // namespace

SelectSoundsView::SelectSoundsView(SelectSoundsPanel& panel, QWidget* parent)
    : QWidget(parent, Qt::Window) {
    auto* root = new QVBoxLayout(this);
    style::applySpacing(*root);

    auto* grid = new QGridLayout();
    grid->setHorizontalSpacing(style::kSpacing);
    grid->addWidget(folderTree(panel, this), 1, 0);

    // Several files may be chosen at once for "+ Selected"; a double click adds one.
    QListWidget* files = list(panel.fileView, this);
    files->setSelectionMode(QAbstractItemView::ExtendedSelection);
    QObject::connect(files, &QListWidget::itemSelectionChanged, files, [&panel, files] {
        panel.selectedFiles.clear();
        for (int row = 0; row < files->count(); ++row) {
            if (files->item(row)->isSelected()) {
                panel.selectedFiles.push_back(row);
            }
        }
    });
    QObject::connect(files, &QListWidget::itemDoubleClicked, files,
                     [&panel, files](QListWidgetItem* item) { panel.addFile(files->row(item)); });
    grid->addWidget(files, 1, 1);

    auto* adders = new QVBoxLayout();
    adders->addStretch(1);
    adders->addWidget(button(panel.addAll, this));
    adders->addWidget(button(panel.addSelected, this));
    adders->addStretch(1);
    grid->addLayout(adders, 1, 2);

    grid->addWidget(bound<QLabel>(panel.listCaption, this), 0, 3);
    QListWidget* chosen = list(panel.fileNames, this);
    QObject::connect(
        chosen, &QListWidget::itemDoubleClicked, chosen,
        [&panel, chosen](QListWidgetItem* item) { panel.removeRow(chosen->row(item)); });
    grid->addWidget(chosen, 1, 3);

    auto* moves = new QVBoxLayout();
    QPushButton* up = button(panel.moveUp, this);
    up->setIcon(up->style()->standardIcon(QStyle::SP_ArrowUp));
    up->setAccessibleName(qtText(panel.moveUp.toolTip()));
    moves->addWidget(up);
    moves->addWidget(button(panel.moveDown, this));
    moves->addWidget(button(panel.remove, this));
    moves->addWidget(button(panel.clear, this));
    moves->addStretch(1);
    grid->addLayout(moves, 1, 4);
    grid->setRowStretch(1, 1);
    root->addLayout(grid, 1);

    auto* foot = new QHBoxLayout();
    auto* note = bound<QLabel>(panel.note, this);
    note->setWordWrap(true);
    foot->addWidget(note, 1);
    foot->addWidget(button(panel.loadFiles, this));
    foot->addWidget(button(panel.close, this));
    root->addLayout(foot);

    followColours(panel.colours, *this);
    followPanelWindow(panel.window, *this, OnClose::HidePanel);
    keepWindowPosition(*this, panel.position);
}

}  // namespace brevane
