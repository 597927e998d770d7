// The background bank window bound to its panel: a row's widgets drive the slot, the
// limit arrows step by 5, and the custom bank's extra buttons show only there.

#include "ui/banks/background/background_bank_view.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QTest>

#include "background_harness.h"
#include "ui/named_widget.h"

namespace brevane {
namespace {

using test::named;

class BackgroundBankViewTest : public ::testing::Test, public test::BackgroundBankFixture {};

TEST_F(BackgroundBankViewTest, ARowDrivesItsSlotAndFollowsIt) {
    BackgroundBank& bank = app->frmback;
    BackgroundBankView view(bank);
    bank.show();
    ASSERT_TRUE(view.isVisible());

    // A row's widgets are named by the sound it shows.
    auto* on = named<QCheckBox>(view, QStringLiteral("Heavy rain"));
    auto* volume = named<QSlider>(view, QStringLiteral("Heavy rain volume"));
    ASSERT_NE(on, nullptr);
    ASSERT_NE(volume, nullptr);
    EXPECT_FALSE(volume->isEnabled());
    QTest::mouseClick(on, Qt::LeftButton, {}, QPoint(4, on->height() / 2));
    EXPECT_TRUE(bank.slot(4).on.checked());
    EXPECT_TRUE(volume->isEnabled());
    EXPECT_EQ(h.engine.playingCount(), 1u);

    // The drift moves the slider on screen.
    bank.slot(4).volume.setValue(20);
    h.loop.advance(3000);
    EXPECT_EQ(volume->value(), 17);

    // One arrow step of the upper limit's bar: 5 down from 250.
    auto* upperBar = named<QScrollBar>(view, QStringLiteral("Heavy rain upper limit bar"));
    auto* upperText = named<QLineEdit>(view, QStringLiteral("Heavy rain upper limit"));
    ASSERT_NE(upperBar, nullptr);
    ASSERT_NE(upperText, nullptr);
    upperBar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(bank.slot(4).highLimitBar.value(), 5);
    EXPECT_EQ(upperText->text(), QStringLiteral("245"));
}

TEST_F(BackgroundBankViewTest, OnlyTheCustomBankShowsChoosersAndResetAll) {
    BackgroundBankView fixed(app->frmback2);
    BackgroundBankView custom(app->frmbackcustom);
    app->frmback2.show();
    app->frmbackcustom.show();
    for (auto [view, shown] : {std::pair{&fixed, false}, std::pair{&custom, true}}) {
        const QString firstSound = view->findChildren<QCheckBox*>().front()->text();
        auto* chooser = named<QPushButton>(*view, firstSound + QStringLiteral(" file"));
        ASSERT_NE(chooser, nullptr);
        EXPECT_EQ(chooser->isVisible(), shown);
        bool resetShown = false;
        for (QPushButton* b : view->findChildren<QPushButton*>()) {
            resetShown = resetShown || (b->text() == QStringLiteral("Reset All") && b->isVisible());
        }
        EXPECT_EQ(resetShown, shown);
    }
    // Rows showing the same name say their slot.
    EXPECT_NE(named<QCheckBox>(custom, QStringLiteral("Not Set"), QStringLiteral("Slot 9")),
              nullptr);
}

}  // namespace
}  // namespace brevane
