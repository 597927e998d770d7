#include "base/controls.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brevane {
namespace {

TEST(Controls, SliderClampsRunsItsHandlerOnlyOnARealChangeAndFollowsANarrowedRange) {
    Slider s(1, 100, 50);
    int calls = 0;
    s.onChange = [&] { ++calls; };
    s.setValue(50);
    EXPECT_EQ(calls, 0);
    s.setValue(500);
    EXPECT_EQ(s.value(), 100);
    EXPECT_EQ(calls, 1);
    s.setValue(101);  // clamps to the same end: no change
    EXPECT_EQ(calls, 1);
    s.setValue(-7);
    EXPECT_EQ(s.value(), 1);
    EXPECT_EQ(calls, 2);
    // Narrowing the range brings the value inside and runs the handler.
    Slider narrow(0, 255, 200);
    std::vector<int> seen;
    narrow.onChange = [&] { seen.push_back(narrow.value()); };
    narrow.setRange(0, 100);
    EXPECT_EQ(narrow.value(), 100);
    EXPECT_EQ(seen, std::vector<int>{100});
}

TEST(Controls, ScrollBarRefusesOutOfRangeValuesEitherWayRoundAndKeepsItsValue) {
    ScrollBar bar(0, 255, 100);
    int calls = 0;
    bar.onChange = [&] { ++calls; };
    EXPECT_FALSE(bar.setValue(-5));
    EXPECT_FALSE(bar.setValue(256));
    EXPECT_EQ(bar.value(), 100);
    EXPECT_EQ(calls, 0);
    EXPECT_TRUE(bar.setValue(255));
    EXPECT_EQ(calls, 1);
    ScrollBar inverted(255, 0, 255);
    EXPECT_TRUE(inverted.setValue(0));
    EXPECT_TRUE(inverted.setValue(200));
    EXPECT_FALSE(inverted.setValue(-1));
    EXPECT_EQ(inverted.value(), 200);
    EXPECT_EQ(inverted.low(), 0);
    EXPECT_EQ(inverted.high(), 255);
}

TEST(Controls, HandlersRunNestedAndSynchronouslyAndDoNotRecurseOnTheSameValue) {
    // A handler that sets another control sees that control's handler finish
    // before its own next line runs.
    Slider a, b, c;
    std::vector<std::string> order;
    a.onChange = [&] {
        order.push_back("a begins");
        b.setValue(a.value() + 1);
        order.push_back("a ends with c=" + std::to_string(c.value()));
    };
    b.onChange = [&] {
        order.push_back("b");
        c.setValue(b.value() + 1);
    };
    c.onChange = [&] { order.push_back("c"); };
    a.setValue(10);
    EXPECT_EQ(order, (std::vector<std::string>{"a begins", "b", "c", "a ends with c=12"}));
    // A handler setting its own control to the same value does not recurse.
    Slider s;
    int calls = 0;
    s.onChange = [&] {
        ++calls;
        s.setValue(s.value());
    };
    s.setValue(3);
    EXPECT_EQ(calls, 1);
}

TEST(Controls, CheckBoxAndOptionButtonsClickWhenCodeChangesThemAndAGroupClearsQuietly) {
    CheckBox box;
    int clicks = 0;
    box.onClick = [&] { ++clicks; };
    box.setValue(7);
    EXPECT_EQ(box.value(), 1);
    box.setValue(1);
    box.setChecked(true);
    EXPECT_EQ(clicks, 1);
    box.setChecked(false);
    EXPECT_EQ(clicks, 2);
    // Setting an option button clears the rest of its group quietly.
    OptionGroup group;
    OptionButton a, b, c;
    group.add(a);
    group.add(b);
    group.add(c);
    int aClicks = 0, bClicks = 0;
    a.onClick = [&] { ++aClicks; };
    b.onClick = [&] { ++bClicks; };
    a.setValue(true);
    b.setValue(true);
    EXPECT_FALSE(a.value());
    EXPECT_TRUE(b.value());
    EXPECT_EQ(group.selectedIndex(), 1);
    EXPECT_EQ(aClicks, 1);
    EXPECT_EQ(bClicks, 1);
    b.setValue(false);
    EXPECT_EQ(group.selectedIndex(), -1);
    EXPECT_EQ(bClicks, 1);
}

TEST(Controls, TextAndComboBoxesRunTheirHandlersOnRealChangesWithTheTextSet) {
    TextBox t;
    std::vector<std::string> seen;
    t.onChange = [&] { seen.push_back(t.text()); };
    t.setText("1");
    t.setText("1");
    t.setText("12");
    t.setText("");
    EXPECT_EQ(seen, (std::vector<std::string>{"1", "12", ""}));
    ComboBox box;
    box.addItem("1");
    box.addItem("5");
    box.addItem("10");
    std::string seenText;
    int clicks = 0;
    box.onClick = [&] {
        ++clicks;
        seenText = box.text();
    };
    box.setListIndex(2);
    EXPECT_EQ(seenText, "10");
    box.setListIndex(2);
    box.setListIndex(3);  // past the end: ignored
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(box.listIndex(), 2);
    box.clear();
    EXPECT_EQ(box.listIndex(), -1);
    EXPECT_EQ(box.text(), "");
}

TEST(Controls, ListBoxSelectionFollowsInsertionsAndRemovals) {
    ListBox list;
    list.addItem("b");
    list.addItem("c");
    list.setListIndex(1);  // "c"
    list.addItem("a", 0);
    EXPECT_EQ(list.listIndex(), 2);
    EXPECT_EQ(list.item(list.listIndex()), "c");
    list.removeItem(0);
    EXPECT_EQ(list.item(list.listIndex()), "c");
    list.removeItem(1);
    EXPECT_EQ(list.listIndex(), -1);
    EXPECT_EQ(list.item(5), "");
    EXPECT_EQ(list.find("b"), 0);
}

TEST(Controls, WatchersSeeTheNewValueBeforeTheHandlerAndDisabledButtonsIgnoreClicks) {
    Slider s;
    std::vector<std::string> order;
    Control::WatchId id = s.watch([&] { order.push_back("view " + std::to_string(s.value())); });
    s.onChange = [&] { order.push_back("handler"); };
    s.setValue(4);
    s.unwatch(id);
    s.setValue(5);
    s.setEnabled(false);
    EXPECT_EQ(order, (std::vector<std::string>{"view 4", "handler", "handler"}));
    CommandButton b;
    int clicks = 0;
    b.onClick = [&] { ++clicks; };
    b.click();
    b.setEnabled(false);
    b.click();
    EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace brevane
