#include "ui/core/splash_view.h"

#include <QLabel>
#include <QVBoxLayout>

#include "core/startup_splash.h"
#include "ui/core/panel_window_follow.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/style.h"

namespace brevane {

SplashView::SplashView(StartupSplash& splash, QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(40, 30, 40, 30);
    layout->setSpacing(style::kSpacing);
    auto* name = new QLabel(qtText(splash.window.caption()), this);
    name->setFont(style::headingFont());
    name->setAlignment(Qt::AlignCenter);
    auto* note = new QLabel(QStringLiteral("Loading sounds..."), this);
    note->setFont(style::smallFont());
    note->setAlignment(Qt::AlignCenter);
    layout->addWidget(name);
    layout->addWidget(note);
    setFixedSize(sizeHint().expandedTo(QSize(320, 140)));
    followPanelWindow(splash.window, *this, OnClose::Leave);
}

}  // namespace brevane
