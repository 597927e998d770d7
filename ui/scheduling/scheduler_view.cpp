#include "ui/scheduling/scheduler_view.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStorageInfo>
#include <QTreeView>
#include <QVBoxLayout>

#include "scheduling/scheduler_panel.h"
#include "ui/binding/bindings.h"
#include "ui/core/kept_window_position.h"
#include "ui/core/panel_window_follow.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

QPushButton* button(CommandButton& control, QWidget* parent, const QString& name = {}) {
    auto* b = new QPushButton(parent);
    bindWidget(control, *b);
    if (!name.isEmpty()) {
        b->setAccessibleName(name);
    }
    return b;
}

QLabel* label(Label& control, QWidget* parent) {
    auto* l = new QLabel(parent);
    bindWidget(control, *l);
    return l;
}

// A page's foot: its own commands on the left, Close on the right.
QHBoxLayout* foot(std::initializer_list<QPushButton*> commands, QPushButton* close) {
    auto* row = new QHBoxLayout();
    for (QPushButton* b : commands) {
        row->addWidget(b);
    }
    row->addStretch(1);
    row->addWidget(close);
    return row;
}

// A page of the window, shown while its view is the panel's.
QVBoxLayout* pageLayout(Control& view, QWidget& page) {
    bindWidget(view, page);
    auto* layout = new QVBoxLayout(&page);
    layout->setContentsMargins(0, 0, 0, 0);
    return layout;
}

QWidget* plainPage(SchedulerPanel& panel, QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* layout = pageLayout(panel.plainView, *page);
    auto* text = new QLabel(
        QStringLiteral("The scenario changes only when you change it. Choose a mode above to "
                       "change it at chosen times of the day, or every few minutes from a "
                       "playlist; the schedule runs whether this window is open or not."),
        page);
    text->setWordWrap(true);
    layout->addWidget(text);
    layout->addStretch(1);
    layout->addLayout(foot({}, button(panel.closePlainButton, page)));
    return page;
}

QWidget* timeTablePage(SchedulerPanel& panel, QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* layout = pageLayout(panel.timeTable, *page);
    auto* grid = new QGridLayout();
    grid->setHorizontalSpacing(style::kSpacing);
    const QFont small = style::smallFont();
    const auto heading = [&](const QString& text, int column) {
        auto* h = new QLabel(text, page);
        h->setFont(small);
        grid->addWidget(h, 0, column);
    };
    heading(QStringLiteral("Scenario"), 2);
    heading(QStringLiteral("Time (HH:MM:SS)"), 4);
    for (int k = 0; k < SchedulerPanel::kRows; ++k) {
        ScheduleRow& row = panel.rows[static_cast<std::size_t>(k)];
        const int r = k + 1;
        const QString number = QString::number(r);
        auto* n = new QLabel(number, page);
        n->setFont(small);
        grid->addWidget(n, r, 0);
        auto* enabled = new QCheckBox(page);
        bindWidget(row.enabled, *enabled);
        enabled->setAccessibleName(QStringLiteral("Enable this timer %1").arg(number));
        grid->addWidget(enabled, r, 1);
        auto* scenario = new QLineEdit(page);
        bindWidget(row.scenario, *scenario);
        scenario->setAccessibleName(QStringLiteral("Scenario %1").arg(number));
        scenario->setMinimumWidth(scenario->fontMetrics().horizontalAdvance(QLatin1Char('M')) * 16);
        grid->addWidget(scenario, r, 2);
        auto* browse =
            button(row.browse, page, QStringLiteral("Choose the scenario %1").arg(number));
        browse->setFixedWidth(browse->fontMetrics().horizontalAdvance(QStringLiteral("...")) +
                              4 * style::kSpacing);
        grid->addWidget(browse, r, 3);
        auto* time = new QLineEdit(page);
        bindWidget(row.time, *time);
        time->setAccessibleName(QStringLiteral("Time %1").arg(number));
        time->setPlaceholderText(QStringLiteral("HH:MM:SS"));
        time->setFixedWidth(time->fontMetrics().horizontalAdvance(QStringLiteral("00:00:000")) +
                            2 * style::kSpacing);
        grid->addWidget(time, r, 4);
    }
    grid->setColumnStretch(2, 1);
    layout->addLayout(grid);
    auto* hint = new QLabel(
        QStringLiteral("A timer changes the scenario every day when the clock shows its time "
                       "exactly, to the second, in 24-hour form (07:30:00)."),
        page);
    hint->setWordWrap(true);
    hint->setFont(small);
    layout->addWidget(hint);
    layout->addStretch(1);
    layout->addLayout(foot({button(panel.loadScheduleButton, page, QStringLiteral("Load schedule")),
                            button(panel.saveScheduleButton, page, QStringLiteral("Save schedule")),
                            button(panel.resetButton, page)},
                           button(panel.closeTableButton, page)));
    return page;
}

