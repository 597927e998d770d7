// The console, random bank, Identify, options and tips windows, the status displays
// and the tray menu, on the offscreen platform bound to a whole Application: windows
// follow their panels, edits reach the controls, and rows line up.

#include <gtest/gtest.h>

#include <QAbstractSpinBox>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>
#include <QSystemTrayIcon>
#include <QTest>

#include "core/app_harness.h"
#include "engine/recording_engine.h"
#include "ui/core/application_views.h"
#include "ui/core/main_window.h"
#include "ui/core/tray_view.h"
#include "ui/named_widget.h"
#include "ui/platform/qt_text.h"
#include "ui/reads_aloud.h"
#include "ui/widgets/lcd_display_widget.h"
#include "ui/widgets/lcd_font.h"

namespace brevane {
namespace {

using Op = RecordingEngine::Op;

// ---- the display widget on its own ----

TEST(LcdFont, EveryCharacterLightsItsOwnDotsAndTheRestFallBack) {
    // Every printable character but the blank lights something, and no two letters
    // look alike.
    for (char c = '!'; c <= '~'; ++c) {
        const LcdGlyph& g = lcdGlyph(QLatin1Char(c));
        EXPECT_TRUE(std::any_of(g.begin(), g.end(), [](std::uint8_t row) { return row != 0; }))
            << c;
    }
    for (char a = 'A'; a <= 'z'; ++a) {
        for (char b = static_cast<char>(a + 1); b <= 'z'; ++b) {
            EXPECT_NE(lcdGlyph(QLatin1Char(a)), lcdGlyph(QLatin1Char(b))) << a << " " << b;
        }
    }
    // Accents fall back to their letter, anything else to a box.
    EXPECT_EQ(lcdGlyph(QChar(0x00E9)), lcdGlyph(QLatin1Char('e')));
    EXPECT_EQ(lcdGlyph(QChar(0x0009)), lcdGlyph(QChar(0x263C)));
}

TEST(LcdDisplayWidget, CaptionedRowsHoldCaptionAndTextCutToTheGlass) {
    LcdDisplay display;
    display.setLine(1, "Scenario");
    display.setLine(2, "Previous");
    display.setLine(3, "A Very Long Scenario Name Indeed");
    LcdDisplayWidget widget(display, LcdDisplayWidget::Layout::Captioned, 20, 9);
    EXPECT_EQ(widget.rows(), (QStringList{QStringLiteral("Scenario A Very Long"),
                                          QStringLiteral("Previous            ")}));
    // The whole name is one pointer rest away.
    EXPECT_TRUE(widget.toolTip().contains(QStringLiteral("A Very Long Scenario Name Indeed")));

    display.setLine(3, "Rain");
    display.setLine(4, "N/A");
    EXPECT_TRUE(widget.toolTip().isEmpty());

    LcdDisplayWidget lines(display, LcdDisplayWidget::Layout::Lines, 6, 0);
    EXPECT_EQ(lines.rows(), (QStringList{QStringLiteral("Scenar"), QStringLiteral("Previo"),
                                         QStringLiteral("Rain  "), QStringLiteral("N/A   ")}));
}

// The colour at the middle of the glass's left padding, clear of every character.
QColor glassColour(LcdDisplayWidget& widget) {
    widget.resize(widget.sizeHint());
    const QImage image = widget.grab().toImage();
    return image.pixelColor(6, image.height() / 2);
}

TEST(LcdDisplayWidget, TheGlassTakesThePalettesBacklight) {
    LcdDisplay display;
    LcdDisplayWidget widget(display, LcdDisplayWidget::Layout::Captioned, 12, 4);

    const QColor standard = glassColour(widget);
    display.setPalette(LcdPalette::Green);
    EXPECT_EQ(glassColour(widget), lcdLook(LcdPalette::Green).glass);

    // "CUSTOM" lights with the scheme's colours, and without them like the default.
    display.setPalette(LcdPalette::Custom);
    EXPECT_EQ(glassColour(widget), standard);
    display.setColours(LcdColours{0x00336699, 0x00FFFFFF, 0x00000000, 0x00112233});
    EXPECT_EQ(glassColour(widget), QColor(0x99, 0x66, 0x33));

    // Every palette lights its glass differently.
    for (int a = 0; a < 10; ++a) {
        for (int b = a + 1; b < 10; ++b) {
            EXPECT_NE(lcdLook(lcdPaletteFromIndex(a)).glass, lcdLook(lcdPaletteFromIndex(b)).glass);
        }
    }
    EXPECT_EQ(lcdPaletteFromIndex(99), LcdDisplay::kDefaultPalette);
    EXPECT_EQ(lcdPaletteFromIndex(-1), LcdDisplay::kDefaultPalette);
}

// ---- the windows ----

class Views : public ::testing::Test {
  protected:
    void SetUp() override {
        h.writeFile("config/scenarios/Night Harbour.scn", "x");
        app = &h.startAndLoad();
        views = std::make_unique<ApplicationViews>(*app);
    }
    void TearDown() override { views.reset(); }

