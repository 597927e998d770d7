// FRMOPTIONS: its settings and their file, the sound-device list and "Apply", the
// pages, the keys, and launch at boot through the desktop's autostart folder.

#include "core/options_panel.h"

#include <gtest/gtest.h>

#include <algorithm>

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
using L = std::vector<std::string>;

using Options = test::SessionTree;

TEST_F(Options, TheFileIsAppliedAtLoadAndWrittenAtUnloadWithBuiltInValuesWithoutIt) {
    {
        SessionRun run(tree.root());
        const OptionsPanel& o = run.startAndLoad().FRMOPTIONS;
        EXPECT_EQ(o.colourWithScenario.caption(), "Allow color scheme change with scenario change");
        EXPECT_EQ(o.inactivityTime.items(), (L{"30", "60", "90", "120", "180", "240", "300"}));
        EXPECT_EQ(o.inactivityTime.listIndex(), 1);
        EXPECT_EQ(o.optionsRecord(), "1,1,1,1,0,\"60\",0,0,0\r\n");
    }
    put("opti.tmp", "0,1,0,0,1,\"240\",1,1,1\r\n");
    SessionRun run(tree.root());
    Application& app = run.startAndLoad();
    OptionsPanel& o = app.FRMOPTIONS;
    EXPECT_EQ(o.optionsRecord(), "0,1,0,0,1,\"240\",1,1,1\r\n");
    EXPECT_FALSE(o.colourWithScenario.checked());
    EXPECT_TRUE(o.previousScenario.checked());
    EXPECT_TRUE(o.dragContents.checked());
    EXPECT_EQ(o.inactivityTime.listIndex(), 5);
    EXPECT_EQ(app.InactivitySeconds, 240);

    o.autoHide.setChecked(true);
    o.inactivityTime.setListIndex(0);
    o.unload();
    EXPECT_EQ(fileText(at("opti.tmp")), "0,1,0,1,1,\"30\",1,1,1\r\n");
}

TEST_F(Options, AShortOrOddFileAppliesWhatItHolds) {
    // Truth values in either form; a typed time that is not in the list stands; what
    // the file lacks keeps its built-in value.
    put("opti.tmp", "#FALSE#,0,#TRUE#,1,#TRUE#,\"45\"");
    SessionRun run(tree.root());
    EXPECT_EQ(run.startAndLoad().FRMOPTIONS.optionsRecord(), "0,0,1,1,1,\"45\",0,0,0\r\n");
    EXPECT_EQ(run.app->InactivitySeconds, 45);

    // The second field is no truth value: the first stands, nothing after it.
    put("opti.tmp", "0,\"on\",0,0,1,\"90\",1,1,1\r\n");
    SessionRun bad(tree.root());
    EXPECT_EQ(bad.startAndLoad().FRMOPTIONS.optionsRecord(), "0,1,1,1,0,\"60\",0,0,0\r\n");
}

TEST_F(Options, DeviceRowsAreTheDriverNumbersAndApplyKeepsOneForTheNextStart) {
    SessionRun run(tree.root());
    Application& app = run.startAndLoad();
    OptionsPanel& o = app.FRMOPTIONS;
    EXPECT_EQ(o.soundDevices.items(), (L{"Built-in Audio", "USB Headset", "HDMI Output"}));
    // Asked from the last driver down, each put at the top.
    const auto asked = run.engine.callsOf(Op::DriverName);
    ASSERT_GE(asked.size(), 3u);
    EXPECT_EQ((std::vector<std::int64_t>{asked[0].a, asked[1].a, asked[2].a}),
              (std::vector<std::int64_t>{2, 1, 0}));
    EXPECT_EQ(o.soundDevices.listIndex(), 0);
    EXPECT_EQ(o.currentSoundcard.caption(), "Current Soundcard: Built-in Audio");

    // The engine stays on its device until the next start; the round trip opens the
    // one kept.
    run.engine.clearCalls();
    o.soundDevices.setListIndex(1);
    o.applyButton.click();
    EXPECT_EQ(app.SoundCardIndex, 1);
    EXPECT_EQ(o.currentSoundcard.caption(), "Current Soundcard: USB Headset");
    EXPECT_EQ(run.dialogs.messages(), L{OptionsPanel::kRestartText});
    EXPECT_TRUE(run.engine.calls().empty());
    // Kept at once, before any quit.
    EXPECT_EQ(fileText(at("scard.tmp")), "1\r\n");
}

