// The console, random bank, Identify, options and tips windows bound to a whole
// Application: they follow their panels, edits reach the controls, and rows line up.

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSlider>
#include <QTest>

#include "core/app_harness.h"
#include "engine/recording_engine.h"
#include "ui/banks/random/identify_view.h"
#include "ui/banks/random/random_bank_view.h"
#include "ui/core/application_views.h"
#include "ui/core/main_window.h"
#include "ui/platform/qt_text.h"

namespace brevane {
namespace {

using Op = RecordingEngine::Op;

class ViewsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        app = &h.startAndLoad();
        views = std::make_unique<ApplicationViews>(*app);
    }
    void TearDown() override { views.reset(); }

    QWidget& bankWindow(int n) { return *views->windowOf(app->randomBank(n)->window); }

    template <class W>
    W* findByName(QWidget& root, const QString& accessibleName) {
        for (W* w : root.findChildren<W*>()) {
            if (w->accessibleName() == accessibleName) {
                return w;
            }
        }
        return nullptr;
    }

    QPushButton* buttonWithText(QWidget& root, const QString& text) {
        for (QPushButton* b : root.findChildren<QPushButton*>()) {
            if (b->text() == text) {
                return b;
            }
        }
        return nullptr;
    }

    test::AppHarness<RecordingEngine> h;
    Application* app = nullptr;
    std::unique_ptr<ApplicationViews> views;
};

TEST_F(ViewsTest, WindowsFollowTheirPanels) {
    EXPECT_TRUE(views->mainWindow().isVisible());
    EXPECT_FALSE(bankWindow(1).isVisible());
    EXPECT_FALSE(views->windowOf(app->STARTUP.window)->isVisible());

    QTest::mouseClick(buttonWithText(views->mainWindow(), QStringLiteral("Random")),
                      Qt::LeftButton);
    EXPECT_TRUE(bankWindow(1).isVisible());
    EXPECT_EQ(bankWindow(1).windowTitle(), QStringLiteral("BANK1"));

    // Closing a bank's window hides the panel; the bank lives on.
    bankWindow(1).close();
    EXPECT_FALSE(app->frmrandommain.window.visible());
    EXPECT_TRUE(app->frmrandommain.Timer2.enabled());

    QTest::mouseClick(buttonWithText(views->mainWindow(), QStringLiteral("Identify")),
                      Qt::LeftButton);
    QWidget& identify = *views->windowOf(app->Frmsoundindent.window);
    EXPECT_TRUE(identify.isVisible());
    EXPECT_EQ(identify.windowTitle(), QStringLiteral("Identify Playing Sounds"));
}

TEST_F(ViewsTest, ClickingASoundNamePreviewsItAndSlidersReachTheBank) {
    app->frmrandommain2.show();
    QWidget& w = bankWindow(2);
    QPushButton* name = buttonWithText(w, QStringLiteral("Wasp"));
    ASSERT_NE(name, nullptr);
    h.engine.clearCalls();
    QTest::mouseClick(name, Qt::LeftButton);
    ASSERT_EQ(h.engine.callsOf(Op::Play).size(), 1u);
    EXPECT_EQ(h.engine.callsOf(Op::Play)[0].a, app->frmrandommain2.slot(2).sample);

    QSlider* frequency = findByName<QSlider>(w, QStringLiteral("Wasp frequency"));
    ASSERT_NE(frequency, nullptr);
    frequency->setValue(200);
    EXPECT_EQ(app->frmrandommain2.slot(2).frequency.value(), 200);
    // And the other way: the bank's slider shows on the widget.
    app->frmrandommain2.slot(2).volume.setValue(33);
    EXPECT_EQ(findByName<QSlider>(w, QStringLiteral("Wasp volume"))->value(), 33);

    // The strip's Random slider is the bank's maxvol, which reaches the console.
    findByName<QSlider>(w, QStringLiteral("Random"))->setValue(64);
    EXPECT_EQ(app->frmmain.Random.value(), 64);
}

TEST_F(ViewsTest, BankRowsLineUpAcrossBothColumns) {
    app->frmrandommain3.show();
    QWidget& w = bankWindow(3);
    for (const QSize size : {w.sizeHint(), QSize(1400, 900)}) {
        w.resize(size);
        QTest::qWait(0);
        QCoreApplication::processEvents();
        for (int row = 1; row <= 14; ++row) {
            const auto centreY = [&](QWidget* x) { return x->mapTo(&w, x->rect().center()).y(); };
            RandomBank& bank = app->frmrandommain3;
            QPushButton* left = buttonWithText(w, qtText(bank.slot(row).name.caption()));
            QPushButton* right = buttonWithText(w, qtText(bank.slot(row + 14).name.caption()));
            ASSERT_NE(left, nullptr);
            ASSERT_NE(right, nullptr);
            auto* leftVolume = findByName<QSlider>(
                w, qtText(bank.slot(row).name.caption()) + QStringLiteral(" volume"));
            ASSERT_NE(leftVolume, nullptr);
            EXPECT_NEAR(centreY(left), centreY(right), 2) << "row " << row;
            EXPECT_NEAR(centreY(left), centreY(leftVolume), 2) << "row " << row;
            EXPECT_LT(left->mapTo(&w, QPoint(0, 0)).x(), right->mapTo(&w, QPoint(0, 0)).x());
            // Names are not cut short.
            EXPECT_GE(left->width(), left->fontMetrics().horizontalAdvance(left->text()));
        }
    }
}

