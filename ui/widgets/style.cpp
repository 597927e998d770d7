#include "ui/widgets/style.h"

#include <QApplication>
#include <QLayout>
#include <QPalette>
#include <QStyleFactory>
#include <QWidget>
#include <utility>

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

namespace {

QString css(Colour colour) {
    return toQColor(colour).name();
}

// The sheet's colours, named as its rules use them.
struct SheetColours {
    explicit SheetColours(const ColourScheme& s)
        : back(css(s.back)),
          text(css(s.text)),
          textBoxBack(css(s.textBoxBack)),
          textBoxFore(css(s.textBoxFore)),
          button(css(s.buttonBack)),
          buttonText(css(s.buttonText)),
          rollover(css(s.rollover)),
          active(css(s.active)),
          activeText(css(readableTextOn(s.active))),
          line(css(s.line)),
          start(css(s.startGradient)),
          end(css(s.endGradient)),
          groove(css(mixColours(s.back, s.line, 0.6))),
          disabledButton(css(mixColours(s.buttonBack, s.back, 0.5))),
          disabledButtonText(css(mixColours(s.buttonText, s.buttonBack, 0.6))),
          disabledText(css(mixColours(s.text, s.back, 0.55))),
          disabledLine(css(mixColours(s.line, s.back, 0.5))),
          disabledFill(css(mixColours(s.line, s.back, 0.25))),
          stop(css(mixColours(rgbColour(0xC4, 0x4B, 0x3A), s.back, 0.15))),
          mark(css(mixColours(s.line, s.text, 0.45))) {}

