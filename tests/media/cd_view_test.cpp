// The CD player's window bound to a whole Application on a disc image: its buttons
// drive the player, its display shows the place on the disc and reads it aloud.

#include <gtest/gtest.h>

#include <cstdlib>

#include <QPushButton>
#include <QSlider>

#include "core/app_harness.h"
#include "engine/mixer_engine.h"
#include "media/cd_image.h"
#include "ui/core/application_views.h"
#include "ui/core/main_window.h"
#include "ui/named_widget.h"
#include "ui/widgets/lcd_display_widget.h"

namespace brevane {
namespace {

TEST(CdView, ItsButtonsPlayTheDiscAndItsDisplayFollows) {
    test::AppHarness<MixerEngine> h{5, MixerEngine::Output::Offline};
    CdioDrives drives({test::writeCdImage(h.tree.root(), {{440, 3}, {660, 2}})});
    h.cdDrives = &drives;
    Application& app = h.startAndLoad();
    ApplicationViews views(app);
    test::named<QPushButton>(views.mainWindow(), QStringLiteral("CD"))->click();
    QWidget* window = views.windowOf(app.frmcd.window);
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isVisible());

    test::named<QPushButton>(*window, QStringLiteral("Next"))->click();
    test::named<QPushButton>(*window, QStringLiteral("Play"))->click();
    h.engine.render(44100 * 3 / 2);
    h.loop.advance(Frmcd::kClockMs);
    auto* display = window->findChild<LcdDisplayWidget*>();
    ASSERT_NE(display, nullptr);
    EXPECT_TRUE(display->rows()[0].startsWith(QStringLiteral("[02] 00:01")))
        << display->rows()[0].toStdString();
    EXPECT_TRUE(test::spokenName(*display).contains(QStringLiteral("CD Volume: 100 %")));

    test::named<QSlider>(*window, QStringLiteral("Volume"))->setValue(40);
    EXPECT_EQ(app.frmmain.CD.value(), 40);
    test::named<QPushButton>(*window, QStringLiteral("Stop"))->click();
    EXPECT_FALSE(app.frmcd.deck.playing());

    // A picture of the window as it played, for a look by eye.
    if (const char* shots = std::getenv("BREVANE_VIEW_SHOTS")) {
        test::named<QPushButton>(*window, QStringLiteral("Play"))->click();
        h.engine.render(44100 * 5 / 2);
        h.loop.advance(Frmcd::kClockMs);
        window->grab().save(QString::fromLocal8Bit(shots) + QStringLiteral("/cd_player.png"));
    }
}

}  // namespace
}  // namespace brevane
