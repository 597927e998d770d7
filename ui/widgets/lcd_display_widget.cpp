#include "ui/widgets/lcd_display_widget.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QEvent>
#include <QHash>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QStringList>

#include "ui/platform/qt_text.h"
#include "ui/widgets/lcd_font.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

// The bezel around the glass, and the glass around the cells, in pixels.
constexpr int kBezel = 4;
constexpr int kGlassPadX = 8;
constexpr int kGlassPadY = 6;
// The dot pitch of the matrix, and the share of it a dot covers: the rest is the
// seam between dots that makes the matrix readable as one.
constexpr int kDotPitch = 2;
constexpr qreal kDotFill = 0.82;
// Cells stand apart by this much, across and down.
constexpr int kCellGapX = 2;
constexpr int kCellGapY = 6;

QColor rgb(int r, int g, int b) {
    return QColor(r, g, b);
}

// `text` cut or padded with blanks to exactly `width` characters.
QString fitted(const QString& text, int width) {
    if (width <= 0) {
        return {};
    }
    QString out = text.left(width);
    out.replace(QLatin1Char('\t'), QLatin1Char(' '));
    return out.leftJustified(width, QLatin1Char(' '));
}

}  // namespace

LcdLook lcdLook(LcdPalette palette, const std::optional<LcdColours>& custom) {
    switch (palette) {
        case LcdPalette::NoBacklight:
            return {rgb(0x9C, 0xA5, 0x94), rgb(0x23, 0x29, 0x22), rgb(0x92, 0x9B, 0x8A),
                    rgb(0x86, 0x8F, 0x7E)};
        case LcdPalette::GreenBacklight:
            return {rgb(0xB4, 0xCF, 0x3E), rgb(0x1E, 0x2B, 0x0C), rgb(0xA8, 0xC3, 0x37),
                    rgb(0x93, 0xAE, 0x2B)};
        case LcdPalette::BlueBacklight:
            return {rgb(0x2F, 0x5B, 0xA6), rgb(0xE9, 0xF1, 0xFF), rgb(0x38, 0x65, 0xB0),
                    rgb(0x25, 0x4A, 0x8C)};
        case LcdPalette::YellowBacklight:
            return {rgb(0xE6, 0xD4, 0x5C), rgb(0x2B, 0x25, 0x0E), rgb(0xDA, 0xC8, 0x54),
                    rgb(0xC9, 0xB6, 0x45)};
        case LcdPalette::OrangeBacklight:
            return {rgb(0xEE, 0xA2, 0x45), rgb(0x2E, 0x1A, 0x08), rgb(0xE2, 0x97, 0x3E),
                    rgb(0xD2, 0x86, 0x31)};
        case LcdPalette::Blue:
            return {rgb(0x0C, 0x15, 0x24), rgb(0x86, 0xC4, 0xFF), rgb(0x14, 0x20, 0x33),
                    rgb(0x07, 0x0D, 0x18)};
        case LcdPalette::Green:
            return {rgb(0x0A, 0x16, 0x0E), rgb(0x6F, 0xE8, 0x98), rgb(0x12, 0x22, 0x17),
                    rgb(0x05, 0x0D, 0x08)};
        case LcdPalette::Orange:
            return {rgb(0x17, 0x0E, 0x06), rgb(0xFF, 0xB0, 0x55), rgb(0x25, 0x18, 0x0C),
                    rgb(0x0E, 0x08, 0x03)};
        case LcdPalette::Yellow:
            return {rgb(0x15, 0x13, 0x08), rgb(0xF4, 0xE0, 0x6A), rgb(0x23, 0x20, 0x10),
                    rgb(0x0C, 0x0B, 0x04)};
        case LcdPalette::Red:
            return {rgb(0x17, 0x08, 0x08), rgb(0xFF, 0x6B, 0x5E), rgb(0x27, 0x10, 0x10),
                    rgb(0x0E, 0x04, 0x04)};
        case LcdPalette::Custom:
            if (custom) {
                return {style::toQColor(custom->backlight), style::toQColor(custom->on),
                        style::toQColor(custom->off), style::toQColor(custom->blend)};
            }
            break;
    }
    return lcdLook(LcdDisplay::kDefaultPalette);
}

namespace {

// What a screen reader or an automation tool finds for a display: static text whose
// name is the display's lines as they read, captions included.
class LcdAccessible final : public QAccessibleWidget {
  public:
    explicit LcdAccessible(LcdDisplayWidget* display)
        : QAccessibleWidget(display, QAccessible::StaticText) {}