    QString back, text, textBoxBack, textBoxFore, button, buttonText, rollover, active, activeText,
        line, start, end, groove, disabledButton, disabledButtonText, disabledText, disabledLine,
        disabledFill, stop, mark;
};

// `sheet` with every "@name" replaced by its colour.
QString filled(QString sheet, const SheetColours& c) {
    const std::pair<const char*, const QString*> names[] = {
        // Longer names first, so "@textBoxBack" is not taken for "@text".
        {"@disabledButtonText", &c.disabledButtonText},
        {"@disabledButton", &c.disabledButton},
        {"@disabledText", &c.disabledText},
        {"@disabledLine", &c.disabledLine},
        {"@disabledFill", &c.disabledFill},
        {"@textBoxBack", &c.textBoxBack},
        {"@textBoxFore", &c.textBoxFore},
        {"@buttonText", &c.buttonText},
        {"@activeText", &c.activeText},
        {"@rollover", &c.rollover},
        {"@button", &c.button},
        {"@active", &c.active},
        {"@groove", &c.groove},
        {"@start", &c.start},
        {"@stop", &c.stop},
        {"@back", &c.back},
        {"@text", &c.text},
        {"@line", &c.line},
        {"@mark", &c.mark},
        {"@end", &c.end},
    };
    for (const auto& [name, colour] : names) {
        sheet.replace(QLatin1String(name), *colour);
    }
    return sheet;
}

// The rules a palette cannot carry. Buttons: "Back" and "Text" at rest, "Rollover"
// under the pointer, "Active Color" while down or on. Sliders: the filled part in the
// gradient pair. Borders of frames, lists, group boxes and text fields: "Line Color".
// Combos take the text box pair, as lists and text boxes do, and keep the style's own
// frame and arrow (a combo's sheet with a border would lose its arrow).
constexpr const char* kSheet = R"(
QPushButton {
    background-color: @button; color: @buttonText;
    border: 1px solid @line; border-radius: 4px; padding: 3px 6px; min-height: 20px;
}
QPushButton:hover { background-color: @rollover; }
QPushButton:focus { border-color: @active; }
QPushButton:pressed, QPushButton:checked {
    background-color: @active; color: @activeText; border-color: @active;
}
QPushButton:disabled {
    background-color: @disabledButton; color: @disabledButtonText; border-color: @disabledLine;
}
QPushButton#masterStop { border: 2px solid @stop; padding: 2px 5px; }
QPushButton#masterStop:disabled { border-color: @disabledLine; }
QPushButton[flat="true"] {
    background-color: transparent; color: @text; border-color: transparent;
}
QPushButton[flat="true"]:hover { background-color: @rollover; color: @buttonText; }
QPushButton[flat="true"]:focus { border-color: @active; }
QPushButton[flat="true"]:disabled { background-color: transparent; color: @disabledText; }

QCheckBox::indicator, QRadioButton::indicator {
    width: 12px; height: 12px; border: 1px solid @mark; background-color: @textBoxBack;
}
QCheckBox::indicator { border-radius: 3px; }
QRadioButton::indicator { border-radius: 7px; }
QCheckBox::indicator:hover, QRadioButton::indicator:hover { border-color: @active; }
QCheckBox::indicator:checked { background-color: @active; border-color: @active; }
QRadioButton::indicator:checked { border: 4px solid @active; width: 6px; height: 6px; }
QCheckBox::indicator:disabled, QRadioButton::indicator:disabled {
    border-color: @disabledLine; background-color: @back;
}
QCheckBox::indicator:checked:disabled { background-color: @disabledFill; }
QRadioButton::indicator:checked:disabled { border-color: @disabledFill; }

QComboBox {
    background-color: @textBoxBack; color: @textBoxFore;
    selection-background-color: @active; selection-color: @activeText;
}
QComboBox:disabled { color: @disabledText; }
QComboBox QAbstractItemView {
    background-color: @textBoxBack; color: @textBoxFore;
    selection-background-color: @active; selection-color: @activeText;
}
QLineEdit {
    background-color: @textBoxBack; color: @textBoxFore;
    border: 1px solid @line; border-radius: 4px; padding: 2px 4px;
    selection-background-color: @active; selection-color: @activeText;
}
QLineEdit:focus { border-color: @active; }
QLineEdit:disabled { color: @disabledText; border-color: @disabledLine; }
QComboBox QLineEdit { border: none; border-radius: 0; padding: 0; }

QGroupBox {
    border: 1px solid @line; border-radius: 6px; margin-top: 0.8em; padding-top: 0.5em;
}
QGroupBox::title {
    subcontrol-origin: margin; subcontrol-position: top left; left: 10px; padding: 0 4px;
    color: @text;
}
QFrame[frameShape="6"] { border: 1px solid @line; border-radius: 4px; }
QFrame[frameShape="6"]:focus { border-color: @active; }
QFrame[frameShape="6"]:disabled { border-color: @disabledLine; }
QFrame[frameShape="4"] { border: none; border-top: 1px solid @line; }
QFrame[frameShape="5"] { border: none; border-left: 1px solid @line; }

QSlider::groove:horizontal { height: 6px; border-radius: 3px; background: @groove; }
QSlider::sub-page:horizontal {
    border-radius: 3px;
    background: qlineargradient(x1:0, y1:0, x2:1, y2:0, stop:0 @start, stop:1 @end);
}
QSlider::add-page:horizontal { border-radius: 3px; background: @groove; }
QSlider::handle:horizontal {
    width: 14px; margin: -5px 0; border-radius: 8px; background: @button;
    border: 1px solid @line;
}
QSlider::groove:vertical { width: 6px; border-radius: 3px; background: @groove; }
QSlider::add-page:vertical {
    border-radius: 3px;
    background: qlineargradient(x1:0, y1:1, x2:0, y2:0, stop:0 @start, stop:1 @end);
}
QSlider::sub-page:vertical { border-radius: 3px; background: @groove; }
QSlider::handle:vertical {
    height: 14px; margin: 0 -5px; border-radius: 8px; background: @button;
    border: 1px solid @line;
}
QSlider::handle:hover { background: @rollover; }
QSlider::handle:focus { border-color: @active; }
QSlider::sub-page:horizontal:disabled, QSlider::add-page:vertical:disabled {
    background: @disabledFill;
}
QSlider::handle:disabled { background: @disabledButton; border-color: @disabledLine; }

QToolTip { background-color: @textBoxBack; color: @textBoxFore; border: 1px solid @line; }
QMenu { background-color: @textBoxBack; color: @textBoxFore; border: 1px solid @line; }
QMenu::item { padding: 4px 24px 4px 24px; }
QMenu::item:selected { background-color: @active; color: @activeText; }
QMenu::item:disabled { color: @disabledText; }
QMenu::separator { height: 1px; background: @line; margin: 4px 8px; }
)";

}  // namespace