TEST_F(ViewsTest, TheConsoleShowsMasterAsTheFadeRaisesIt) {
    app->SavedMasterLevel = 12;
    h.loop.advance(Frmmain::kIntroFadeMs * 20);
    QSlider* master = findByName<QSlider>(views->mainWindow(), QStringLiteral("Master"));
    ASSERT_NE(master, nullptr);
    EXPECT_EQ(master->value(), 12);
    bool readout = false;
    for (QLabel* label : views->mainWindow().findChildren<QLabel*>()) {
        readout = readout || label->text() == QStringLiteral("12");
    }
    EXPECT_TRUE(readout);
}

TEST_F(ViewsTest, TheIdentifyWindowListsFiringsAndItsBankButtonsPlaceTheBank) {
    app->Frmsoundindent.window.show();
    QWidget& w = *views->windowOf(app->Frmsoundindent.window);
    app->frmrandommain4.fire(12);
    h.loop.advance(IdentifyPanel::kRefreshMs);
    const auto lists = w.findChildren<QListWidget*>();
    ASSERT_EQ(lists.size(), 2);
    EXPECT_EQ(lists[0]->count(), 2);
    EXPECT_EQ(lists[0]->item(1)->text(), QStringLiteral("Treewind gust"));

    views->mainWindow().move(140, 90);
    QTest::mouseClick(buttonWithText(w, QStringLiteral("Bank 4")), Qt::LeftButton);
    EXPECT_FALSE(views->mainWindow().isVisible());
    EXPECT_TRUE(bankWindow(4).isVisible());
    EXPECT_EQ(bankWindow(4).pos(), QPoint(140, 90));

    QTest::mouseClick(buttonWithText(w, QStringLiteral("Clear List")), Qt::LeftButton);
    EXPECT_EQ(lists[0]->count(), 1);
    EXPECT_EQ(lists[1]->item(0)->text(), QStringLiteral("Waiting..."));
}

TEST_F(ViewsTest, TheOptionsWindowShowsOnePageAtATimeAndItsControlsReachThePanel) {
    QTest::mouseClick(buttonWithText(views->mainWindow(), QStringLiteral("Options")),
                      Qt::LeftButton);
    QWidget& options = *views->windowOf(app->FRMOPTIONS.window);
    ASSERT_TRUE(options.isVisible());
    const auto shownPages = [&options] {
        QStringList titles;
        for (const QGroupBox* page : options.findChildren<QGroupBox*>()) {
            if (page->isVisible()) {
                titles << page->title();
            }
        }
        return titles;
    };
    EXPECT_EQ(shownPages(), QStringList{QStringLiteral("Startup Options")});
    QTest::mouseClick(buttonWithText(options, QStringLiteral("Soundcard Select")), Qt::LeftButton);
    EXPECT_EQ(shownPages(), QStringList{QStringLiteral("Soundcard Select")});

    auto* devices = findByName<QListWidget>(options, QStringLiteral("Sound devices"));
    ASSERT_NE(devices, nullptr);
    ASSERT_EQ(devices->count(), app->engine.driverCount());
    devices->setCurrentRow(devices->count() - 1);
    QTest::mouseClick(buttonWithText(options, QStringLiteral("Apply")), Qt::LeftButton);
    EXPECT_EQ(app->SoundCardIndex, devices->count() - 1);

    QTest::mouseClick(buttonWithText(options, QStringLiteral("Program Options")), Qt::LeftButton);
    QCheckBox* confirm = nullptr;
    for (QCheckBox* box : options.findChildren<QCheckBox*>()) {
        if (box->text() == QStringLiteral("Confirm Exit Application")) {
            confirm = box;
        }
    }
    ASSERT_NE(confirm, nullptr);
    EXPECT_TRUE(confirm->isVisible());
    confirm->click();
    EXPECT_TRUE(app->FRMOPTIONS.confirmExit.checked());
}

TEST_F(ViewsTest, TheTipsWindowWalksTheTipsAndCloses) {
    app->Formtips.show();
    QWidget& tips = *views->windowOf(app->Formtips.window);
    ASSERT_TRUE(tips.isVisible());
    const auto showsText = [&tips](const QString& text) {
        for (const QLabel* label : tips.findChildren<QLabel*>()) {
            if (label->text() == text) {
                return true;
            }
        }
        return false;
    };
    EXPECT_TRUE(showsText(qtText(TipsPanel::kTips[0])));
    QTest::mouseClick(buttonWithText(tips, QStringLiteral("Next Tip")), Qt::LeftButton);
    EXPECT_TRUE(showsText(qtText(TipsPanel::kTips[1])));
    QTest::mouseClick(buttonWithText(tips, QStringLiteral("Close")), Qt::LeftButton);
    EXPECT_FALSE(app->Formtips.window.visible());
    EXPECT_FALSE(tips.isVisible());
}

}  // namespace
}  // namespace brevane
