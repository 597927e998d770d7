#include "ui/binding/bindings.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>
#include <memory>

#include "ui/widgets/style.h"

namespace brevane {
namespace {

// A shown window standing in for a view, so visibility and focus behave as on
// screen. Declared after the controls it shows, so it goes first, as a view must.
class View {
  public:
    View() {
        window.resize(300, 200);
        window.show();
    }
    template <class W>
    W* add() {
        auto* w = new W(&window);
        w->show();
        return w;
    }
    // A new widget bound to `control`, shown.
    template <class W, class C>
    W* bind(C& control) {
        W* w = bound<W>(control, &window);
        w->show();
        return w;
    }
    QWidget window;
};

// ---- sliders and scroll bars ----

TEST(Binding, SliderFollowsTheControlAndTheControlFollowsTheWidgetWithoutEchoes) {
    Slider control(0, 255, 40);
    control.setSmallChange(2);
    control.setLargeChange(16);
    View view;
    auto* widget = view.bind<QSlider>(control);
    EXPECT_EQ(widget->maximum(), 255);
    EXPECT_EQ(widget->value(), 40);
    EXPECT_EQ(widget->singleStep(), 2);
    EXPECT_EQ(widget->pageStep(), 16);

    int changes = 0;
    control.onChange = [&] { ++changes; };
    widget->setValue(100);
    EXPECT_EQ(control.value(), 100);
    EXPECT_EQ(changes, 1);

    QSignalSpy echoed(widget, &QSlider::valueChanged);
    control.setValue(7);
    control.setRange(0, 50);
    EXPECT_EQ(widget->value(), 7);
    EXPECT_EQ(widget->maximum(), 50);
    EXPECT_EQ(echoed.count(), 0) << "showing the control must not look like an edit";
    EXPECT_EQ(changes, 2);

    // A view that widened its widget by mistake still cannot push the value out.
    widget->setRange(0, 500);
    widget->setValue(400);
    EXPECT_EQ(control.value(), 50);
    EXPECT_EQ(widget->value(), 50);
}

TEST(Binding, ScrollBarRefusesAnEditOutsideItsRangeAndRunsBackwardsWithMinAboveMax) {
    ScrollBar control(100, 0, 80);
    int changes = 0;
    control.onChange = [&] { ++changes; };
    View view;
    auto* widget = view.bind<QScrollBar>(control);
    EXPECT_EQ(widget->minimum(), 0);
    EXPECT_EQ(widget->maximum(), 100);
    EXPECT_EQ(widget->value(), 80);
    EXPECT_TRUE(widget->invertedAppearance());
    control.setRange(0, 100);
    EXPECT_FALSE(widget->invertedAppearance());

    widget->setRange(0, 500);
    widget->setValue(400);
    EXPECT_EQ(control.value(), 80);
    EXPECT_EQ(widget->value(), 80);
    EXPECT_EQ(changes, 0);
}

TEST(Binding, HandlerThatSetsTheValueAgainRunsOncePerEditAndItsValueIsShown) {
    Slider control(0, 255, 0);
    std::vector<int> seen;
    bool snap = false;
    control.onChange = [&] {
        seen.push_back(control.value());
        control.setValue(snap ? control.value() / 10 * 10 : control.value());
    };
    View view;
    auto* widget = view.bind<QSlider>(control);
    QSignalSpy edits(widget, &QSlider::valueChanged);
    widget->setValue(13);
    EXPECT_EQ(seen, (std::vector<int>{13}));
    EXPECT_EQ(edits.count(), 1) << "only the user's own edit";

    snap = true;
    widget->setValue(27);
    EXPECT_EQ(seen, (std::vector<int>{13, 27, 20}));
    EXPECT_EQ(control.value(), 20);
    EXPECT_EQ(widget->value(), 20);
    EXPECT_EQ(edits.count(), 2);
}

// ---- buttons ----

TEST(Binding, ClicksRunTheHandlerOnceOnlyWhileEnabledAndCodeChangesShow) {
    CheckBox check;
    check.setCaption("Loop");
    CommandButton command;
    command.setCaption("Save");
    int checks = 0;
    int commands = 0;
    check.onClick = [&] { ++checks; };
    command.onClick = [&] { ++commands; };
    View view;
    auto* checkWidget = view.bind<QCheckBox>(check);
    auto* commandWidget = view.bind<QPushButton>(command);
    EXPECT_EQ(checkWidget->text(), QStringLiteral("Loop"));
    EXPECT_EQ(commandWidget->text(), QStringLiteral("Save"));

    QTest::mouseClick(checkWidget, Qt::LeftButton);
    QTest::mouseClick(commandWidget, Qt::LeftButton);
    EXPECT_EQ(check.value(), 1);
    EXPECT_EQ(checks, 1);
    EXPECT_EQ(commands, 1);

    check.setValue(0);
    EXPECT_FALSE(checkWidget->isChecked());
    EXPECT_EQ(checks, 2);
    command.setEnabled(false);
    EXPECT_FALSE(commandWidget->isEnabled());
    QTest::mouseClick(commandWidget, Qt::LeftButton);
    EXPECT_EQ(commands, 1);
}

TEST(Binding, OptionButtonsFollowTheirGroupNotTheirParent) {
    OptionGroup group;
    OptionButton a, b;
    group.add(a);
    group.add(b);
    OptionButton elsewhere;  // another frame's button, same parent widget
    elsewhere.setValue(true);
    int aClicks = 0;
    a.onClick = [&] { ++aClicks; };
    View view;
    auto* wa = view.bind<QRadioButton>(a);
    auto* wb = view.bind<QRadioButton>(b);
    auto* wElsewhere = view.bind<QRadioButton>(elsewhere);

    b.setValue(true);
    EXPECT_TRUE(wb->isChecked());
    QTest::mouseClick(wa, Qt::LeftButton);
    EXPECT_TRUE(a.value());
    EXPECT_FALSE(b.value());
    EXPECT_FALSE(wb->isChecked());
    EXPECT_TRUE(wElsewhere->isChecked()) << "another group is not cleared";
    EXPECT_EQ(aClicks, 1);

    // Clicking the set button again leaves it set and runs nothing.
    QTest::mouseClick(wa, Qt::LeftButton);
    EXPECT_TRUE(wa->isChecked());
    EXPECT_TRUE(a.value());
    EXPECT_EQ(aClicks, 1);
}

TEST(Binding, ToggleButtonStaysDownWithItsControlUnlessTheHandlerRefuses) {
    ToggleButton control;
    int clicks = 0;
    bool refuse = false;
    control.onClick = [&] {
        ++clicks;
        if (refuse && control.value()) {
            control.setValue(false);
        }
    };
    View view;
    auto* widget = view.bind<QPushButton>(control);
    EXPECT_TRUE(widget->isCheckable());
    QTest::mouseClick(widget, Qt::LeftButton);
    EXPECT_TRUE(control.value());
    EXPECT_TRUE(widget->isChecked());
    control.setValue(false);
    EXPECT_FALSE(widget->isChecked());
    EXPECT_EQ(clicks, 2);

    refuse = true;
    QTest::mouseClick(widget, Qt::LeftButton);
    EXPECT_FALSE(control.value());
    EXPECT_FALSE(widget->isChecked());
    EXPECT_EQ(clicks, 4);  // down, then up again by the handler
}

// ---- text ----

TEST(Binding, TypingChangesTheTextBoxOnEveryKeystrokeAndAHandlersRewriteIsShown) {
    TextBox control;
    std::vector<std::string> seen;
    bool upper = false;
    control.onChange = [&] {
        seen.push_back(control.text());
        if (upper) {
            std::string text = control.text();
            for (char& c : text) {
                c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
            }
            control.setText(text);
        }
    };
    View view;
    auto* widget = view.bind<QLineEdit>(control);
    QTest::keyClicks(widget, QStringLiteral("ab"));
    EXPECT_EQ(control.text(), "ab");
    EXPECT_EQ(seen, (std::vector<std::string>{"a", "ab"}));
    control.setText("12:30");
    EXPECT_EQ(widget->text(), QStringLiteral("12:30"));

    // Showing the control does not move the cursor while typing.
    widget->setCursorPosition(2);
    control.setToolTip("Scenario name");  // any change makes the view repaint
    EXPECT_EQ(widget->cursorPosition(), 2);
    QTest::keyClicks(widget, QStringLiteral("X"));
    EXPECT_EQ(control.text(), "12X:30");

    upper = true;
    widget->clear();
    QTest::keyClicks(widget, QStringLiteral("xy"));
    EXPECT_EQ(control.text(), "XY");
    EXPECT_EQ(widget->text(), QStringLiteral("XY"));
}

// ---- lists ----

TEST(Binding, ComboBoxPickGoesToTheControlOnceAndNewEntriesKeepTheSelectionWithoutAClick) {
    ComboBox control;
    for (const char* s : {"Rain", "Thunder", "Wind"}) {
        control.addItem(s);
    }
    int clicks = 0;
    control.onClick = [&] { ++clicks; };
    View view;
    auto* widget = view.bind<QComboBox>(control);
    EXPECT_EQ(widget->count(), 3);
    EXPECT_EQ(widget->currentIndex(), -1);

    widget->setCurrentIndex(1);
    EXPECT_EQ(control.listIndex(), 1);
    EXPECT_EQ(control.text(), "Thunder");
    EXPECT_EQ(clicks, 1);
    control.setListIndex(2);
    EXPECT_EQ(widget->currentIndex(), 2);
    EXPECT_EQ(clicks, 2);

    control.addItem("Snow", 0);  // the selection moves to index 3 with its entry
    control.setItem(0, "Sleet");
    EXPECT_EQ(widget->count(), 4);
    EXPECT_EQ(widget->itemText(0), QStringLiteral("Sleet"));
    EXPECT_EQ(control.listIndex(), 3);
    EXPECT_EQ(widget->currentIndex(), 3);
    EXPECT_EQ(clicks, 2);
}

TEST(Binding, EditableComboBoxTypingChangesTheTextNotTheListOrIndex) {
    ComboBox control;
    control.addItem("5");
    control.addItem("10");
    control.setListIndex(0);
    int changes = 0;
    int clicks = 0;
    control.onChange = [&] { ++changes; };
    control.onClick = [&] { ++clicks; };
    View view;
    auto* widget = view.add<QComboBox>();
    widget->setEditable(true);
    bindWidget(control, *widget);
    EXPECT_EQ(widget->currentText(), QStringLiteral("5"));

    widget->lineEdit()->selectAll();
    QTest::keyClicks(widget->lineEdit(), QStringLiteral("42"));
    QTest::keyClick(widget->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(control.text(), "42");
    EXPECT_EQ(control.listIndex(), 0);
    EXPECT_EQ(control.count(), 2);
    EXPECT_EQ(widget->count(), 2) << "typed text never joins the list";
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(clicks, 0);

    control.setText("15");
    EXPECT_EQ(widget->currentText(), QStringLiteral("15"));
}

TEST(Binding, ListBoxSelectionFollowsBothWays) {
    ListBox control;
    for (const char* s : {"Forest.scn", "Harbour.scn", "Night.scn"}) {
        control.addItem(s);
    }
    int clicks = 0;
    control.onClick = [&] { ++clicks; };
    View view;
    auto* widget = view.bind<QListWidget>(control);
    ASSERT_EQ(widget->count(), 3);

    widget->setCurrentRow(2);
    EXPECT_EQ(control.listIndex(), 2);
    EXPECT_EQ(clicks, 1);

    control.removeItem(2);  // the selected entry goes, and the selection with it
    EXPECT_EQ(widget->count(), 2);
    EXPECT_EQ(widget->currentRow(), -1);
    EXPECT_TRUE(widget->selectedItems().isEmpty());

    control.setListIndex(0);
    EXPECT_EQ(widget->currentRow(), 0);
    EXPECT_EQ(clicks, 2);
    control.clear();
    EXPECT_EQ(widget->count(), 0);
}

// ---- what every control shares ----

TEST(Binding, LabelCaptionIsPlainTextAndEnabledVisibleAndToolTipFollowTheControl) {
    Label control;
    control.setCaption("<b>Rain</b>\r\nlevel");
    View view;
    auto* widget = view.bind<QLabel>(control);
    EXPECT_EQ(widget->textFormat(), Qt::PlainText);
    EXPECT_EQ(widget->text(), QStringLiteral("<b>Rain</b>\nlevel"));

    EXPECT_TRUE(widget->isVisible());
    control.setVisible(false);
    control.setEnabled(false);
    control.setToolTip("Sound file");
    EXPECT_FALSE(widget->isVisible());
    EXPECT_FALSE(widget->isEnabled());
    EXPECT_EQ(widget->toolTip(), QStringLiteral("Sound file"));
    control.setVisible(true);
    EXPECT_TRUE(widget->isVisible());
}

TEST(Binding, ColoursPaintTheWidgetAndClearingThemGivesItsLookBack) {
    Label control;
    View view;
    auto* widget = view.bind<QLabel>(control);
    const QColor inheritedText = widget->palette().color(QPalette::WindowText);

    control.setForeColour(0x000000FFu);
    control.setBackColour(0x00FF0000u);
    EXPECT_EQ(widget->palette().color(QPalette::WindowText), QColor(255, 0, 0));
    EXPECT_EQ(widget->palette().color(QPalette::Window), QColor(0, 0, 255));
    EXPECT_TRUE(widget->autoFillBackground());

    control.setForeColour(std::nullopt);
    control.setBackColour(std::nullopt);
    EXPECT_EQ(widget->palette().color(QPalette::WindowText), inheritedText);
    EXPECT_FALSE(widget->autoFillBackground());

    // With no colour of its own, the widget follows its window's palette again.
    QPalette p = view.window.palette();
    p.setColor(QPalette::WindowText, QColor(1, 2, 3));
    view.window.setPalette(p);
    EXPECT_EQ(widget->palette().color(QPalette::WindowText), QColor(1, 2, 3));
}

// ---- lifetime ----

TEST(Binding, WidgetDestroyedBeforeTheControlOrByItsOwnClickStopsBeingWatched) {
    Slider control(0, 255, 0);
    View view;
    auto* widget = view.bind<QSlider>(control);
    delete widget;
    // The control goes on, with nothing left to show it (a sanitizer build sees
    // any touch of the freed widget here).
    control.setValue(99);
    control.setCaption("Volume");
    auto* again = view.bind<QSlider>(control);
    EXPECT_EQ(again->value(), 99);

    CommandButton button;
    QPointer<QPushButton> watched(view.add<QPushButton>());
    button.onClick = [&] { delete watched.data(); };
    bindWidget(button, *watched);
    watched->click();
    EXPECT_TRUE(watched.isNull());
    button.setCaption("Close");  // nothing is watching any more
    EXPECT_EQ(button.caption(), "Close");
}

}  // namespace
}  // namespace brevane
