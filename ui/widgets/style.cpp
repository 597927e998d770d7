#include "ui/widgets/style.h"

#include <QApplication>
#include <QLayout>
#include <QPalette>
#include <QStyleFactory>

namespace brevane::style {

QColor toQColor(Colour colour) {
    return QColor(static_cast<int>(colour & 0xFFu), static_cast<int>((colour >> 8) & 0xFFu),
                  static_cast<int>((colour >> 16) & 0xFFu));
}

Colour fromQColor(const QColor& colour) {
    const QColor rgb = colour.toRgb();
    return static_cast<Colour>(rgb.red()) | (static_cast<Colour>(rgb.green()) << 8) |
           (static_cast<Colour>(rgb.blue()) << 16);
}

namespace {

QFont sized(int points) {
    QFont font = QApplication::font();
    font.setPointSize(points);
    return font;
}

}  // namespace

QFont bodyFont() {
    return sized(kBodyPointSize);
}

QFont smallFont() {
    return sized(kSmallPointSize);
}

QFont headingFont() {
    QFont font = sized(kHeadingPointSize);
    font.setWeight(QFont::DemiBold);
    return font;
}

void applySpacing(QLayout& layout) {
    layout.setSpacing(kSpacing);
    layout.setContentsMargins(kMargin, kMargin, kMargin, kMargin);
}

void applyToProgram() {
    if (QStyle* fusion = QStyleFactory::create(QStringLiteral("Fusion"))) {
        QApplication::setStyle(fusion);
    }
    // Soft grey-blue surfaces, dark slate text and a muted teal accent: quiet
    // enough to sit on screen for hours beside a slideshow.
    QPalette p;
    const QColor window(0xEE, 0xF0, 0xF3);
    const QColor base(0xFA, 0xFB, 0xFC);
    const QColor text(0x2B, 0x31, 0x3B);
    const QColor accent(0x3E, 0x7C, 0x8C);
    p.setColor(QPalette::Window, window);
    p.setColor(QPalette::WindowText, text);
    p.setColor(QPalette::Base, base);
    p.setColor(QPalette::AlternateBase, window);
    p.setColor(QPalette::Text, text);
    p.setColor(QPalette::Button, QColor(0xE3, 0xE7, 0xEC));
    p.setColor(QPalette::ButtonText, text);
    p.setColor(QPalette::Highlight, accent);
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::ToolTipBase, base);
    p.setColor(QPalette::ToolTipText, text);
    p.setColor(QPalette::PlaceholderText, QColor(0x8A, 0x92, 0x9E));
    p.setColor(QPalette::Link, accent);
    const QColor muted(0x9A, 0xA1, 0xAB);
    p.setColor(QPalette::Disabled, QPalette::WindowText, muted);
    p.setColor(QPalette::Disabled, QPalette::Text, muted);
    p.setColor(QPalette::Disabled, QPalette::ButtonText, muted);
    // A disabled slider's fill greys out with it, so what is live stands out (a bank's
    // slots that are off, the effect that is switched off).
    p.setColor(QPalette::Disabled, QPalette::Highlight, muted);
    QApplication::setPalette(p);
    QApplication::setFont(sized(kBodyPointSize));
}

}  // namespace brevane::style
