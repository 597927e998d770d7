// Windows painted from the colour scheme, on the offscreen platform bound to a whole
// Application: what Apply paints reaches exactly the open windows, the pixels show the
// scheme, the scheme panel's sample shows the scheme being edited, and the picker is
// Qt's colour chooser.

#include <gtest/gtest.h>

#include <QApplication>
#include <QColorDialog>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "core/app_harness.h"
#include "core/lcd_display.h"
#include "engine/recording_engine.h"
#include "shell/colour_files.h"
#include "ui/core/application_views.h"
#include "ui/core/main_window.h"
#include "ui/named_widget.h"
#include "ui/widgets/lcd_display_widget.h"
#include "ui/widgets/style.h"

namespace brevane {
namespace {

// A dark scheme, every colour its own.
ColourScheme dark() {
    ColourScheme s;
    s.back = rgbColour(0x20, 0x22, 0x28);
    s.text = rgbColour(0xE0, 0xE2, 0xE6);
    s.textBoxBack = rgbColour(0x18, 0x1A, 0x1E);
    s.textBoxFore = rgbColour(0xF0, 0xF0, 0xF0);
    s.buttonBack = rgbColour(0x33, 0x36, 0x3E);
    s.buttonText = rgbColour(0xEE, 0xEE, 0xEE);
    s.rollover = rgbColour(0x44, 0x48, 0x52);
    s.active = rgbColour(0xD0, 0x90, 0x40);
    s.line = rgbColour(0x50, 0x54, 0x5E);
    s.startGradient = rgbColour(0x60, 0x40, 0x20);
    s.endGradient = rgbColour(0xD0, 0x90, 0x40);
    s.palette = static_cast<int>(LcdPalette::Red);
    return s;
}

class ColourViews : public ::testing::Test {
  protected:
    void SetUp() override {
        h.writeFile("main.tmp", "\"False\",\"\",0,0,\"\",\"\",\"\",0\r\n");
        h.writeFile("config/colors/Default.clr", writeSchemeFile(programLook()));
        h.writeFile("config/colors/Dark.clr", writeSchemeFile(dark()));
        app = &h.startAndLoad();
        views = std::make_unique<ApplicationViews>(*app);
    }
    void TearDown() override { views.reset(); }

    QWidget& windowOf(const PanelWindow& panel) { return *views->windowOf(panel); }
    static QColor colour(Colour c) { return style::toQColor(c); }
    // The colour drawn at a widget's point, as the user sees it.
    static QColor pixel(QWidget& w, QPoint at) {
        QApplication::processEvents();
        return w.grab().toImage().pixelColor(at);
    }

    void applyDark() {
        app->frmDemo.show();
        app->frmDemo.schemeList.setListIndex(app->frmDemo.schemeList.find("Dark"));
        app->frmDemo.applyButton.click();
    }

    test::AppHarness<RecordingEngine> h;
    Application* app = nullptr;
    std::unique_ptr<ApplicationViews> views;
};

TEST_F(ColourViews, TheConsoleShowsTheStartsSchemeInPaletteStyleSheetAndPixels) {
    MainWindow& console = views->mainWindow();
    EXPECT_EQ(console.palette().color(QPalette::Window), colour(programLook().back));
    EXPECT_TRUE(console.styleSheet().contains(colour(programLook().rollover).name()));
    applyDark();
    const ColourScheme s = dark();
    EXPECT_EQ(console.palette().color(QPalette::Highlight), colour(s.active));
    EXPECT_EQ(console.styleSheet(), style::schemeStyleSheet(s));
    console.resize(console.sizeHint());

    // Drawn: the window, a button's face, a list and a label's palette inherited.
    EXPECT_EQ(pixel(console, {2, 2}), colour(s.back));
    QPushButton* load = test::named<QPushButton>(console, QStringLiteral("Load"));
    ASSERT_NE(load, nullptr);
    EXPECT_EQ(pixel(*load, {load->width() / 2, 3}), colour(s.buttonBack));
    auto* list = test::named<QListWidget>(console, QStringLiteral("Scenarios"));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(pixel(*list, {list->width() / 2, list->height() - 4}), colour(s.textBoxBack));
    for (QLabel* label : console.findChildren<QLabel*>()) {
        EXPECT_EQ(label->palette().color(QPalette::WindowText), colour(s.text));
    }
}

TEST_F(ColourViews, ApplyRepaintsTheOpenWindowsAndAClosedOnePaintsAsItOpens) {
    app->frmevolve.window.show();
    QWidget& evolve = windowOf(app->frmevolve.window);
    QWidget& alarm = windowOf(app->Alarm.window);
    applyDark();
    EXPECT_EQ(evolve.styleSheet(), style::schemeStyleSheet(dark()));
    EXPECT_TRUE(alarm.styleSheet().isEmpty());
    app->Alarm.window.show();
    EXPECT_EQ(alarm.palette().color(QPalette::Window), colour(dark().back));
}

TEST_F(ColourViews, TheSampleShowsTheSchemeBeingEditedAndTheWindowTheProgramsOne) {
    app->frmmain.colorsButton.click();
    QWidget& window = windowOf(app->frmDemo.window);
    auto* sample = test::named<QGroupBox>(window, QStringLiteral("Sample"));
    ASSERT_NE(sample, nullptr);
    app->frmDemo.schemeList.setListIndex(app->frmDemo.schemeList.find("Dark"));
    EXPECT_EQ(sample->palette().color(QPalette::Window), colour(dark().back));
    EXPECT_EQ(sample->styleSheet(), style::schemeStyleSheet(dark()));
    EXPECT_EQ(window.palette().color(QPalette::Window), colour(programLook().back));
    auto* text = test::named<QLineEdit>(window, QStringLiteral("Sample text box"));
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->palette().color(QPalette::Base), colour(dark().textBoxBack));

