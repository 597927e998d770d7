#include "ui/banks/background/background_bank_view.h"

#include <algorithm>
#include <array>

#include <QCheckBox>
#include <QFontMetrics>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPalette>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QVBoxLayout>

#include "banks/background/background_bank.h"
#include "ui/banks/group_strip.h"
#include "ui/binding/bindings.h"
#include "ui/core/panel_window_follow.h"
#include "ui/platform/qt_text.h"
#include "ui/widgets/style.h"

namespace brevane {

namespace {

// Columns of the channel grid.
enum Column {
    kChooser,
    kName,
    kVolume,
    kVolumeValue,
    kLowText,
    kLowBar,
    kRangeGap,
    kHighText,
    kHighBar,
    kRate,
    kBalance,
    kColumns
};

constexpr int kHeadingRow = 0;
constexpr int kSubheadingRow = 1;
constexpr int kFirstSlotRow = 2;
constexpr int kBulkRow = kFirstSlotRow + kBackgroundSlots;

// The channel rows' grid, banded so that a row reads across from its name to its
// balance.
class ChannelGrid : public QWidget {
  public:
    explicit ChannelGrid(QWidget* parent) : QWidget(parent), grid_(new QGridLayout(this)) {}
    QGridLayout& grid() { return *grid_; }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QWidget::paintEvent(event);
        QPainter painter(this);
        const QColor band = palette().color(QPalette::Base);
        for (int s = 1; s <= kBackgroundSlots; s += 2) {
            const int row = kFirstSlotRow + s - 1;
            const QRect first = grid_->cellRect(row, kName);
            if (!first.isValid()) {
                continue;
            }
            const int spacing = grid_->verticalSpacing() / 2;
            painter.fillRect(QRect(0, first.top() - spacing, width(), first.height() + 2 * spacing),
                             band);
        }
    }

  private:
    QGridLayout* grid_;
};

QLabel* heading(const QString& text, QWidget* parent, Qt::Alignment align = Qt::AlignLeft) {
    auto* label = new QLabel(text, parent);
    QFont font = style::smallFont();
    font.setWeight(QFont::DemiBold);
    label->setFont(font);
    label->setAlignment(align | Qt::AlignBottom);
    return label;
}

QLabel* smallLabel(const QString& text, QWidget* parent, Qt::Alignment align) {
    auto* label = new QLabel(text, parent);
    label->setFont(style::smallFont());
    label->setAlignment(align);
    return label;
}

// Small captions at the two ends of a slider's column.
QWidget* endLabels(const QString& left, const QString& right, QWidget* parent) {
    auto* ends = new QWidget(parent);
    auto* row = new QHBoxLayout(ends);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(smallLabel(left, ends, Qt::AlignLeft));
    row->addWidget(smallLabel(right, ends, Qt::AlignRight));
    return ends;
}

// A row's widgets are named by the sound the row shows ("Light rain volume"), following
// it when the slot takes another sound.
QSlider* rowSlider(Slider& control, Control& row, const QString& what, int pageStep,
                   QWidget* parent) {
    auto* slider = new QSlider(Qt::Horizontal, parent);
    slider->setMinimumWidth(110);
    slider->setPageStep(pageStep);
    nameAfter(row, *slider, QLatin1Char(' ') + what);
    bindWidget(control, *slider);
    return slider;
}

// A limit: its text, read only (the bar writes it), and the bar beside it, only as
// tall as a row so that it shows its two arrows.
void addLimit(ScrollBar& bar, TextBox& text, Control& sound, const QString& what, int row,
              int textColumn, int barColumn, QGridLayout& grid, QWidget* parent) {
    auto* box = new QLineEdit(parent);
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::NoFocus);
    box->setAlignment(Qt::AlignRight);
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(QStringLiteral("2500")) + 10);
    nameAfter(sound, *box, QLatin1Char(' ') + what);
    bindWidget(text, *box);
    auto* scroll = new QScrollBar(Qt::Vertical, parent);
    scroll->setFixedHeight(box->sizeHint().height());
    nameAfter(sound, *scroll, QLatin1Char(' ') + what + QStringLiteral(" bar"));
    bindWidget(bar, *scroll);
    grid.addWidget(box, row, textColumn);
    grid.addWidget(scroll, row, barColumn);
}

