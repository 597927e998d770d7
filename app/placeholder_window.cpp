#include "placeholder_window.h"

#include <QLabel>
#include <QVBoxLayout>

#include "ui/binding/bindings.h"
#include "ui/widgets/style.h"

namespace brevane {

PlaceholderPanel::PlaceholderPanel(EventLoop& loop) : tick(loop, 1000) {
    clock.setCaption(loop.timeOfDay());
    tick.onTick = [this, &loop] { clock.setCaption(loop.timeOfDay()); };
    tick.setEnabled(true);
}

PlaceholderWindow::PlaceholderWindow(PlaceholderPanel& panel) {
    setWindowTitle(QStringLiteral("Brevane"));
    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    style::applySpacing(*layout);

    auto* name = new QLabel(QStringLiteral("Brevane"), central);
    name->setFont(style::headingFont());
    name->setAlignment(Qt::AlignCenter);
    auto* clock = new QLabel(central);
    clock->setAlignment(Qt::AlignCenter);
    bindWidget(panel.clock, *clock);

    layout->addStretch();
    layout->addWidget(name);
    layout->addWidget(clock);
    layout->addStretch();
    setCentralWidget(central);
    resize(420, 240);
}

}  // namespace brevane
