#include "feedback/FeedbackModes.h"
#include "feedback/PlayerPanel.h"
#include "feedback/WMPPlay.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Replay.h"
#include "session/Settings.h"
#include "support/RecordingSurface.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

#include <algorithm>

namespace pulselark {
namespace {

using Kind = PlayerZone::Kind;
using Names = std::vector<std::string>;

class Music : public SessionTest {
protected:
    Music() {
        ResetMusic();
        InstallMusicTimers();
        PlaySource = On;
        AutoPlayMusic = On;
        SongPosition = 0;
    }
    void ListOf(const Names& names) {
        for (std::size_t i = 0; i < names.size(); ++i)
            PlayList.at(static_cast<Long>(i) + 1) = names[i];
    }
    Names List() const {
        Names names;
        for (int row = 1; row <= FilledListRows(); ++row)
            names.push_back(PlayList[row]);
        return names;
    }
};

TEST_F(Music, SongsFollowOneAnotherAfterFiveSecondsOfSilence) {
    ListOf({"a.ogg", "b.ogg"});
    Outside.Player.Length = 30;
    PlayMusic();
    EXPECT_EQ(Outside.Player.Loaded, Names{"a.ogg"});
    EXPECT_EQ(labCurrentSong.Caption, "a.ogg");
    Timers.Advance(28750);
    EXPECT_EQ(Playing, On);
    Timers.Advance(250); // one second before its end
    EXPECT_EQ(Playing, Off);
    EXPECT_EQ(CurrentListIndex, 2);
    EXPECT_EQ(labCurrentSong.Caption, "<423>");
    Timers.Advance(4999);
    EXPECT_EQ(Outside.Player.Loaded.size(), 1U);
    Timers.Advance(1);
    EXPECT_EQ(Outside.Player.Loaded, (Names{"a.ogg", "b.ogg"}));
    EXPECT_EQ(labCurrentSong.Caption, "b.ogg");
    EXPECT_EQ(MovieCommandsBlocked, On);
    Timers.Advance(2000);
    EXPECT_EQ(MovieCommandsBlocked, Off);

    Timers.Advance(27000); // the last song ends, and the list is not repeated
    EXPECT_EQ(Playing, Off);
    EXPECT_EQ(CurrentListIndex, 1);
    EXPECT_EQ(PlaySource, Off);
    EXPECT_FALSE(timPlayerCheck.Enabled);
    EXPECT_FALSE(timPause.Enabled);
}

TEST_F(Music, ListBeginsAgainWhenRepeated) {
    ListOf({"a.ogg"});
    AutoRepeat = On;
    Outside.Player.Length = 10;
    PlayMusic();
    Timers.Advance(14000);
    EXPECT_EQ(Outside.Player.Loaded, (Names{"a.ogg", "a.ogg"}));
    EXPECT_EQ(Playing, On);
}

TEST_F(Music, APlayerThatStandsStillIsNoticedBeforeThreeQuarters) {
    ListOf({"a.ogg", "b.ogg"});
    Outside.Player.Length = 100;
    PlayMusic();
    Timers.Advance(20000);
    Outside.Player.SetPosition(20);
    Outside.Player.Stalled = true;
    Timers.Advance(500);
    EXPECT_EQ(CurrentListIndex, 2);

    ResetMusic();
    PlaySource = On;
    Outside.Player.Stalled = false;
    PlayMusic();
    Timers.Advance(80000);
    Outside.Player.SetPosition(80);
    Outside.Player.Stalled = true;
    Timers.Advance(5000); // past three quarters it is waited for
    EXPECT_EQ(CurrentListIndex, 1);
}

TEST_F(Music, FadesInSixteenStepsAndRemembersThePlace) {
    ListOf({"a.ogg"});
    AdjustMusicVolume(80);
    PlayMusic();
    Timers.Advance(10000);
    FadeOutMusic();
    Outside.Player.Volumes.clear();
    Timers.Advance(3750);
    EXPECT_EQ(Outside.Player.Volumes.front(), 75);
    EXPECT_EQ(Outside.Player.Volumes.back(), 5);
    Timers.Advance(250);
    EXPECT_EQ(Outside.Player.Volume, 0);
    EXPECT_EQ(Playing, On);
    Timers.Advance(250);
    EXPECT_EQ(Playing, Off);
    EXPECT_EQ(Outside.Player.Volume, 80);
    EXPECT_NEAR(SongPosition, 14.25, 0.26);

    PlayMusic(true); // a replay that goes on takes the song up where it was
    EXPECT_NEAR(Outside.Player.Position(), SongPosition, 1e-9);
    EXPECT_GT(Outside.Player.Position(), 13);
    PlayMusic(false);
    EXPECT_EQ(Outside.Player.Position(), 0);
}

// What the end of a session means for the music, whatever the player is doing at that moment.
TEST_F(Music, NothingPlaysOnAfterTheSession) {
    ListOf({"a.ogg", "b.ogg"});
    Outside.Player.Length = 20;
    TrainingActive = FeedbackEnabled = On;
    MakeSession(20);
    FeedbackMode = 2;
    StartReplay(false);
    ASSERT_TRUE(Outside.Player.Runs);
    Timers.Advance(19500); // the first song is over; stopped in the pause before the next one
    ASSERT_EQ(PausedBetweenSongs, On);
    FadeOutMusic();
    Timers.Advance(10000);
    EXPECT_EQ(Outside.Player.Loaded.size(), 1U);
    EXPECT_EQ(labCurrentSong.Caption, "b.ogg");

    SessionTick = 15;
    StartReplay(false);
    Timers.Advance(6000); // up to the session's end
    EXPECT_FALSE(timReplay.Enabled);
    EXPECT_EQ(Playing, On);
    EXPECT_TRUE(timFadeOut.Enabled);
    Timers.Advance(4250);
    EXPECT_FALSE(Outside.Player.Runs);

    SessionTick = 15;
    StartReplay(false);
    Timers.Advance(2000);
    ReleaseStopButton(); // at once
    EXPECT_FALSE(Outside.Player.Runs);
    EXPECT_EQ(SongPosition, 0);
}

TEST_F(Music, AFadeNeitherStartsAgainNorSoundsWhileMuted) {
    ListOf({"a.ogg"});
    AdjustMusicVolume(80);
    PlayMusic();
    FadeOutMusic();
    Timers.Advance(2000);
    FadeOutMusic();
    Timers.Advance(250);
    EXPECT_LT(Outside.Player.Volume, 45);
    ToggleMute();
    Timers.Advance(500);
    EXPECT_EQ(Outside.Player.Volume, 0);
    Timers.Advance(1500);
    EXPECT_EQ(Playing, Off);
    EXPECT_FALSE(imMusicOff.Visible);
}

TEST_F(Music, ASongStoppedByHandIsNotFollowedByTheNext) {
    ListOf({"a.ogg", "b.ogg"});
    PlayMusic();
    Timers.Advance(10000);
    ClickPlayer({Kind::Play});
    Timers.Advance(20000);
    EXPECT_EQ(Outside.Player.Loaded, Names{"a.ogg"});

    PlaySource = On;
    PlayMusic();
    Outside.Player.SetPosition(59.5);
    Timers.Advance(250);
    ASSERT_EQ(PausedBetweenSongs, On);
    ClickPlayer({Kind::Play}); // in the pause between two songs
    Timers.Advance(20000);
    EXPECT_EQ(Outside.Player.Loaded.size(), 2U);
    EXPECT_EQ(Playing, Off);
}

TEST_F(Music, ASongThatWasTriedDoesNotKeepTheListFromStarting) {
    ListOf({"a.ogg", "b.ogg"});
    SongList[1] = "broken.ogg";
    SongList[2] = "tried.ogg";
    ClickPlayer({Kind::Play});
    EXPECT_EQ(Playing, Off); // told, and not taken for a song that plays
    ClickPlayer({Kind::Song, 2});
    ClickPlayer({Kind::Play});
    Timers.Advance(70000); // it has ended, and nobody watches it
    CurrentListIndex = 2;
    SongPosition = 40;
    AlwaysFirstSong = TrainingActive = FeedbackEnabled = On;
    MakeSession(20);
    SelectFeedbackMode(2, false);
    EXPECT_EQ(Outside.Player.Loaded, (Names{"tried.ogg", "a.ogg"}));
    EXPECT_EQ(Outside.Player.Position(), 0);
}

TEST_F(Music, ASongThatCannotBePlayedIsToldAndTheSessionGoesOn) {
    ListOf({"broken.ogg"});
    PlayMusic();
    EXPECT_EQ(Playing, Off);
    ASSERT_EQ(Outside.Boxes.Shown.size(), 1U);
    EXPECT_EQ(Outside.Boxes.Shown[0].Text, "<179>");
    EXPECT_FALSE(timPlayerCheck.Enabled);
}

TEST_F(Music, PanelMovesSongsBetweenItsColumns) {
    for (const char name : std::string("abcdefghi"))
        Outside.Disk.Content[std::string("/Music/") + name + ".ogg"] = "";
    ScanMusicFolder();
    EXPECT_EQ(SongList[7], "g.ogg");
    EXPECT_EQ(SongList[8], ""); // seven are shown
    for (const int song : {1, 2, 3}) {
        ClickPlayer({Kind::Song, song});
        ClickPlayer({Kind::Add});
    }
    EXPECT_EQ(List(), (Names{"c.ogg", "b.ogg", "a.ogg"}));
    ClickPlayer({Kind::ListRow, 3});
    ClickPlayer({Kind::Remove});
    EXPECT_EQ(List(), (Names{"c.ogg", "b.ogg"}));
    EXPECT_EQ(SelectedListRow, 2);

    ClickPlayer({Kind::Play}); // a trial of the selected song
    EXPECT_EQ(Outside.Player.Loaded, Names{"c.ogg"});
    EXPECT_EQ(PlayerZoneText({Kind::Play}), "<420>");
    ClickPlayer({Kind::Play});
    EXPECT_FALSE(Outside.Player.Runs);
    ClickPlayer({Kind::Option, 4}); // the second line of "always start with first song"
    EXPECT_EQ(AlwaysFirstSong, On);
    ClickPlayer({Kind::Option, 1});
    EXPECT_EQ(AutoPlayMusic, Off);
    ClickPlayer({Kind::Mute});
    EXPECT_EQ(Outside.Player.Volume, 0);
    ClickPlayer({Kind::Mute});
    EXPECT_EQ(Outside.Player.Volume, 50);
}

TEST_F(Music, ZonesLieWhereTheyAreDrawn) {
    ScanMusicFolder();
    SongList[1] = "An evening at the harbour with a very long name.ogg";
    PlayList[2] = PlayList[1] = "Überfahrt über die große Straße.ogg";
    RecordingSurface picMCT(700, PlayerPanelHeight);
    DrawPlayer(picMCT);
    const auto at = [&](const std::string& start) {
        const auto found = std::find_if(picMCT.Texts.begin(), picMCT.Texts.end(),
                                        [&](const auto& text) { return text.Value.starts_with(start); });
        EXPECT_NE(found, picMCT.Texts.end()) << start;
        return found == picMCT.Texts.end()
                   ? PlayerZone{}
                   : PlayerZoneAt(found->X + 1, PlayerPanelHeight - found->Y + 6, 700);
    };
    EXPECT_EQ(at("An evening"), (PlayerZone{Kind::Song, 1}));
    EXPECT_EQ(at("Ü"), (PlayerZone{Kind::ListRow, 1}));
    EXPECT_EQ(at("<412>"), PlayerZone{Kind::Add});
    EXPECT_EQ(at("<413>"), PlayerZone{Kind::Remove});
    EXPECT_EQ(at("<416>"), (PlayerZone{Kind::Option, 4}));
    EXPECT_EQ(at("<420>"), PlayerZone{Kind::Play});
    EXPECT_EQ(at("<422>"), PlayerZone{Kind::Close});
    for (const auto& text : picMCT.Texts) // no text runs out of the panel, or into the next column
        EXPECT_LE(text.X + 6 * static_cast<double>(text.Value.size()), 700) << text.Value;
    // A cut never leaves half a character: 6 units a byte, 12 for each umlaut.
    EXPECT_EQ(CutName(picMCT, "aaaaaü", 40), "aaaaa");
    EXPECT_EQ(CutName(picMCT, "short", 6), "short");
}

} // namespace
} // namespace pulselark