QPushButton* smallButton(CommandButton& control, const QString& name, QWidget* parent) {
    auto* b = new QPushButton(parent);
    b->setFont(style::smallFont());
    b->setMinimumWidth(b->fontMetrics().horizontalAdvance(QStringLiteral("Right")) + 14);
    b->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    b->setAccessibleName(name);
    bindWidget(control, *b);
    return b;
}

// A column's four bulk buttons side by side.
QWidget* bulkButtons(std::array<CommandButton, 4>& buttons, const QString& column,
                     QWidget* parent) {
    auto* box = new QWidget(parent);
    auto* row = new QHBoxLayout(box);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    for (std::size_t b = 0; b < buttons.size(); ++b) {
        row->addWidget(smallButton(
            buttons[b],
            column + QStringLiteral(" bulk ") + QString::number(static_cast<int>(b) + 1), box));
    }
    return box;
}

QWidget* channelGrid(BackgroundBank& bank, QWidget* parent) {
    auto* widget = new ChannelGrid(parent);
    QGridLayout& grid = widget->grid();
    grid.setContentsMargins(style::kSpacing, style::kSpacing, style::kSpacing, style::kSpacing);
    grid.setHorizontalSpacing(style::kSpacing);
    grid.setVerticalSpacing(3);

    grid.addWidget(heading(QStringLiteral("Sound"), widget), kHeadingRow, kChooser, 1, 2);
    grid.addWidget(heading(QStringLiteral("Volume"), widget), kHeadingRow, kVolume, 1, 2);
    grid.addWidget(heading(QStringLiteral("Volume Range"), widget, Qt::AlignHCenter), kHeadingRow,
                   kLowText, 1, kHighBar - kLowText + 1);
    grid.addWidget(heading(QStringLiteral("Rate Of Change"), widget), kHeadingRow, kRate);
    grid.addWidget(heading(QStringLiteral("L / R Balance"), widget), kHeadingRow, kBalance);
    grid.addWidget(smallLabel(QStringLiteral("low"), widget, Qt::AlignHCenter), kSubheadingRow,
                   kLowText, 1, 2);
    grid.addWidget(smallLabel(QStringLiteral("high"), widget, Qt::AlignHCenter), kSubheadingRow,
                   kHighText, 1, 2);
    grid.addWidget(endLabels(QStringLiteral("slow"), QStringLiteral("fast"), widget),
                   kSubheadingRow, kRate);
    grid.addWidget(endLabels(QStringLiteral("L"), QStringLiteral("R"), widget), kSubheadingRow,
                   kBalance);

    int nameWidth = 0;
    for (int s = 1; s <= kBackgroundSlots; ++s) {
        nameWidth = std::max(
            nameWidth, widget->fontMetrics().horizontalAdvance(qtText(bank.slot(s).on.caption())));
    }
    nameWidth = std::max(nameWidth,
                         widget->fontMetrics().horizontalAdvance(QStringLiteral("Woodland birds")));

    for (int s = 1; s <= kBackgroundSlots; ++s) {
        BackgroundSoundSlot& sl = bank.slot(s);
        const int row = kFirstSlotRow + s - 1;
        // Rows of the custom bank may show the same name; their number tells them apart.
        const QString slotNumber = bank.custom() ? QStringLiteral("Slot %1").arg(s) : QString();

        auto* chooser = new QPushButton(widget);
        chooser->setFixedWidth(chooser->fontMetrics().horizontalAdvance(QStringLiteral("...")) +
                               16);
        nameAfter(sl.on, *chooser, QStringLiteral(" file"));
        chooser->setAccessibleDescription(slotNumber);
        chooser->setToolTip(QStringLiteral("Choose this slot's sound file"));
        bindWidget(sl.chooser, *chooser);
        grid.addWidget(chooser, row, kChooser);

        auto* on = new QCheckBox(widget);
        on->setMinimumWidth(nameWidth + 30);
        on->setAccessibleDescription(slotNumber);
        bindWidget(sl.on, *on);
        if (bank.custom() && s == 1) {
            // The first row of the custom bank is named by the right button.
            on->setContextMenuPolicy(Qt::CustomContextMenu);
            QObject::connect(on, &QWidget::customContextMenuRequested, on,
                             [&bank] { bank.renameFirstSlotByRightButton(); });
        }
        grid.addWidget(on, row, kName);

        grid.addWidget(rowSlider(sl.volume, sl.on, QStringLiteral("volume"), 25, widget), row,
                       kVolume);
        auto* value = smallLabel(QString(), widget, Qt::AlignRight | Qt::AlignVCenter);
        value->setMinimumWidth(value->fontMetrics().horizontalAdvance(QStringLiteral("000")) + 4);
        showValue(sl.volume, *value);
        grid.addWidget(value, row, kVolumeValue);

        addLimit(sl.lowLimitBar, sl.lowLimitText, sl.on, QStringLiteral("lower limit"), row,
                 kLowText, kLowBar, grid, widget);
        addLimit(sl.highLimitBar, sl.highLimitText, sl.on, QStringLiteral("upper limit"), row,
                 kHighText, kHighBar, grid, widget);

        grid.addWidget(rowSlider(sl.rate, sl.on, QStringLiteral("rate"), 50, widget), row, kRate);
        grid.addWidget(rowSlider(sl.balance, sl.on, QStringLiteral("balance"), 25, widget), row,
                       kBalance);
    }

    // The bulk buttons, each under its column.
    auto* rule = new QFrame(widget);
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Sunken);
    grid.addWidget(rule, kBulkRow, 0, 1, kColumns);
    // The range columns stack their "down" buttons under their "up" ones.
    const int upRow = kBulkRow + 1;
    const int downRow = kBulkRow + 2;
    grid.addWidget(heading(QStringLiteral("All slots"), widget, Qt::AlignLeft), upRow, kChooser, 1,
                   2, Qt::AlignVCenter);
    grid.addWidget(bulkButtons(bank.volumeButtons, QStringLiteral("Volume"), widget), upRow,
                   kVolume, 1, 2);
    const std::array<std::pair<int, QString>, 4> range{
        {{kLowText, QStringLiteral("Lower limit up")},
         {kLowText, QStringLiteral("Lower limit down")},
         {kHighText, QStringLiteral("Upper limit up")},
         {kHighText, QStringLiteral("Upper limit down")}}};
    for (std::size_t b = 0; b < range.size(); ++b) {
        grid.addWidget(smallButton(bank.rangeButtons[b], range[b].second, widget),
                       b % 2 == 0 ? upRow : downRow, range[b].first, 1, 2);
    }
    grid.addWidget(bulkButtons(bank.rateButtons, QStringLiteral("Rate"), widget), upRow, kRate);
    grid.addWidget(bulkButtons(bank.balanceButtons, QStringLiteral("Balance"), widget), upRow,
                   kBalance);

    grid.setColumnStretch(kVolume, 3);
    grid.setColumnStretch(kRate, 2);
    grid.setColumnStretch(kBalance, 2);
    grid.setColumnMinimumWidth(kRangeGap, style::kSpacing);
    if (!bank.custom()) {
        grid.setColumnMinimumWidth(kChooser, 0);
    }
    return widget;
}

