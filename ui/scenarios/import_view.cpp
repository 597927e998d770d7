#include "ui/scenarios/import_view.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "scenarios/import_panel.h"
#include "ui/binding/bindings.h"
#include "ui/core/panel_window_follow.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/style.h"

namespace brevane {

ImportView::ImportView(ImportPanel& panel, QWidget* parent) : QWidget(parent, Qt::Window) {
    auto* root = new QVBoxLayout(this);
    style::applySpacing(*root);
    auto* intro = bound<QLabel>(panel.intro, this);
    intro->setWordWrap(true);
    root->addWidget(intro);

    // The bar follows the unpacking as it goes: the unpacking runs on this thread, so
    // each step is painted before the next.
    auto* bar = new QProgressBar(this);
    bar->setRange(0, 100);
    bar->setAccessibleName(qtText(panel.progress.caption()));
    const auto follow = [&panel, bar] {
        if (bar->value() != panel.progress.value()) {
            bar->setValue(panel.progress.value());
            bar->repaint();
        }
    };
    const Control::WatchId id = panel.progress.watch(follow);
    QObject::connect(bar, &QObject::destroyed, [&panel, id] { panel.progress.unwatch(id); });
    follow();
    root->addWidget(bar);

    auto* buttons = new QHBoxLayout();
    buttons->addStretch(1);
    buttons->addWidget(bound<QPushButton>(panel.importButton, this));
    buttons->addWidget(bound<QPushButton>(panel.closeButton, this));
    root->addLayout(buttons);

    setMinimumWidth(420);
    followColours(panel.colours, *this);
    followPanelWindow(panel.window, *this, OnClose::HidePanel);
}

}  // namespace brevane