    QWidget& windowOf(const PanelWindow& panel) { return *views->windowOf(panel); }
    QWidget& bankWindow(int n) { return windowOf(app->randomBank(n)->window); }

    template <class W = QPushButton>
    static W* find(QWidget& root, const QString& name) {
        return test::named<W>(root, name);
    }
    template <class W = QPushButton>
    W* find(const QString& text) {
        return find<W>(views->mainWindow(), text);
    }

    static std::vector<QString> actionTexts(QMenu& menu) {
        std::vector<QString> out;
        for (QAction* a : menu.actions()) {
            out.push_back(a->isSeparator() ? QStringLiteral("-") : a->text());
        }
        return out;
    }

    static QAction* action(QMenu& menu, const QString& text) {
        for (QAction* a : menu.actions()) {
            if (a->text() == text) {
                return a;
            }
        }
        return nullptr;
    }

    test::AppHarness<RecordingEngine> h;
    Application* app = nullptr;
    std::unique_ptr<ApplicationViews> views;
};

TEST_F(Views, APresetShowsItsScenarioUnderThePointerAndTheListLoadsOnActivation) {
    app->frmmain.presetButtons[2].setCaption("Night Harbour");
    QPushButton* preset = find(QStringLiteral("Night Harbour"));
    ASSERT_NE(preset, nullptr);
    QEvent enter(QEvent::Enter);
    QApplication::sendEvent(preset, &enter);
    EXPECT_EQ(app->frmmain.LCD5.line(4), "Night Harbour");

    auto* list = find<QListWidget>(QStringLiteral("Scenarios"));
    ASSERT_NE(list, nullptr);
    list->setCurrentRow(0);
    Q_EMIT list->itemActivated(list->item(0));
    EXPECT_EQ(app->CurrentScenarioName, "Night Harbour");
}

TEST_F(Views, EveryCommandHasAButtonThatFollowsItsControl) {
    // Every button but "Alarm Off" acts on a panel in being; "Alarm Off" waits for the
    // alarm to be on.
    const QStringList texts =
        QStringLiteral(
            "Background 1|Background 2|Custom Background|Random|Identify|Master Stop|"
            "Options|Rec|Help|Info|Delete|Assign|Clear|Evolve|Brainwaves|...|Alarm On|"
            "Schedule|Effects|Colors|Import|Export|MP3|CD|Switch to controller|Alarm Off")
            .split(u'|');
    for (qsizetype i = 0; i < texts.size(); ++i) {
        QPushButton* b = find(texts[i]);
        ASSERT_NE(b, nullptr) << texts[i].toStdString();
        EXPECT_EQ(b->isEnabled(), i < 25) << texts[i].toStdString();
    }
    int presets = 0;
    for (QPushButton* b : views->mainWindow().findChildren<QPushButton*>()) {
        presets += b->text() == QStringLiteral("Currently Unassigned") ? 1 : 0;
    }
    EXPECT_EQ(presets, Frmmain::kPresetButtons);

    // A panel that joins later only has to enable its button.
    app->frmmain.evolveButton.setEnabled(true);
    EXPECT_TRUE(find(QStringLiteral("Evolve"))->isEnabled());
}

TEST_F(Views, InfoShowsTheInformationInPlace) {
    views->mainWindow().show();
    QPlainTextEdit* info = views->mainWindow().findChild<QPlainTextEdit*>();
    ASSERT_NE(info, nullptr);
    EXPECT_FALSE(info->isVisible());
    QTest::mouseClick(find(QStringLiteral("Info")), Qt::LeftButton);
    EXPECT_TRUE(app->frmmain.information.visible());
    EXPECT_TRUE(info->isVisible());
    EXPECT_EQ(info->toPlainText(),
              QStringLiteral("There is currently no information for this scenario."));
    app->frmmain.information.setText("Rain on a tin roof.\r\nBest after dark.");
    EXPECT_EQ(info->toPlainText(), QStringLiteral("Rain on a tin roof.\nBest after dark."));
    QTest::mouseClick(find(QStringLiteral("Info")), Qt::LeftButton);
    EXPECT_FALSE(info->isVisible());
}

TEST_F(Views, TheConsoleShowsItsDisplaysLinesAndMasterAsTheFadeRaisesIt) {
    app->SavedMasterLevel = 12;
    h.loop.advance(Frmmain::kClockMs);
    const auto displays = views->mainWindow().findChildren<LcdDisplayWidget*>();
    ASSERT_EQ(displays.size(), 8);
    QStringList all;
    for (LcdDisplayWidget* d : displays) {
        all << d->rows();
    }
    const QString time = QStringLiteral("Time      ") + qtText(h.loop.timeOfDay());
    EXPECT_TRUE(all.contains(time.leftJustified(30, QLatin1Char(' '))))
        << all.join(u'|').toStdString();
    EXPECT_TRUE(
        all.contains(QStringLiteral("Weather   Static").leftJustified(30, QLatin1Char(' '))));
    // All eight line up: the same width on both columns.
    for (LcdDisplayWidget* d : displays) {
        EXPECT_EQ(d->sizeHint(), displays.front()->sizeHint());
    }

    QSlider* master = find<QSlider>(views->mainWindow(), QStringLiteral("Master"));
    ASSERT_NE(master, nullptr);
    EXPECT_EQ(master->value(), 12);
    EXPECT_NE(find<QLabel>(views->mainWindow(), QStringLiteral("12")), nullptr);
}

TEST_F(Views, EveryWindowReadsAloudAndWorksFromTheKeyboard) {
    for (QWidget* window : views->windows()) {
        const QString letters = test::expectReadsAloud(*window);
        if (window == &views->mainWindow()) {
            // The console's commands answer Alt and their letters.
            EXPECT_GE(letters.size(), 20) << letters.toStdString();
        }
    }

    // A status display is static text reading its lines.
    app->frmmain.LCD1.setLine(3, "Night Harbour");
    LcdDisplayWidget* scenario = nullptr;
    for (LcdDisplayWidget* d : views->mainWindow().findChildren<LcdDisplayWidget*>()) {
        scenario = d->text().startsWith(QStringLiteral("Scenario")) ? d : scenario;
    }
    ASSERT_NE(scenario, nullptr);
    QAccessibleInterface* read = QAccessible::queryAccessibleInterface(scenario);
    EXPECT_EQ(read->role(), QAccessible::StaticText);
    EXPECT_TRUE(
        read->text(QAccessible::Name).startsWith(QStringLiteral("Scenario: Night Harbour\n")))
        << read->text(QAccessible::Name).toStdString();
}

TEST_F(Views, TheTrayMenuMirrorsTheConsolesMenuAndActsOnIt) {
    QMenu& menu = views->tray().menu();
    Q_EMIT menu.aboutToShow();
    // The console's menu tree, entry for entry, submenus included.
    const auto captions = [](const MenuEntry& entry) {
        std::vector<QString> out;
        for (const std::string& caption : entry.captions()) {
            out.push_back(qtText(caption));
        }
        return out;
    };
    EXPECT_EQ(actionTexts(menu), captions(app->frmmain.mnutray));
    QMenu* scenarios = action(menu, QStringLiteral("Scenario"))->menu();
    ASSERT_NE(scenarios, nullptr);
    EXPECT_EQ(actionTexts(*scenarios), captions(app->frmmain.mnuScenario()));
    EXPECT_EQ(actionTexts(*scenarios).front(), QStringLiteral("Night Harbour"));

    // A right click on the console offers the same menu, for desktops without a tray.
    QMenu* consoleMenu = views->mainWindow().findChild<QMenu*>();
    ASSERT_NE(consoleMenu, nullptr);
    Q_EMIT consoleMenu->aboutToShow();
    EXPECT_EQ(actionTexts(*consoleMenu), actionTexts(menu));

    // Mute from the menu; the next opening shows it checked.
    action(menu, QStringLiteral("Mute"))->trigger();
    EXPECT_EQ(app->frmmain.Master.value(), 0);
    Q_EMIT menu.aboutToShow();
    EXPECT_TRUE(action(menu, QStringLiteral("Mute"))->isChecked());

    // An entry of a menu left open while the list is rebuilt without it does nothing.
    QAction* harbour = action(*scenarios, QStringLiteral("Night Harbour"));
    const std::string before = app->CurrentScenarioName;
    app->frmmain.scenarioList.clear();
    app->frmmain.buildScenarioMenu();
    harbour->setEnabled(true);
    harbour->trigger();
    EXPECT_EQ(app->CurrentScenarioName, before);
}

TEST_F(Views, WithoutATrayTheHiddenConsoleWaitsInTheTaskBar) {
    if (QSystemTrayIcon::isSystemTrayAvailable()) {
        GTEST_SKIP() << "this desktop has a notification area";
    }
    QMainWindow& window = views->mainWindow();
    // Another window of the program on screen: the console simply hides.
    app->frmback.show();
    app->frmmain.window.hide();
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isHidden());