QPushButton* commandButton(CommandButton& control, QWidget* parent) {
    auto* b = new QPushButton(parent);
    b->setMinimumWidth(90);
    bindWidget(control, *b);
    return b;
}

}  // namespace

BackgroundBankView::BackgroundBankView(BackgroundBank& bank, QWidget* parent)
    : QWidget(parent, Qt::Window) {
    auto* root = new QHBoxLayout(this);
    style::applySpacing(*root);
    root->setSpacing(style::kSectionGap);

    auto* desk = new QFrame(this);
    desk->setFrameShape(QFrame::StyledPanel);
    auto* deskLayout = new QVBoxLayout(desk);
    deskLayout->setContentsMargins(0, 0, 0, 0);
    deskLayout->addWidget(channelGrid(bank, desk));
    root->addWidget(desk, 1);

    auto* side = new QVBoxLayout();
    side->setSpacing(style::kSectionGap);
    side->addWidget(
        groupStrip({bank.MP3, bank.CD, bank.maxvol, bank.Random, bank.Bwaves, bank.Master},
                   MixGroup::Background, this),
        1);
    auto* commands = new QGridLayout();
    commands->setSpacing(style::kSpacing);
    commands->addWidget(commandButton(bank.stopButton, this), 0, 0, 1, 2);
    commands->addWidget(commandButton(bank.loadButton, this), 1, 0);
    commands->addWidget(commandButton(bank.saveButton, this), 1, 1);
    commands->addWidget(commandButton(bank.resetAllButton, this), 2, 0, 1, 2);
    commands->addWidget(commandButton(bank.selectSoundsButton, this), 3, 0, 1, 2);
    side->addLayout(commands);
    root->addLayout(side);

    followColours(bank.colours, *this);

    followPanelWindow(bank.window, *this, OnClose::HidePanel);
}

}  // namespace brevane