QWidget* playlistPage(SchedulerPanel& panel, QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* layout = pageLayout(panel.playlistView, *page);

    auto* name = new QHBoxLayout();
    auto* nameCaption = new QLabel(QStringLiteral("Current Playlist:"), page);
    name->addWidget(nameCaption);
    auto* nameValue = label(panel.playlistName, page);
    nameValue->setAccessibleName(QStringLiteral("Current Playlist:"));
    QFont bold = nameValue->font();
    bold.setBold(true);
    nameValue->setFont(bold);
    name->addWidget(nameValue, 1);
    layout->addLayout(name);

    auto* body = new QHBoxLayout();
    auto* list = new QListWidget(page);
    list->setAccessibleName(QStringLiteral("Scenarios of the playlist"));
    list->setToolTip(QStringLiteral("Double-click a scenario to play it now"));
    bindWidget(panel.ScenarioDisplayList, *list);
    QObject::connect(list, &QListWidget::itemDoubleClicked, list,
                     [&panel, list](QListWidgetItem* item) { panel.playEntry(list->row(item)); });
    body->addWidget(list, 1);
    auto* side = new QVBoxLayout();
    side->addWidget(button(panel.addFileButton, page, QStringLiteral("Add a scenario file")));
    side->addWidget(
        button(panel.addFolderButton, page, QStringLiteral("Add a folder of scenarios")));
    side->addWidget(button(panel.upButton, page, QStringLiteral("Move up")));
    side->addWidget(button(panel.downButton, page, QStringLiteral("Move down")));
    side->addWidget(button(panel.deleteButton, page, QStringLiteral("Remove from the list")));
    side->addWidget(button(panel.clearButton, page, QStringLiteral("Clear the list")));
    side->addStretch(1);
    body->addLayout(side);
    layout->addLayout(body, 1);

    auto* every = new QHBoxLayout();
    every->addWidget(new QLabel(QStringLiteral("Change scenario every"), page));
    auto* interval = new QComboBox(page);
    interval->setAccessibleName(QStringLiteral("Change scenario every"));
    bindWidget(panel.Combo1, *interval);
    every->addWidget(interval);
    every->addSpacing(style::kSectionGap);
    auto* random = new QCheckBox(page);
    bindWidget(panel.Check9, *random);
    every->addWidget(random);
    every->addStretch(1);
    layout->addLayout(every);

    layout->addLayout(
        foot({button(panel.loadPlaylistButton, page, QStringLiteral("Load playlist")),
              button(panel.savePlaylistButton, page, QStringLiteral("Save playlist"))},
             button(panel.closePlaylistButton, page)));
    return page;
}

}  // namespace

SchedulerView::SchedulerView(SchedulerPanel& panel, QWidget* parent) : QWidget(parent, Qt::Window) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(style::kSectionGap, style::kSectionGap, style::kSectionGap,
                             style::kMargin);
    root->setSpacing(style::kSectionGap);

    auto* modeBox = new QGroupBox(QStringLiteral("Mode"), this);
    auto* modes = new QVBoxLayout(modeBox);
    for (OptionButton* mode : {&panel.Optionex1, &panel.Optionex2, &panel.Optionex3}) {
        auto* radio = new QRadioButton(modeBox);
        bindWidget(*mode, *radio);
        modes->addWidget(radio);
    }
    root->addWidget(modeBox);
    root->addWidget(plainPage(panel, this), 1);
    root->addWidget(timeTablePage(panel, this), 1);
    root->addWidget(playlistPage(panel, this), 1);
    setMinimumWidth(560);
    // The window takes the size of the page on show, once the page has changed.
    for (Control* page : {&panel.plainView, &panel.timeTable, &panel.playlistView}) {
        const Control::WatchId id = page->watch([this] {
            QMetaObject::invokeMethod(
                this, [this] { adjustSize(); }, Qt::QueuedConnection);
        });
        QObject::connect(this, &QObject::destroyed, [page, id] { page->unwatch(id); });
    }

    followColours(panel.colours, *this);

    followPanelWindow(panel.window, *this, [&panel] { panel.closeWindow(); });
    keepWindowPosition(*this, panel.position);
}