TEST_F(Options, PagesShowOneAtATimeAndTheHotkeysPageListsKeysThatAct) {
    SessionRun run(tree.root());
    Application& app = run.startAndLoad();
    OptionsPanel& o = app.FRMOPTIONS;
    const auto shown = [&o] {
        L pages;
        for (const Label* f :
             {&o.startupFrame, &o.programFrame, &o.soundcardFrame, &o.hotkeysFrame}) {
            if (f->visible()) {
                pages.push_back(f->caption());
            }
        }
        return pages;
    };
    EXPECT_EQ(shown(), L{"Startup Options"});
    o.programOptionsButton.click();
    EXPECT_EQ(shown(), L{"Program Options"});
    o.hotkeysButton.click();
    EXPECT_EQ(shown(), L{"Hotkeys"});

    const auto& keys = programHotkeys();
    ASSERT_EQ(o.hotkeys.count(), static_cast<int>(keys.size()));
    const std::string last = o.hotkeys.item(o.hotkeys.count() - 1);
    EXPECT_EQ(last.rfind(keys.back().keys, 0), 0u) << last;
    EXPECT_NE(last.find(keys.back().action), std::string::npos) << last;
    const auto press = [&](const std::string& combination) {
        const auto key = std::find_if(keys.begin(), keys.end(),
                                      [&](const Hotkey& k) { return k.keys == combination; });
        ASSERT_NE(key, keys.end()) << combination;
        key->run(app);
    };
    const int master = app.frmmain.Master.value();
    press("Ctrl+Up");
    EXPECT_EQ(app.frmmain.Master.value(), master + 1);
    press("Ctrl+Q");
    EXPECT_EQ(run.exits, std::vector<ExitKind>{ExitKind::AfterCleanUp});
}

TEST_F(Options, LaunchAtBootMakesAndRemovesTheAutostartEntry) {
    TempTree home;
    XdgAutostartEntry entry(home.root() / "autostart", "/opt/brevane/brevane");
    {
        SessionRun run(tree.root(), &entry);
        CheckBox& launch = run.startAndLoad().FRMOPTIONS.launchOnBoot;
        EXPECT_EQ(launch.caption(), "Launch program automatically on boot");
        EXPECT_FALSE(launch.checked());
        EXPECT_FALSE(entry.enabled());

        launch.setChecked(true);
        EXPECT_TRUE(entry.enabled());
        const std::string text = fileText(home.root() / "autostart" / "brevane.desktop");
        EXPECT_EQ(text.rfind("[Desktop Entry]\nType=Application\n", 0), 0u);
        EXPECT_NE(text.find("\nExec=\"/opt/brevane/brevane\"\n"), std::string::npos);
        EXPECT_EQ(fileText(at("settings.ini")), "#TRUE#\r\n");
    }
    // The next start shows the setting and leaves the entry as it is.
    fs::remove(home.root() / "autostart" / "brevane.desktop");
    SessionRun run(tree.root(), &entry);
    CheckBox& launch = run.startAndLoad().FRMOPTIONS.launchOnBoot;
    EXPECT_TRUE(launch.checked());
    EXPECT_FALSE(entry.enabled());
    launch.setChecked(false);
    launch.setChecked(true);
    EXPECT_TRUE(entry.enabled());
    launch.setChecked(false);
    EXPECT_FALSE(entry.enabled());
    EXPECT_EQ(fileText(at("settings.ini")), "#FALSE#\r\n");
}

TEST(Autostart, ExecQuotesAndEscapesThePathAndAFolderThatCannotBeMadeFails) {
    EXPECT_EQ(desktopExecArgument("/home/me/My Sounds/brevane"), "\"/home/me/My Sounds/brevane\"");
    // '"', '`', '$' and '\' take a backslash inside the quotes, and every backslash is
    // then doubled as the entry's string values want; '%' is doubled.
    EXPECT_EQ(desktopExecArgument("/a\"b"), "\"/a\\\\\"b\"");
    EXPECT_EQ(desktopExecArgument("/a$b`c"), "\"/a\\\\$b\\\\`c\"");
    EXPECT_EQ(desktopExecArgument("/a\\b"), "\"/a\\\\\\\\b\"");
    EXPECT_EQ(desktopExecArgument("/100%/b"), "\"/100%%/b\"");

    TempTree home;
    putFile(home.root() / "blocker", "a file where the folder would be");
    XdgAutostartEntry entry(home.root() / "blocker" / "autostart", "/bin/true");
    EXPECT_FALSE(entry.setEnabled(true));
    EXPECT_FALSE(entry.enabled());
    EXPECT_FALSE(XdgAutostartEntry({}, "/bin/true").setEnabled(true));
}

}  // namespace
}  // namespace brevane