    // Alone, as "Minimize on startup" leaves it, it goes to the task bar instead.
    app->frmback.window.hide();
    app->frmmain.window.show();
    app->frmmain.window.hide();
    QTest::qWait(MainWindow::kTaskBarSettleMs + 100);
    EXPECT_TRUE(window.isMinimized());
    EXPECT_FALSE(app->frmmain.window.visible());
    // Coming back from the task bar shows the console again.
    window.showNormal();
    EXPECT_TRUE(app->frmmain.window.visible());

    // The quit hides it for good.
    app->frmmain.quitWithoutAsking();
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isHidden());
}

TEST_F(Views, WindowsFollowTheirPanels) {
    EXPECT_FALSE(windowOf(app->STARTUP.window).isVisible());

    QTest::mouseClick(find(QStringLiteral("Random")), Qt::LeftButton);
    EXPECT_TRUE(bankWindow(1).isVisible());
    EXPECT_EQ(bankWindow(1).windowTitle(), QStringLiteral("BANK1"));

    // Closing a bank's window hides the panel; the bank lives on.
    bankWindow(1).close();
    EXPECT_FALSE(app->frmrandommain.window.visible());
    EXPECT_TRUE(app->frmrandommain.Timer2.enabled());
}

TEST_F(Views, ClickingASoundNamePreviewsItAndSlidersReachTheBank) {
    app->frmrandommain2.show();
    QWidget& w = bankWindow(2);
    QPushButton* name = find(w, QStringLiteral("Wasp"));
    ASSERT_NE(name, nullptr);
    h.engine.clearCalls();
    QTest::mouseClick(name, Qt::LeftButton);
    ASSERT_EQ(h.engine.callsOf(Op::Play).size(), 1u);
    EXPECT_EQ(h.engine.callsOf(Op::Play)[0].a, app->frmrandommain2.slot(2).sample);

    find<QSlider>(w, QStringLiteral("Wasp frequency"))->setValue(200);
    EXPECT_EQ(app->frmrandommain2.slot(2).frequency.value(), 200);

    // The strip's Random slider is the bank's maxvol, which reaches the console.
    find<QSlider>(w, QStringLiteral("Random"))->setValue(64);
    EXPECT_EQ(app->frmmain.Random.value(), 64);
}