    QString text(QAccessible::Text t) const override {
        if (t == QAccessible::Name || t == QAccessible::Value) {
            return static_cast<const LcdDisplayWidget*>(widget())->text();
        }
        return QAccessibleWidget::text(t);
    }
};

QAccessibleInterface* lcdAccessible(const QString& className, QObject* object) {
    if (className == QLatin1String(LcdDisplayWidget::staticMetaObject.className()) &&
        object != nullptr && object->isWidgetType()) {
        return new LcdAccessible(static_cast<LcdDisplayWidget*>(object));
    }
    return nullptr;
}

}  // namespace

LcdDisplayWidget::LcdDisplayWidget(LcdDisplay& display, Layout layout, int columns,
                                   int captionColumns, QWidget* parent)
    : QWidget(parent),
      display_(display),
      layout_(layout),
      columns_(std::max(1, columns)),
      captionColumns_(std::clamp(captionColumns, 0, columns_)) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAttribute(Qt::WA_OpaquePaintEvent, false);
    static const bool factoryInstalled = [] {
        QAccessible::installFactory(lcdAccessible);
        return true;
    }();
    (void)factoryInstalled;
    watchId_ = display_.watch([this] { follow(); });
    follow();
}

LcdDisplayWidget::~LcdDisplayWidget() {
    display_.unwatch(watchId_);
}

QStringList LcdDisplayWidget::rows() const {
    QStringList out;
    if (layout_ == Layout::Captioned) {
        for (int row = 0; row < 2; ++row) {
            const QString caption = fitted(qtText(display_.line(1 + row)), captionColumns_);
            out << caption + fitted(qtText(display_.line(3 + row)), columns_ - captionColumns_);
        }
    } else {
        for (int n = 1; n <= LcdDisplay::kLines; ++n) {
            out << fitted(qtText(display_.line(n)), columns_);
        }
    }
    return out;
}

QStringList LcdDisplayWidget::wholeLines() const {
    QStringList whole;
    if (layout_ == Layout::Captioned) {
        for (int row = 0; row < 2; ++row) {
            const QString value = qtText(display_.line(3 + row));
            const QString caption = qtText(display_.line(1 + row)).trimmed();
            whole << (caption.isEmpty() ? value : caption + QStringLiteral(": ") + value);
        }
    } else {
        for (int n = 1; n <= LcdDisplay::kLines; ++n) {
            whole << qtText(display_.line(n));
        }
    }
    return whole;
}

QString LcdDisplayWidget::text() const {
    QStringList spoken;
    for (const QString& line : wholeLines()) {
        if (!line.trimmed().isEmpty()) {
            spoken << line.trimmed();
        }
    }
    return spoken.join(QLatin1Char('\n'));
}

void LcdDisplayWidget::follow() {
    setVisible(display_.visible());
    setEnabled(display_.enabled());
    // The whole text of any line the glass cuts short.
    const QStringList whole = wholeLines();
    bool cut = false;
    if (layout_ == Layout::Captioned) {
        for (int row = 0; row < 2; ++row) {
            cut = cut || qtText(display_.line(3 + row)).size() > columns_ - captionColumns_;
        }
    } else {
        for (const QString& line : whole) {
            cut = cut || line.size() > columns_;
        }
    }
    const QString tip = cut ? whole.join(QLatin1Char('\n')) : qtText(display_.toolTip());
    if (toolTip() != tip) {
        setToolTip(tip);
    }
    const QString spoken = text();
    if (spoken != spoken_) {
        spoken_ = spoken;
        QAccessibleEvent changed(this, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&changed);
    }
    update();
}

QSize LcdDisplayWidget::cellSize() const {
    return {kLcdGlyphColumns * kDotPitch + kCellGapX, kLcdGlyphRows * kDotPitch + kCellGapY};
}

QSize LcdDisplayWidget::sizeHint() const {
    const QSize cell = cellSize();
    const int rowsShown = layout_ == Layout::Captioned ? 2 : LcdDisplay::kLines;
    return {2 * (kBezel + kGlassPadX) + columns_ * cell.width(),
            2 * (kBezel + kGlassPadY) + rowsShown * cell.height()};
}

QSize LcdDisplayWidget::minimumSizeHint() const {
    return sizeHint();
}