ScenarioFolderView::ScenarioFolderView(ScenarioFolderPanel& panel, QWidget* parent)
    : QWidget(parent, Qt::Window) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(style::kSectionGap, style::kSectionGap, style::kSectionGap,
                             style::kMargin);
    root->setSpacing(style::kSpacing);

    auto* folderCaption = label(panel.folderLabel, this);
    root->addWidget(folderCaption);
    // The mounted volumes stand where drives would: a quick way to another disk.
    auto* places = new QComboBox(this);
    places_ = places;
    places->setAccessibleName(QStringLiteral("Volume"));
    places->addItem(QDir::homePath(), QDir::homePath());
    root->addWidget(places);
    auto* path = new QLineEdit(this);
    path->setAccessibleName(qtText(panel.folderLabel.caption()));
    bindWidget(panel.Dir1, *path);
    root->addWidget(path);

    auto* model = new QFileSystemModel(this);
    folders_ = model;
    model->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
    auto* tree = new QTreeView(this);
    tree->setAccessibleName(qtText(panel.folderLabel.caption()));
    tree->setModel(model);
    for (int column = 1; column < model->columnCount(); ++column) {
        tree->hideColumn(column);
    }
    tree->header()->hide();
    tree->setMinimumHeight(220);
    root->addWidget(tree, 1);
    // The tree shows the panel's folder; a click in it sets the folder.
    const auto showFolder = [&panel, tree, model] {
        const QModelIndex at = model->index(qtText(panel.Dir1.text()));
        if (at.isValid() && tree->currentIndex() != at) {
            tree->setCurrentIndex(at);
            tree->scrollTo(at);
        }
    };
    const Control::WatchId id = panel.Dir1.watch(showFolder);
    // The model reads folders as they open; the path shows once its folders are in.
    QObject::connect(model, &QFileSystemModel::directoryLoaded, tree, showFolder);
    QObject::connect(tree, &QObject::destroyed, [&panel, id] { panel.Dir1.unwatch(id); });
    QObject::connect(tree, &QTreeView::clicked, tree, [&panel, model](const QModelIndex& at) {
        panel.Dir1.setText(textFromQt(model->filePath(at)));
    });
    QObject::connect(places, &QComboBox::activated, places, [&panel, places](int i) {
        panel.Dir1.setText(textFromQt(places->itemData(i).toString()));
    });

    root->addWidget(label(panel.filesLabel, this));
    auto* files = new QListWidget(this);
    files->setAccessibleName(qtText(panel.filesLabel.caption()));
    files->setMaximumHeight(140);
    bindWidget(panel.File1, *files);
    root->addWidget(files);

    auto* buttons = new QHBoxLayout();
    buttons->addStretch(1);
    auto* ok = button(panel.okButton, this);
    ok->setDefault(true);
    buttons->addWidget(ok);
    buttons->addWidget(button(panel.cancelButton, this));
    root->addLayout(buttons);
    resize(460, 560);

    followColours(panel.colours, *this);

    followPanelWindow(panel.window, *this, OnClose::HidePanel);
    keepWindowPosition(*this, panel.position);
}

void ScenarioFolderView::showEvent(QShowEvent* event) {
    if (folders_->rootPath() != QStringLiteral("/")) {
        folders_->setRootPath(QStringLiteral("/"));
        for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
            if (volume.isValid() && volume.isReady() && !volume.isReadOnly()) {
                places_->addItem(volume.rootPath(), volume.rootPath());
            }
        }
    }
    QWidget::showEvent(event);
}

}  // namespace brevane