    // A swatch shows its colour, and opens the chooser at it.
    app->frmDemo.advancedButton.click();
    auto* swatch = test::named<QPushButton>(window, QStringLiteral("Active Color"));
    ASSERT_NE(swatch, nullptr);
    EXPECT_TRUE(swatch->isVisible());
    EXPECT_TRUE(swatch->styleSheet().contains(colour(dark().active).name()));
    QTest::mouseClick(swatch, Qt::LeftButton);
    auto* chooser = qobject_cast<QColorDialog*>(&windowOf(app->Frmcolorpicker.window));
    ASSERT_NE(chooser, nullptr);
    EXPECT_TRUE(chooser->isVisible());
    EXPECT_TRUE(chooser->testOption(QColorDialog::DontUseNativeDialog));
    EXPECT_EQ(chooser->currentColor(), colour(dark().active));
    chooser->setCurrentColor(QColor(0x12, 0x34, 0x56));
    chooser->accept();
    EXPECT_FALSE(app->Frmcolorpicker.window.visible());
    EXPECT_EQ(app->frmDemo.scheme().active, rgbColour(0x12, 0x34, 0x56));
    EXPECT_TRUE(swatch->styleSheet().contains(QStringLiteral("#123456")));
    // Cancel leaves the colour.
    QTest::mouseClick(swatch, Qt::LeftButton);
    chooser->setCurrentColor(Qt::red);
    chooser->reject();
    EXPECT_FALSE(app->Frmcolorpicker.window.visible());
    EXPECT_EQ(app->frmDemo.scheme().active, rgbColour(0x12, 0x34, 0x56));
}

TEST_F(ColourViews, AutoOnShowsTheActiveColourReadablyAndOffLooksLikeItsNeighbours) {
    app->frmrandommain.show();
    QWidget& bank = windowOf(app->frmrandommain.window);
    auto* autoButton = test::named<QPushButton>(bank, QStringLiteral("Auto"));
    ASSERT_NE(autoButton, nullptr);
    QTest::mouseClick(autoButton, Qt::LeftButton);
    const QString on = autoButton->styleSheet();
    EXPECT_TRUE(on.contains(colour(programLook().active).name()));
    EXPECT_TRUE(on.contains(colour(readableTextOn(programLook().active)).name()));
    QTest::mouseClick(autoButton, Qt::LeftButton);
    EXPECT_TRUE(autoButton->styleSheet().isEmpty());
}

TEST(DisplayPalettes, EveryNamedPaletteLightsItsCharactersReadably) {
    for (std::size_t i = 0; i + 1 < kLcdPaletteNames.size(); ++i) {
        const LcdLook look = lcdLook(lcdPaletteFromIndex(static_cast<int>(i)));
        EXPECT_GE(contrastRatio(style::fromQColor(look.lit), style::fromQColor(look.glass)),
                  kReadableContrast)
            << kLcdPaletteNames[i];
    }
}

}  // namespace
}  // namespace brevane
