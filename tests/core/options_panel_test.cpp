// FRMOPTIONS: its settings and their file, the sound-device list and "Apply", the
// pages, the keys, and launch at boot through the desktop's autostart folder.

#include "core/options_panel.h"

#include <gtest/gtest.h>

#include "base/temp_tree.h"
#include "core/application.h"
#include "core/autostart.h"
#include "core/hotkeys.h"
#include "core/session_run.h"

namespace brevane {
namespace {

namespace fs = std::filesystem;
using test::fileText;
using test::putFile;
using test::SessionRun;
using Op = RecordingEngine::Op;

class Options : public ::testing::Test {
  protected:
    void SetUp() override { fs::create_directories(tree.root() / "bin"); }
    fs::path at(const std::string& name) const { return tree.root() / name; }

    TempTree tree;
};

TEST_F(Options, DefaultsAndTheirFile) {
    SessionRun run(tree.root());
    Application& app = run.startAndLoad();
    const OptionsPanel& o = app.FRMOPTIONS;
    EXPECT_EQ(o.colourWithScenario.caption(), "Allow color scheme change with scenario change");
    EXPECT_TRUE(o.colourWithScenario.checked());
    EXPECT_TRUE(o.colourOnRemote.checked());
    EXPECT_TRUE(o.startHidden.checked());
    EXPECT_TRUE(o.autoHide.checked());
    EXPECT_FALSE(o.previousScenario.checked());
    EXPECT_EQ(o.inactivityTime.text(), "60");
    EXPECT_FALSE(o.confirmExit.checked());
    EXPECT_FALSE(o.brainwaveWithScenario.checked());
    EXPECT_FALSE(o.dragContents.checked());
    EXPECT_EQ(o.inactivityTime.items(),
              (std::vector<std::string>{"30", "60", "90", "120", "180", "240", "300"}));
    EXPECT_EQ(o.inactivityTime.listIndex(), 1);
    EXPECT_EQ(o.optionsRecord(), "1,1,1,1,0,\"60\",0,0,0\r\n");
}

TEST_F(Options, TheFileIsAppliedAtLoadAndWrittenAtUnload) {
    putFile(at("opti.tmp"), "0,1,0,0,1,\"240\",1,1,1\r\n");
    SessionRun run(tree.root());
    Application& app = run.startAndLoad();
    OptionsPanel& o = app.FRMOPTIONS;
    EXPECT_FALSE(o.colourWithScenario.checked());
    EXPECT_TRUE(o.colourOnRemote.checked());
    EXPECT_FALSE(o.startHidden.checked());
    EXPECT_FALSE(o.autoHide.checked());
    EXPECT_TRUE(o.previousScenario.checked());
    EXPECT_EQ(o.inactivityTime.listIndex(), 5);
    EXPECT_TRUE(o.confirmExit.checked());
    EXPECT_TRUE(o.brainwaveWithScenario.checked());
    EXPECT_TRUE(o.dragContents.checked());
    EXPECT_EQ(app.InactivitySeconds, 240);

    o.autoHide.setChecked(true);
    o.inactivityTime.setListIndex(0);
    o.unload();
    EXPECT_EQ(fileText(at("opti.tmp")), "0,1,0,1,1,\"30\",1,1,1\r\n");
}

TEST_F(Options, AShortOrOddFileAppliesWhatItHolds) {
    // Truth values in either form; a typed time that is not in the list stands.
    putFile(at("opti.tmp"), "#FALSE#,0,#TRUE#,1,#TRUE#,\"45\"");
    SessionRun run(tree.root());
    Application& app = run.startAndLoad();
    OptionsPanel& o = app.FRMOPTIONS;
    EXPECT_FALSE(o.colourWithScenario.checked());
    EXPECT_FALSE(o.colourOnRemote.checked());
    EXPECT_TRUE(o.previousScenario.checked());
    EXPECT_EQ(o.inactivityTime.text(), "45");
    EXPECT_EQ(app.InactivitySeconds, 45);
    EXPECT_FALSE(o.confirmExit.checked());  // not in the file: default

    putFile(at("opti.tmp"), "1,\"on\",0,0,1,\"60\",1,1,1\r\n");
    SessionRun bad(tree.root());
    bad.startAndLoad();
    // The second field is no truth value: the first stands, nothing after it.
    EXPECT_TRUE(bad.app->FRMOPTIONS.colourOnRemote.checked());
    EXPECT_FALSE(bad.app->FRMOPTIONS.previousScenario.checked());
    EXPECT_FALSE(bad.app->FRMOPTIONS.confirmExit.checked());
}

TEST_F(Options, DeviceRowsAreTheDriverNumbers) {
    SessionRun run(tree.root());
    Application& app = run.startAndLoad();
    const OptionsPanel& o = app.FRMOPTIONS;
    EXPECT_EQ(o.soundDevices.items(),
              (std::vector<std::string>{"Built-in Audio", "USB Headset", "HDMI Output"}));
    // Asked from the last driver down, each put at the top.
    std::vector<std::int64_t> asked;
    for (const auto& call : run.engine.callsOf(Op::DriverName)) {
        asked.push_back(call.a);
    }
    ASSERT_GE(asked.size(), 3u);
    EXPECT_EQ((std::vector<std::int64_t>(asked.begin(), asked.begin() + 3)),
              (std::vector<std::int64_t>{2, 1, 0}));
    EXPECT_EQ(o.soundDevices.listIndex(), 0);
    EXPECT_EQ(o.currentSoundcard.caption(), "Current Soundcard: Built-in Audio");
}

TEST_F(Options, ApplyKeepsTheDeviceForTheNextStartAndLeavesTheEngineAlone) {
    // The next start opening that device is part of the session's round trip.
    SessionRun run(tree.root());
    Application& app = run.startAndLoad();
    run.engine.clearCalls();
    app.FRMOPTIONS.soundDevices.setListIndex(1);
    app.FRMOPTIONS.applyButton.click();
    EXPECT_EQ(app.SoundCardIndex, 1);
    EXPECT_EQ(app.FRMOPTIONS.currentSoundcard.caption(), "Current Soundcard: USB Headset");
    EXPECT_EQ(run.dialogs.messages(), std::vector<std::string>{OptionsPanel::kRestartText});
    EXPECT_TRUE(run.engine.callsOf(Op::Start).empty());
    EXPECT_TRUE(run.engine.callsOf(Op::Close).empty());
    // Kept at once, before any quit.
    EXPECT_EQ(fileText(at("scard.tmp")), "1\r\n");
}

TEST_F(Options, PagesShowOneAtATime) {
    SessionRun run(tree.root());
    Application& app = run.startAndLoad();
    OptionsPanel& o = app.FRMOPTIONS;
    const auto shown = [&o] {
        std::vector<std::string> pages;
        for (const Label* f :
             {&o.startupFrame, &o.programFrame, &o.soundcardFrame, &o.hotkeysFrame}) {
            if (f->visible()) {
                pages.push_back(f->caption());
            }
        }
        return pages;
    };
    EXPECT_EQ(shown(), std::vector<std::string>{"Startup Options"});
    o.soundcardSelectButton.click();
    EXPECT_EQ(shown(), std::vector<std::string>{"Soundcard Select"});
    o.hotkeysButton.click();
    EXPECT_EQ(shown(), std::vector<std::string>{"Hotkeys"});
    o.programOptionsButton.click();
    EXPECT_EQ(shown(), std::vector<std::string>{"Program Options"});
}

TEST_F(Options, TheHotkeysPageListsEveryKeyAndTheKeysAct) {
    SessionRun run(tree.root());
    Application& app = run.startAndLoad();
    const auto& keys = programHotkeys();
    ASSERT_EQ(app.FRMOPTIONS.hotkeys.count(), static_cast<int>(keys.size()));
    for (std::size_t k = 0; k < keys.size(); ++k) {
        const std::string line = app.FRMOPTIONS.hotkeys.item(static_cast<int>(k));
        EXPECT_EQ(line.rfind(keys[k].keys, 0), 0u) << line;
        EXPECT_NE(line.find(keys[k].action), std::string::npos) << line;
    }
    const auto run_ = [&](const std::string& combination) {
        for (const Hotkey& key : keys) {
            if (key.keys == combination) {
                key.run(app);
                return;
            }
        }
        FAIL() << combination << " is not a key of the program";
    };
    run_("Ctrl+O");
    EXPECT_TRUE(app.FRMOPTIONS.window.visible());
    run_("Ctrl+2");
    EXPECT_TRUE(app.frmback2.window.visible());
    const int master = app.frmmain.Master.value();
    run_("Ctrl+Up");
    EXPECT_EQ(app.frmmain.Master.value(), master + 1);
    run_("Ctrl+Q");
    EXPECT_EQ(run.exits, std::vector<ExitKind>{ExitKind::AfterCleanUp});
}

TEST_F(Options, LaunchAtBootMakesAndRemovesTheAutostartEntry) {
    TempTree home;
    XdgAutostartEntry entry(home.root() / "autostart", "/opt/brevane/brevane");
    {
        SessionRun run(tree.root(), &entry);
        Application& app = run.startAndLoad();
        EXPECT_EQ(app.FRMOPTIONS.launchOnBoot.caption(), "Launch program automatically on boot");
        EXPECT_FALSE(app.FRMOPTIONS.launchOnBoot.checked());
        EXPECT_FALSE(entry.enabled());

        app.FRMOPTIONS.launchOnBoot.setChecked(true);
        EXPECT_TRUE(entry.enabled());
        const std::string text = fileText(home.root() / "autostart" / "brevane.desktop");
        EXPECT_NE(text.find("[Desktop Entry]\n"), std::string::npos);
        EXPECT_NE(text.find("Type=Application\n"), std::string::npos);
        EXPECT_NE(text.find("Exec=\"/opt/brevane/brevane\"\n"), std::string::npos);
        EXPECT_EQ(fileText(at("settings.ini")), "#TRUE#\r\n");
    }
    // The next start shows the setting and leaves the entry as it is.
    fs::remove(home.root() / "autostart" / "brevane.desktop");
    {
        SessionRun run(tree.root(), &entry);
        Application& app = run.startAndLoad();
        EXPECT_TRUE(app.FRMOPTIONS.launchOnBoot.checked());
        EXPECT_FALSE(entry.enabled());
        app.FRMOPTIONS.launchOnBoot.setChecked(false);
        app.FRMOPTIONS.launchOnBoot.setChecked(true);
        EXPECT_TRUE(entry.enabled());
        app.FRMOPTIONS.launchOnBoot.setChecked(false);
        EXPECT_FALSE(entry.enabled());
        EXPECT_EQ(fileText(at("settings.ini")), "#FALSE#\r\n");
    }
}

TEST(Autostart, ExecQuotesAndEscapesThePath) {
    EXPECT_EQ(desktopExecArgument("/usr/bin/brevane"), "\"/usr/bin/brevane\"");
    EXPECT_EQ(desktopExecArgument("/home/me/My Sounds/brevane"), "\"/home/me/My Sounds/brevane\"");
    // '"', '`', '$' and '\' take a backslash inside the quotes, and every backslash is
    // then doubled as the entry's string values want; '%' is doubled.
    EXPECT_EQ(desktopExecArgument("/a\"b"), "\"/a\\\\\"b\"");
    EXPECT_EQ(desktopExecArgument("/a$b`c"), "\"/a\\\\$b\\\\`c\"");
    EXPECT_EQ(desktopExecArgument("/a\\b"), "\"/a\\\\\\\\b\"");
    EXPECT_EQ(desktopExecArgument("/100%/b"), "\"/100%%/b\"");
}

TEST(Autostart, AFolderThatCannotBeMadeFailsWithoutAnEntry) {
    TempTree home;
    putFile(home.root() / "blocker", "a file where the folder would be");
    XdgAutostartEntry entry(home.root() / "blocker" / "autostart", "/bin/true");
    EXPECT_FALSE(entry.setEnabled(true));
    EXPECT_FALSE(entry.enabled());
    XdgAutostartEntry nowhere({}, "/bin/true");
    EXPECT_FALSE(nowhere.setEnabled(true));
}

}  // namespace
}  // namespace brevane
