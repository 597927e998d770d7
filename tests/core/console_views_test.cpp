// The console's window, its status displays and its tray menu, on the offscreen
// platform, bound to a whole Application.

#include <gtest/gtest.h>

#include <QAction>
#include <QImage>
#include <QMainWindow>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSystemTrayIcon>
#include <QTest>

#include "core/app_harness.h"
#include "engine/recording_engine.h"
#include "ui/core/application_views.h"
#include "ui/core/main_window.h"
#include "ui/core/tray_view.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/lcd_display_widget.h"
#include "ui/widgets/lcd_font.h"

namespace brevane {
namespace {

// ---- the display widget on its own ----

LcdGlyph glyphOf(std::initializer_list<const char*> rows) {
    LcdGlyph glyph{};
    std::size_t r = 0;
    for (const char* row : rows) {
        std::uint8_t bits = 0;
        for (int c = 0; c < kLcdGlyphColumns; ++c) {
            bits = static_cast<std::uint8_t>((bits << 1) | (row[c] == '#' ? 1 : 0));
        }
        glyph[r++] = bits;
    }
    return glyph;
}

TEST(LcdFont, LettersDigitsAndDescendersHaveTheirDots) {
    EXPECT_EQ(lcdGlyph(QLatin1Char('A')),
              glyphOf({".###.", "#...#", "#...#", "#...#", "#####", "#...#", "#...#", "....."}));
    EXPECT_EQ(lcdGlyph(QLatin1Char('7')),
              glyphOf({"#####", "....#", "...#.", "..#..", ".#...", ".#...", ".#...", "....."}));
    // A descender reaches the eighth row; a capital never does.
    EXPECT_NE(lcdGlyph(QLatin1Char('g'))[7], 0);
    EXPECT_EQ(lcdGlyph(QLatin1Char('G'))[7], 0);
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
}

TEST(LcdFont, AccentsFallBackToTheirLetterAndTheRestToABox) {
    EXPECT_EQ(lcdGlyph(QChar(0x00E9)), lcdGlyph(QLatin1Char('e')));
    EXPECT_EQ(lcdGlyph(QChar(0x00C5)), lcdGlyph(QLatin1Char('A')));
    const LcdGlyph& box = lcdGlyph(QChar(0x263C));
    EXPECT_EQ(lcdGlyph(QChar(0x0009)), box);
    EXPECT_NE(box, lcdGlyph(QLatin1Char('?')));
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
    EXPECT_EQ(widget.rows(), (QStringList{QStringLiteral("Scenario Rain       "),
                                          QStringLiteral("Previous N/A        ")}));
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
    EXPECT_EQ(standard, lcdLook(LcdDisplay::kDefaultPalette).glass);

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

// ---- the console ----

class ConsoleViews : public ::testing::Test {
  protected:
    void SetUp() override {
        h.writeFile("config/scenarios/Night Harbour.scn", "x");
        app = &h.startAndLoad();
        views = std::make_unique<ApplicationViews>(*app);
    }
    void TearDown() override { views.reset(); }

    QPushButton* buttonWithText(const QString& text) {
        for (QPushButton* b : views->mainWindow().findChildren<QPushButton*>()) {
            if (b->text() == text) {
                return b;
            }
        }
        return nullptr;
    }

    std::vector<QString> actionTexts(QMenu& menu) {
        std::vector<QString> out;
        for (QAction* a : menu.actions()) {
            out.push_back(a->isSeparator() ? QStringLiteral("-") : a->text());
        }
        return out;
    }

    QAction* action(QMenu& menu, const QString& text) {
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

TEST_F(ConsoleViews, EveryCommandHasAButtonThatFollowsItsControl) {
    const std::pair<const char*, bool> expected[] = {{"Background 1", true},
                                                     {"Background 2", true},
                                                     {"Custom Background", true},
                                                     {"Random", true},
                                                     {"Identify", true},
                                                     {"Master Stop", true},
                                                     {"Options", true},
                                                     {"Rec", true},
                                                     {"Help", true},
                                                     {"Info", true},
                                                     {"Brainwaves", false},
                                                     {"Evolve", false},
                                                     {"MP3", false},
                                                     {"CD", false},
                                                     {"Effects", false},
                                                     {"Schedule", false},
                                                     {"...", false},
                                                     {"Alarm On", false},
                                                     {"Alarm Off", false},
                                                     {"Colors", false},
                                                     {"Import", false},
                                                     {"Export", false},
                                                     {"Delete", false},
                                                     {"Assign", false},
                                                     {"Clear", false},
                                                     {"Switch to controller", false}};
    for (const auto& [text, enabled] : expected) {
        QPushButton* b = buttonWithText(QString::fromUtf8(text));
        ASSERT_NE(b, nullptr) << text;
        EXPECT_EQ(b->isEnabled(), enabled) << text;
    }
    int presets = 0;
    for (QPushButton* b : views->mainWindow().findChildren<QPushButton*>()) {
        presets += b->text() == QStringLiteral("Currently Unassigned") ? 1 : 0;
    }
    EXPECT_EQ(presets, Frmmain::kPresetButtons);

    // A panel that joins later only has to enable its button.
    app->frmmain.evolveButton.setEnabled(true);
    EXPECT_TRUE(buttonWithText(QStringLiteral("Evolve"))->isEnabled());
}

TEST_F(ConsoleViews, InfoShowsTheInformationInPlace) {
    views->mainWindow().show();
    QPlainTextEdit* info = views->mainWindow().findChild<QPlainTextEdit*>();
    ASSERT_NE(info, nullptr);
    EXPECT_FALSE(info->isVisible());
    QTest::mouseClick(buttonWithText(QStringLiteral("Info")), Qt::LeftButton);
    EXPECT_TRUE(app->frmmain.information.visible());
    EXPECT_TRUE(info->isVisible());
    EXPECT_EQ(info->toPlainText(),
              QStringLiteral("There is currently no information for this scenario."));
    app->frmmain.information.setText("Rain on a tin roof.\r\nBest after dark.");
    EXPECT_EQ(info->toPlainText(), QStringLiteral("Rain on a tin roof.\nBest after dark."));
    QTest::mouseClick(buttonWithText(QStringLiteral("Info")), Qt::LeftButton);
    EXPECT_FALSE(info->isVisible());
}

TEST_F(ConsoleViews, TheStatusDisplaysShowTheConsolesLines) {
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
}

TEST_F(ConsoleViews, TheTrayMenuMirrorsTheConsolesMenuAndActsOnIt) {
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
    app->frmmain.Master.setValue(50);
    action(menu, QStringLiteral("Mute"))->trigger();
    EXPECT_EQ(app->frmmain.Master.value(), 0);
    Q_EMIT menu.aboutToShow();
    EXPECT_TRUE(action(menu, QStringLiteral("Mute"))->isChecked());
    action(menu, QStringLiteral("Mute"))->trigger();
    EXPECT_EQ(app->frmmain.Master.value(), 50);
}

TEST_F(ConsoleViews, WithoutATrayTheHiddenConsoleWaitsInTheTaskBar) {
    if (QSystemTrayIcon::isSystemTrayAvailable()) {
        GTEST_SKIP() << "this desktop has a notification area";
    }
    QMainWindow& window = views->mainWindow();
    ASSERT_TRUE(window.isVisible());
    // Another window of the program on screen: the console simply hides.
    app->frmback.show();
    app->frmmain.window.hide();
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isHidden());

    // Alone, as "Minimize on startup" leaves it, it goes to the task bar instead.
    app->frmback.window.hide();
    app->frmmain.window.show();
    app->frmmain.window.hide();
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isMinimized());
    EXPECT_FALSE(app->frmmain.window.visible());
    // Coming back from the task bar shows the console again.
    window.showNormal();
    EXPECT_TRUE(app->frmmain.window.visible());
    EXPECT_TRUE(app->MainShown);

    // The quit hides it for good.
    app->frmmain.quitWithoutAsking();
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isHidden());
}

TEST_F(ConsoleViews, AnOpenMenuOutlivingItsEntriesDoesNothing) {
    QMenu& menu = views->tray().menu();
    Q_EMIT menu.aboutToShow();
    QAction* harbour =
        action(*action(menu, QStringLiteral("Scenario"))->menu(), QStringLiteral("Night Harbour"));
    ASSERT_NE(harbour, nullptr);
    std::vector<std::string> loaded;
    app->frmmain.scenarioLoader = [&](const std::string& name) { loaded.push_back(name); };
    // The list is rebuilt without the scenario while the menu stands open.
    app->frmmain.scenarioList.clear();
    app->frmmain.buildScenarioMenu();
    harbour->setEnabled(true);
    harbour->trigger();
    EXPECT_TRUE(loaded.empty());
}

}  // namespace
}  // namespace brevane