QPalette schemePalette(const ColourScheme& s) {
    const QColor back = toQColor(s.back);
    // Light, dark and the shades between come from the faces, as Fusion expects.
    QPalette p(toQColor(s.buttonBack), back);
    p.setColor(QPalette::Window, back);
    p.setColor(QPalette::WindowText, toQColor(s.text));
    p.setColor(QPalette::Base, toQColor(s.textBoxBack));
    p.setColor(QPalette::AlternateBase, toQColor(mixColours(s.textBoxBack, s.back, 0.5)));
    p.setColor(QPalette::Text, toQColor(s.textBoxFore));
    p.setColor(QPalette::Button, toQColor(s.buttonBack));
    p.setColor(QPalette::ButtonText, toQColor(s.buttonText));
    p.setColor(QPalette::BrightText, toQColor(readableTextOn(s.active)));
    p.setColor(QPalette::Highlight, toQColor(s.active));
    p.setColor(QPalette::HighlightedText, toQColor(readableTextOn(s.active)));
    p.setColor(QPalette::ToolTipBase, toQColor(s.textBoxBack));
    p.setColor(QPalette::ToolTipText, toQColor(s.textBoxFore));
    p.setColor(QPalette::PlaceholderText, toQColor(mixColours(s.textBoxFore, s.textBoxBack, 0.4)));
    p.setColor(QPalette::Link, toQColor(s.active));
    p.setColor(QPalette::LinkVisited, toQColor(s.active));
    // Greyed: text halfway into what it stands on, so what is live stands out (a bank's
    // slots that are off, the effect that is switched off).
    p.setColor(QPalette::Disabled, QPalette::WindowText,
               toQColor(mixColours(s.text, s.back, 0.55)));
    p.setColor(QPalette::Disabled, QPalette::Text,
               toQColor(mixColours(s.textBoxFore, s.textBoxBack, 0.55)));
    p.setColor(QPalette::Disabled, QPalette::ButtonText,
               toQColor(mixColours(s.buttonText, s.buttonBack, 0.6)));
    p.setColor(QPalette::Disabled, QPalette::Highlight, toQColor(mixColours(s.line, s.back, 0.25)));
    return p;
}

QString schemeStyleSheet(const ColourScheme& scheme) {
    return filled(QString::fromLatin1(kSheet), SheetColours(scheme));
}

void paint(QWidget& widget, const ColourScheme& scheme) {
    // A style sheet stops a palette reaching the widgets under it unless this is set;
    // with it, the palette and the sheet paint together.
    QCoreApplication::setAttribute(Qt::AA_UseStyleSheetPropagationInWidgetStyles, true);
    widget.setPalette(schemePalette(scheme));
    if (!widget.isWindow()) {
        widget.setAutoFillBackground(true);
    }
    widget.setStyleSheet(schemeStyleSheet(scheme));
}

void applyToProgram() {
    if (QStyle* fusion = QStyleFactory::create(QStringLiteral("Fusion"))) {
        QApplication::setStyle(fusion);
    }
    QCoreApplication::setAttribute(Qt::AA_UseStyleSheetPropagationInWidgetStyles, true);
    // The program's own look, the stock "Default" scheme, until a window's panel is
    // painted: dialogs and the splash keep it.
    const ColourScheme look = programLook();
    QApplication::setPalette(schemePalette(look));
    qApp->setStyleSheet(schemeStyleSheet(look));
    QApplication::setFont(sized(kBodyPointSize));
}

}  // namespace brevane::style
