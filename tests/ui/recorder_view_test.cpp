// The recorder's window: read aloud and worked from the keyboard, and following the
// panel's mode.

#include <gtest/gtest.h>

#include <QGroupBox>
#include <QProgressBar>
#include <QPushButton>

#include "base/dialogs.h"
#include "base/event_loop.h"
#include "base/temp_tree.h"
#include "recorder/recorder_panel.h"
#include "ui/reads_aloud.h"
#include "ui/recorder/recorder_view.h"

namespace brevane {
namespace {

TEST(RecorderView, ReadsAloudWorksFromTheKeyboardAndShowsOneModeAtATime) {
    TempTree tree;
    EventLoop loop;
    ScriptedDialogs dialogs;
    RecorderPanel panel(AppPath(tree.root()), loop, dialogs, tree.root(), "brevane-test-none");
    RecorderView view(panel);
    panel.show();
    EXPECT_GE(test::expectReadsAloud(view).size(), 6);
    EXPECT_EQ(view.windowTitle(), QStringLiteral("Brevane Recorder"));

    auto* render = test::named<QPushButton>(view, QStringLiteral("Render"));
    auto* record = test::named<QPushButton>(view, QStringLiteral("Record"));
    ASSERT_NE(render, nullptr);
    ASSERT_NE(record, nullptr);
    EXPECT_TRUE(render->isVisible());
    // No scenario in this tree: nothing to render.
    EXPECT_FALSE(render->isEnabled());
    EXPECT_FALSE(record->isVisible());
    panel.recordMode.setValue(true);
    EXPECT_FALSE(render->isVisible());
    EXPECT_TRUE(record->isVisible());
    EXPECT_NE(test::named<QProgressBar>(view, QStringLiteral("Left")), nullptr);
}

}  // namespace
}  // namespace brevane
