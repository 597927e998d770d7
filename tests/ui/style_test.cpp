#include "ui/widgets/style.h"

#include <gtest/gtest.h>

namespace brevane {
namespace {

TEST(StyleColours, StoredColoursReadBlueGreenRedFromTheTopDownAndGoThereAndBack) {
    EXPECT_EQ(style::toQColor(0x000000FFu), QColor(255, 0, 0));
    EXPECT_EQ(style::toQColor(0x0000FF00u), QColor(0, 255, 0));
    EXPECT_EQ(style::toQColor(0x00FF0000u), QColor(0, 0, 255));
    // The default highlight of the colour schemes, 16744576, is a light blue.
    EXPECT_EQ(style::toQColor(16744576u), QColor(0x80, 0x80, 0xFF));
    // The top byte is ignored, and colours go there and back.
    EXPECT_EQ(style::toQColor(0xFF123456u), style::toQColor(0x00123456u));
    for (const Colour c : {0x00000000u, 0x00FFFFFFu, 0x00123456u, 0x00804020u, 4194304u}) {
        EXPECT_EQ(style::fromQColor(style::toQColor(c)), c);
    }
    EXPECT_EQ(style::fromQColor(QColor(0x10, 0x20, 0x30, 0x40)), 0x00302010u);
}

TEST(StyleColours, ASchemesSheetFillsEveryColourItNames) {
    for (const ColourScheme& s : {programLook(), builtInScheme()}) {
        const QString sheet = style::schemeStyleSheet(s);
        EXPECT_FALSE(sheet.contains(QLatin1Char('@'))) << sheet.toStdString();
        for (const Colour c : {s.rollover, s.line, s.startGradient, s.endGradient, s.buttonBack}) {
            EXPECT_TRUE(sheet.contains(style::toQColor(c).name())) << c;
        }
        EXPECT_EQ(style::schemePalette(s).color(QPalette::Window), style::toQColor(s.back));
    }
}

}  // namespace
}  // namespace brevane
