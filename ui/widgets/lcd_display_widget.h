#pragma once
// A backlit character display drawn from an LcdDisplay: a dark bezel around lit
// glass, a grid of character cells whose unlit pixels show faintly, and the text in
// the palette's lit colour.
//
// Two layouts:
// - Captioned (the console's status displays): two rows, each a caption column
//   (lines 1 and 2, drawn dimmer) and the live text beside it (lines 3 and 4).
// - Lines: every line of the display on a row of its own, for displays whose lines
//   carry text only.
//
// Text longer than its row is cut at the last cell, as on a real display; the whole
// of it is in the widget's tool tip. The widget follows the display as it changes and
// holds no state of its own. The display must outlive the widget. Event thread only.

#include <QColor>
#include <QWidget>

#include "core/lcd_display.h"

namespace brevane {

// The four colours a palette lights a display with.
struct LcdLook {
    QColor glass;  // the backlight
    QColor lit;    // characters
    QColor unlit;  // the cells' dark pixels
    QColor shade;  // the glass towards its edges
};

// The look of `palette`; "CUSTOM" takes `custom` when given, else the default palette.
LcdLook lcdLook(LcdPalette palette, const std::optional<LcdColours>& custom = std::nullopt);

class LcdDisplayWidget : public QWidget {
    Q_OBJECT

  public:
    enum class Layout { Captioned, Lines };

    // `columns` cells per row; in the captioned layout the first `captionColumns` of
    // them hold the caption.
    LcdDisplayWidget(LcdDisplay& display, Layout layout, int columns, int captionColumns,
                     QWidget* parent = nullptr);
    ~LcdDisplayWidget() override;

    // The rows as drawn, each exactly `columns` characters: the text the user reads.
    QStringList rows() const;
    // The lines whole, as a screen reader speaks them: "Scenario: Summer Storm", one
    // line each, empty lines left out. The display's accessible name and value.
    QString text() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void follow();
    // Each row's text uncut, captions joined to their values by ": ".
    QStringList wholeLines() const;
    QSize cellSize() const;

    LcdDisplay& display_;
    Layout layout_;
    int columns_;
    int captionColumns_;
    Control::WatchId watchId_ = 0;
    // The text assistive tools were last told of, so they hear of changes only.
    QString spoken_;
};

}  // namespace brevane
