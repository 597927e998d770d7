// The MP3 player and its playlist on the whole Application, the real mixer rendering
// offline: the volume law both ways with the console, stepping and the end of a track,
// the time display, and the playlists with their messages.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "base/file_io.h"
#include "core/app_harness.h"
#include "core/application.h"
#include "engine/mixer_engine.h"
#include "engine/music_stream.h"
#include "engine/test_sounds.h"

namespace brevane {
namespace {

class Mp3Player : public ::testing::Test {
  protected:
    void SetUp() override {
        h.writeFile("main.tmp", "\"False\",\"\",0,0,\"\",\"\",\"\",0\r\n");
        for (const char* name : {"one.wav", "two.wav", "three.wav"}) {
            tracks.push_back(
                test::writeMono(h.tree.root(), name, test::sine(440, 44100, 44100 / 2), 44100)
                    .string());
        }
        app = &h.startAndLoad();
    }
    Frmmainmp3& mp3() { return app->frmmainmp3; }
    FrmList& list() { return app->frmmainmp3.frmList; }
    MediaPlayer& bus() { return *h.engine.mediaPlayer(); }
    void fillList() {
        for (const std::string& t : tracks) {
            list().List_Add(t);
        }
    }
    // Plays the current track out and lets the player hear of its end.
    void playOut() {
        h.engine.render(44100);
        h.loop.advance(Frmmainmp3::kWatchMs);
    }
    std::string file(const std::string& relative) {
        return readWholeFile(h.tree.root() / relative).value_or("<missing>");
    }