TEST_F(Views, BankRowsLineUpAcrossBothColumns) {
    app->frmrandommain3.show();
    QWidget& w = bankWindow(3);
    for (const QSize size : {w.sizeHint(), QSize(1400, 900)}) {
        w.resize(size);
        QTest::qWait(0);
        QCoreApplication::processEvents();
        for (int row = 1; row <= 14; ++row) {
            const auto centreY = [&](QWidget* x) { return x->mapTo(&w, x->rect().center()).y(); };
            RandomBank& bank = app->frmrandommain3;
            QPushButton* left = find(w, qtText(bank.slot(row).name.caption()));
            QPushButton* right = find(w, qtText(bank.slot(row + 14).name.caption()));
            ASSERT_NE(left, nullptr);
            ASSERT_NE(right, nullptr);
            auto* leftVolume =
                find<QSlider>(w, qtText(bank.slot(row).name.caption()) + QStringLiteral(" volume"));
            ASSERT_NE(leftVolume, nullptr);
            EXPECT_NEAR(centreY(left), centreY(right), 2) << "row " << row;
            EXPECT_NEAR(centreY(left), centreY(leftVolume), 2) << "row " << row;
            EXPECT_LT(left->mapTo(&w, QPoint(0, 0)).x(), right->mapTo(&w, QPoint(0, 0)).x());
            // Names are not cut short.
            EXPECT_GE(left->width(), left->fontMetrics().horizontalAdvance(left->text()));
        }
    }
}

