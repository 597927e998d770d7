// The random banks' windows with their commands, the custom bank's window and the
// Randomize settings windows, bound to a whole Application on the offscreen platform.

#include <gtest/gtest.h>

#include <QComboBox>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QPushButton>
#include <QSlider>
#include <QTest>

#include "core/app_harness.h"
#include "engine/recording_engine.h"
#include "ui/core/application_views.h"
#include "ui/named_widget.h"
#include "ui/widgets/style.h"

namespace brevane {
namespace {

class RandomBankViewsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        app = &h.startAndLoad();
        views = std::make_unique<ApplicationViews>(*app);
    }
    void TearDown() override { views.reset(); }

    QWidget& windowOf(const PanelWindow& panel) { return *views->windowOf(panel); }

    test::AppHarness<RecordingEngine> h;
    Application* app = nullptr;
    std::unique_ptr<ApplicationViews> views;
};

TEST_F(RandomBankViewsTest, TheCommandRowDrivesTheBankAutoShowsItsColourAndDotsShowSettings) {
    app->frmrandommain.show();
    QWidget& w = windowOf(app->frmrandommain.window);
    app->frmrandommain.slot(15).volume.setValue(200);
    app->frmrandommain.slot(16).volume.setValue(100);
    QTest::mouseClick(test::named<QPushButton>(w, QStringLiteral("Volume bulk 2")), Qt::LeftButton);
    EXPECT_EQ(app->frmrandommain.slot(15).volume.value(), 75);

    QPushButton* autoButton = test::named<QPushButton>(w, QStringLiteral("Auto"));
    ASSERT_NE(autoButton, nullptr);
    // Off shows as an ordinary button of its window, on in the scheme's highlight.
    EXPECT_EQ(autoButton->palette().color(QPalette::Button),
              style::toQColor(app->scheme.buttonBack));
    QTest::mouseClick(autoButton, Qt::LeftButton);
    EXPECT_TRUE(app->frmrandommain3.timerautorandom.enabled());
    EXPECT_EQ(autoButton->palette().color(QPalette::Button), style::toQColor(app->scheme.active));
    // The mirror reaches the other banks' windows too.
    QWidget& w2 = windowOf(app->frmrandommain2.window);
    EXPECT_TRUE(test::named<QPushButton>(w2, QStringLiteral("Auto"))->isChecked());
    QTest::mouseClick(autoButton, Qt::LeftButton);
    EXPECT_FALSE(app->frmrandommain3.timerautorandom.enabled());
    EXPECT_EQ(autoButton->palette().color(QPalette::Button),
              style::toQColor(app->scheme.buttonBack));

    // "..." shows the settings window, which sets the period and closes on Close.
    QTest::mouseClick(test::named<QPushButton>(w, QStringLiteral("Randomize settings")),
                      Qt::LeftButton);
    QWidget& settings = windowOf(app->Form3.window);
    EXPECT_TRUE(settings.isVisible());
    auto* period = test::named<QComboBox>(settings, QStringLiteral("Randomize period"));
    ASSERT_NE(period, nullptr);
    EXPECT_EQ(period->count(), 9);
    period->setCurrentIndex(2);
    EXPECT_EQ(app->Form3.period.text(), "5");
    test::named<QSlider>(settings, QStringLiteral("Frequency threshold"))->setValue(120);
    EXPECT_EQ(app->Form3.threshold.value(), 120);
    QTest::mouseClick(test::named<QPushButton>(settings, QStringLiteral("Close")), Qt::LeftButton);
    EXPECT_FALSE(settings.isVisible());
    EXPECT_EQ(app->frmrandommain.timerautorandom.interval(), 5000);

    QTest::mouseClick(test::named<QPushButton>(w, QStringLiteral("Custom")), Qt::LeftButton);
    EXPECT_TRUE(windowOf(app->frmcustom.window).isVisible());
    EXPECT_FALSE(w.isVisible());
}

TEST_F(RandomBankViewsTest, TheCustomBankHasChoosersAndTheRightButtonRenames) {
    app->frmcustom.show();
    QWidget& w = windowOf(app->frmcustom.window);
    EXPECT_EQ(w.windowTitle(), QStringLiteral("CUSTOM"));
    EXPECT_NE(
        test::named<QPushButton>(w, QStringLiteral("Not Set file"), QStringLiteral("Slot 28")),
        nullptr);
    EXPECT_NE(test::named<QPushButton>(w, QStringLiteral("Reset All")), nullptr);
    // The fixed banks have neither.
    QWidget& fixed = windowOf(app->frmrandommain4.window);
    for (QPushButton* b : fixed.findChildren<QPushButton*>()) {
        EXPECT_FALSE(test::spokenName(*b).endsWith(QStringLiteral(" file")));
    }
    EXPECT_EQ(test::named<QPushButton>(fixed, QStringLiteral("Reset All")), nullptr);

    h.dialogs.answerInput("Blackbird");
    QPushButton* name =
        test::named<QPushButton>(w, QStringLiteral("Not Set"), QStringLiteral("Slot 3"));
    ASSERT_NE(name, nullptr);
    // The right button asks for the row's context menu, which renames.
    const QPoint at = name->rect().center();
    QContextMenuEvent menu(QContextMenuEvent::Mouse, at, name->mapToGlobal(at));
    QCoreApplication::sendEvent(name, &menu);
    EXPECT_EQ(app->frmcustom.slot(3).name.caption(), "Blackbird");
    EXPECT_EQ(name->text(), QStringLiteral("Blackbird"));
    // The row's other widgets take the new name with it.
    EXPECT_NE(test::named<QSlider>(w, QStringLiteral("Blackbird volume")), nullptr);
    EXPECT_NE(test::named<QPushButton>(w, QStringLiteral("Blackbird file")), nullptr);
    EXPECT_TRUE(h.engine.callsOf(RecordingEngine::Op::Play).empty());
}

}  // namespace
}  // namespace brevane