    test::AppHarness<MixerEngine> h{5, MixerEngine::Output::Offline};
    Application* app = nullptr;
    std::vector<std::string> tracks;
};

TEST_F(Mp3Player, TheVolumeLawFollowsTheConsoleBothWays) {
    // The group's 0 to 5000 is the law's mix of 0 to 100 %.
    EXPECT_EQ(mp3ControlVolume(5000, 5000), 0);
    EXPECT_EQ(mp3ControlVolume(5000, 2500), -2500);
    EXPECT_EQ(mp3ControlVolume(2000, 5000), -3000);
    EXPECT_EQ(mp3ControlVolume(1000, 1000), -4800);  // not yet full, low on both
    EXPECT_EQ(mp3ControlVolume(4000, 0), -10000);

    mp3().hscroll1.setValue(2500);
    EXPECT_EQ(app->frmmain.MP3.value(), 2500);
    EXPECT_EQ(bus().volume(), -3750);
    app->frmmain.MP3.setValue(4000);
    EXPECT_EQ(mp3().hscroll1.value(), 4000);
    EXPECT_EQ(bus().volume(), -1800);
}

TEST_F(Mp3Player, SequentialPlayStepsWithinTheListAndStopsAtItsEnd) {
    // Nothing in the list: play says so.
    mp3().cmdplay.click();
    EXPECT_EQ(mp3().LCD1.line(1), "No Track");

    fillList();
    mp3().cmdplay.click();
    EXPECT_EQ(list().List1.listIndex(), 0);
    EXPECT_EQ(mp3().LCD1.line(1), "one.mp3");
    EXPECT_TRUE(bus().playing());
    EXPECT_EQ(mp3().Slider1.max(), 1);  // half a second, rounded

    mp3().command4.click();  // previous at the first stays there
    EXPECT_EQ(list().List2.listIndex(), 0);
    mp3().Command3.click();
    mp3().Command3.click();
    mp3().Command3.click();  // next at the last stays there
    EXPECT_EQ(list().List2.listIndex(), 2);
    EXPECT_EQ(mp3().Text1.text(), tracks[2]);
    EXPECT_EQ(mp3().LCD1.line(1), "three.mp3");

    // The end of a track starts the next; the last one's end plays nothing more.
    list().activate(1);
    EXPECT_TRUE(bus().playing());
    playOut();
    EXPECT_EQ(list().List1.listIndex(), 2);
    EXPECT_EQ(mp3().Text1.text(), tracks[2]);
    EXPECT_EQ(mp3().Slider1.value(), 0);
    EXPECT_GT(test::rms(h.engine.render(4096)), 0.001);
    playOut();
    EXPECT_EQ(list().List1.listIndex(), 2);
    EXPECT_EQ(test::peak(h.engine.render(4096)), 0.0);
    EXPECT_TRUE(h.dialogs.messages().empty());
}

TEST_F(Mp3Player, RandomPlayDrawsEveryEntryAndTellsOfAMissingFile) {
    fillList();
    mp3().optrnd.setChecked(true);
    mp3().cmdplay.click();
    std::vector<int> drawn(tracks.size());
    for (int i = 0; i < 30; ++i) {
        playOut();
        const int at = list().List1.listIndex();
        ASSERT_GE(at, 0);
        ASSERT_LT(at, 3);
        EXPECT_EQ(list().List2.listIndex(), at);
        EXPECT_EQ(mp3().Text1.text(), tracks[static_cast<std::size_t>(at)]);
        ++drawn[static_cast<std::size_t>(at)];
    }
    for (int n : drawn) {
        EXPECT_GT(n, 0);
    }
    // Each draw starts from the clock: the same moment draws the same entry, whatever
    // was drawn from the program's random source before.
    std::vector<int> atSameMoment;
    for (std::uint64_t seed : {1U, 99U}) {
        app->random.seed(seed);
        mp3().trackEnded();
        atSameMoment.push_back(list().List1.listIndex());
    }
    EXPECT_EQ(atSameMoment[0], atSameMoment[1]);
    // An entry that is not a sound file any more: the end handler's message.
    list().removeAll();
    list().List_Add((h.tree.root() / "gone.mp3").string());
    mp3().trackEnded();
    EXPECT_EQ(h.dialogs.messages(),
              std::vector<std::string>{"There was an error attempting to play this MP3."});
}

TEST_F(Mp3Player, TheTimeDisplayShowsPositionAndLength) {
    EXPECT_EQ(mp3TimeText(-1), "0:00");
    EXPECT_EQ(mp3TimeText(9.9), "0:09");
    EXPECT_EQ(mp3TimeText(754), "12:34");
    list().List_Add(
        test::writeMono(h.tree.root(), "long.wav", test::sine(440, 44100, 44100 * 5 / 2), 44100)
            .string());
    mp3().cmdplay.click();
    EXPECT_EQ(mp3().Slider1.max(), 3);
    h.engine.render(44100 * 6 / 5);
    h.loop.advance(Frmmainmp3::kClockMs);
    EXPECT_EQ(mp3().lblTime.caption(), "0:01 / 0:02");
    EXPECT_EQ(mp3().LCD1.line(3), "0:01 / 0:02");
    // The position slider follows play, without seeking back to the whole second.
    EXPECT_EQ(mp3().Slider1.value(), 1);
    EXPECT_NEAR(bus().position(), 1.2, 1e-3);
    // The slider moves the play position.
    mp3().Slider1.setValue(2);
    h.engine.render(4096);
    EXPECT_NEAR(bus().position(), 2.0 + 4096.0 / 44100, 1e-3);
}

TEST_F(Mp3Player, PlaylistsAreAppendedCutAtACommaSavedAndKeptForTheNextSession) {
    fillList();
    list().List1.setListIndex(1);
    h.writeFile("config/mp3playlists/mine.plf", "/music/a.mp3\r\n/music/b, live.mp3\r\n");
    h.dialogs.answerFile(h.tree.root() / "config/mp3playlists/mine.plf");
    list().loadButton.click();
    EXPECT_EQ(h.dialogs.shown().back().request.title, "Load PlayList");
    EXPECT_EQ(list().List2.items(),
              (std::vector<std::string>{tracks[0], tracks[1], tracks[2], "/music/a.mp3", "/music/b",
                                        "live.mp3"}));
    EXPECT_EQ(list().List1.item(4), "b.mp3");

    // "Sel" takes the entry each list has selected; with none, a message.
    list().List2.setListIndex(1);
    list().selButton.click();
    EXPECT_EQ(list().List2.count(), 5);
    EXPECT_EQ(list().List1.item(1), "three.mp3");
    list().selButton.click();
    EXPECT_EQ(h.dialogs.messages().back(), "No File Was Selected");

    h.dialogs.answerFile(h.tree.root() / "config/mp3playlists/saved.plf");
    list().saveButton.click();
    EXPECT_EQ(file("config/mp3playlists/saved.plf"),
              tracks[0] + "\r\n" + tracks[2] + "\r\n/music/a.mp3\r\n/music/b\r\nlive.mp3\r\n");
    h.dialogs.answerFile(h.tree.root() / "no/such/folder/x.plf");
    list().saveButton.click();
    EXPECT_EQ(h.dialogs.messages().back(), "There was a problem saving this playlist.");

    // "All" empties the lists and leaves the music playing.
    list().activate(0);
    list().allButton.click();
    EXPECT_EQ(list().List1.count(), 0);
    EXPECT_TRUE(bus().playing());

    list().List_Add("/music/kept.flac");
    app->unloadPanels();
    EXPECT_EQ(file("mp3.tmp"), "/music/kept.flac\r\n");
}

}  // namespace
}  // namespace brevane