TEST_F(Views, TheIdentifyWindowListsFiringsAndItsBankButtonsPutTheBankInTheConsolesPlace) {
    QTest::mouseClick(find(QStringLiteral("Identify")), Qt::LeftButton);
    QWidget& w = windowOf(app->Frmsoundindent.window);
    ASSERT_TRUE(w.isVisible());
    EXPECT_EQ(w.windowTitle(), QStringLiteral("Identify Playing Sounds"));
    app->frmrandommain4.fire(12);
    h.loop.advance(IdentifyPanel::kRefreshMs);
    const auto lists = w.findChildren<QListWidget*>();
    ASSERT_EQ(lists.size(), 2);
    EXPECT_EQ(lists[0]->count(), 2);
    EXPECT_EQ(lists[0]->item(1)->text(), QStringLiteral("Treewind gust"));

    views->mainWindow().move(140, 90);
    QTest::mouseClick(find(w, QStringLiteral("Bank 4")), Qt::LeftButton);
    EXPECT_FALSE(views->mainWindow().isVisible());
    EXPECT_TRUE(bankWindow(4).isVisible());
    EXPECT_EQ(bankWindow(4).pos(), QPoint(140, 90));
}

TEST_F(Views, TheOptionsWindowShowsOnePageAtATimeAndItsControlsReachThePanel) {
    QTest::mouseClick(find(QStringLiteral("Options")), Qt::LeftButton);
    QWidget& options = windowOf(app->FRMOPTIONS.window);
    ASSERT_TRUE(options.isVisible());
    QTest::mouseClick(find(options, QStringLiteral("Soundcard Select")), Qt::LeftButton);
    int shownPages = 0;
    for (const QGroupBox* page : options.findChildren<QGroupBox*>()) {
        shownPages += page->isVisible() ? 1 : 0;
        EXPECT_EQ(page->isVisible(), page->title() == QStringLiteral("Soundcard Select"));
    }
    EXPECT_EQ(shownPages, 1);

    auto* devices = find<QListWidget>(options, QStringLiteral("Sound devices"));
    ASSERT_NE(devices, nullptr);
    ASSERT_EQ(devices->count(), app->engine.driverCount());
    devices->setCurrentRow(devices->count() - 1);
    QTest::mouseClick(find(options, QStringLiteral("Apply")), Qt::LeftButton);
    EXPECT_EQ(app->SoundCardIndex, devices->count() - 1);

    find<QCheckBox>(options, QStringLiteral("Confirm Exit Application"))->click();
    EXPECT_TRUE(app->FRMOPTIONS.confirmExit.checked());
}

TEST_F(Views, TheTipsWindowWalksTheTipsAndCloses) {
    app->Formtips.show();
    QWidget& tips = windowOf(app->Formtips.window);
    ASSERT_TRUE(tips.isVisible());
    EXPECT_NE(find<QLabel>(tips, qtText(TipsPanel::kTips[0])), nullptr);
    QTest::mouseClick(find(tips, QStringLiteral("Next Tip")), Qt::LeftButton);
    EXPECT_NE(find<QLabel>(tips, qtText(TipsPanel::kTips[1])), nullptr);
    QTest::mouseClick(find(tips, QStringLiteral("Close")), Qt::LeftButton);
    EXPECT_FALSE(app->Formtips.window.visible());
    EXPECT_FALSE(tips.isVisible());
}

}  // namespace
}  // namespace brevane