void LcdDisplayWidget::paintEvent(QPaintEvent*) {
    const LcdLook look = lcdLook(display_.palette(), display_.colours());
    const bool darkGlass = look.glass.lightness() < look.lit.lightness();
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing, true);

    // Bezel: a dark frame with a faint lit edge along its top.
    const QRectF outer = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QLinearGradient bezel(outer.topLeft(), outer.bottomLeft());
    bezel.setColorAt(0.0, rgb(0x3A, 0x40, 0x49));
    bezel.setColorAt(1.0, rgb(0x24, 0x28, 0x2E));
    p.setPen(QPen(rgb(0x1B, 0x1E, 0x23), 1.0));
    p.setBrush(bezel);
    p.drawRoundedRect(outer, 5, 5);

    // Glass: the backlight, shaded towards the edges as a lit panel is.
    const QRectF glass = QRectF(rect()).adjusted(kBezel, kBezel, -kBezel, -kBezel);
    QLinearGradient light(glass.topLeft(), glass.bottomLeft());
    light.setColorAt(0.0, look.shade);
    light.setColorAt(0.18, look.glass);
    light.setColorAt(0.82, look.glass);
    light.setColorAt(1.0, look.shade);
    p.setPen(Qt::NoPen);
    p.setBrush(light);
    p.drawRoundedRect(glass, 2.5, 2.5);
    // The glass sits under the bezel: a thin shadow along its top edge.
    QColor rim = rgb(0, 0, 0);
    rim.setAlpha(darkGlass ? 90 : 55);
    p.setPen(QPen(rim, 1.0));
    p.drawLine(glass.topLeft() + QPointF(2, 0.5), glass.topRight() + QPointF(-2, 0.5));

    // Every cell's dots, unlit, then each character's lit dots over them. A cell is
    // drawn once per colour and character and stamped where it is needed.
    const QSize cell = cellSize();
    const qreal ratio = devicePixelRatioF();
    const auto stamp = [&](const LcdGlyph& glyph, const QColor& colour, bool all) {
        QPixmap pixmap(QSize(cell.width(), cell.height()) * ratio);
        pixmap.setDevicePixelRatio(ratio);
        pixmap.fill(Qt::transparent);
        QPainter dots(&pixmap);
        dots.setRenderHint(QPainter::Antialiasing, true);
        dots.setPen(Qt::NoPen);
        dots.setBrush(colour);
        const qreal size = kDotPitch * kDotFill;
        for (int y = 0; y < kLcdGlyphRows; ++y) {
            for (int x = 0; x < kLcdGlyphColumns; ++x) {
                const bool lit =
                    (glyph[static_cast<std::size_t>(y)] >> (kLcdGlyphColumns - 1 - x)) & 1U;
                if (all || lit) {
                    dots.drawRect(
                        QRectF(x * kDotPitch, kCellGapY / 2.0 + y * kDotPitch, size, size));
                }
            }
        }
        return pixmap;
    };
    const QPixmap blank = stamp(lcdGlyph(QLatin1Char(' ')), look.unlit, true);
    QColor caption = look.lit;
    caption.setAlphaF(darkGlass ? 0.5 : 0.6);
    QColor shadow = rgb(0, 0, 0);
    shadow.setAlpha(30);
    QHash<QPair<char16_t, int>, QPixmap> lit;
    const auto litCell = [&](QChar ch, int kind) -> const QPixmap& {
        const QPair<char16_t, int> key(ch.unicode(), kind);
        auto it = lit.find(key);
        if (it == lit.end()) {
            const QColor& colour = kind == 0 ? look.lit : kind == 1 ? caption : shadow;
            it = lit.insert(key, stamp(lcdGlyph(ch), colour, false));
        }
        return *it;
    };

    const QStringList shownRows = rows();
    const QPointF origin(glass.left() + kGlassPadX, glass.top() + kGlassPadY - kCellGapY / 2.0);
    for (int row = 0; row < shownRows.size(); ++row) {
        const QString& text = shownRows[row];
        const qreal top = origin.y() + row * cell.height();
        for (int col = 0; col < columns_; ++col) {
            const QPointF at(origin.x() + col * cell.width(), top);
            p.drawPixmap(at, blank);
            const QChar ch = text.at(col);
            if (ch == QLatin1Char(' ')) {
                continue;
            }
            if (!darkGlass) {
                // Dots on lit glass cast a faint shadow onto the backlight behind them.
                p.drawPixmap(at + QPointF(0.6, 0.6), litCell(ch, 2));
            }
            const bool isCaption = layout_ == Layout::Captioned && col < captionColumns_;
            p.drawPixmap(at, litCell(ch, isCaption ? 1 : 0));
        }
    }
}

}  // namespace brevane
