#include "session/Acquisition.h"

#include "analysis/BeatDetector.h"
#include "feedback/MIDI_OUT.h"
#include "persistence/SessionFile.h"
#include "session/Connection.h"
#include "session/Diagnostics.h"
#include "session/RecordingTime.h"
#include "session/Rescan.h"
#include "support/LiveTest.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace pulselark {
namespace {

class Acquisition : public LiveTest {
protected:
    // The sub-sample place of the next wave's top, by the parabola through its three highest samples.
    static double TopAfter(Long from) {
        while (EcgA[from] < 300 || EcgA[from] < EcgA[from + 1])
            ++from;
        const double before = EcgA[from - 1], top = EcgA[from], after = EcgA[from + 1];
        return from + (before - after) / (2 * (before - 2 * top + after));
    }
    // Samples between the tops of two waves of channel A, the first and the last in the buffer, over the
    // number of waves between them.
    static double MeanPeriodInSamples(Long from, Long to) {
        std::vector<Long> tops;
        for (Long i = from; i < to; ++i) {
            const float highest = *std::max_element(&EcgA[i - 20], &EcgA[i + 20]);
            if (EcgA[i] > 300 && EcgA[i] == highest && EcgA[i - 1] < highest)
                tops.push_back(i);
        }
        return tops.size() < 2
                   ? 0
                   : static_cast<double>(tops.back() - tops.front()) / static_cast<double>(tops.size() - 1);
    }
};

TEST_F(Acquisition, AnHourInTwoChannelsKeepsTimeBeatsAndJournal) {
    ChannelMode = 1;
    ChannelBPresent = On;
    Monitor().Channels = 2;
    Record(3600500);
    EXPECT_EQ(RecordedSeconds, 3600);
    EXPECT_EQ(SessionSeconds, 3600);
    EXPECT_EQ(WriteIndexA, 3600 * 128 + 64);
    EXPECT_EQ(WriteIndexB, WriteIndexA);
    for (Long second = 10; second <= 3590; ++second) {
        ASSERT_NEAR(IbiA[second], 0.8, 0.004) << second;
        ASSERT_EQ(IbiB[second], IbiA[second]) << second;
    }
    EXPECT_EQ(labBPMA.Caption, "<155>: 75 <147>");
    EXPECT_NEAR(Diagnostics.Beats, 3600 / 0.8, 4);
    EXPECT_LE(Diagnostics.BeatToLamp.Worst, BeatDetector::LookAhead * 1000 + 100);
    EXPECT_LE(Diagnostics.SecondToChord.Worst, BeatDetector::LookAhead * 1000 + 100);
    EXPECT_NEAR(Diagnostics.A.SamplesPerSecond, 128, 0.01);
    EXPECT_EQ(Diagnostics.A.Corrected + Diagnostics.A.LostSamples, 0);
    EXPECT_NE(SignalLightA, 0);
    EXPECT_GE(Outside.Disk.Flushes, 3600);
    EXPECT_EQ(Diagnostics.JournalSeconds, 3600);
    EXPECT_NEAR(static_cast<double>(Journal().size()), 3600 * 2 * 128 * 4.0, 3600 * 2 * 250.0);
}

TEST_F(Acquisition, BothChannelsHaveOneTime) {
    for (const double rate : {128.0, 250.0}) {
        PutEverythingBack();
        InstallTimerHandlers();
        MonitorName = "fake";
        AutoEndSession = Off;
        ChannelMode = 1;
        ChannelBPresent = On;
        Monitor().Channels = 2;
        Monitor().Rate = rate;
        Monitor().AheadB = 3; // they came while A was read
        Monitor().Speed = 0.9996;
        Record(60500);
        for (Long i = 1; i <= 60 * 128; ++i)
            ASSERT_NEAR(EcgB[i], EcgA[i], 5) << rate << " " << i;
        timProcess.Enabled = false;
    }
}

TEST_F(Acquisition, ChannelBCanJoinAndLeaveARecording) {
    Monitor().Channels = 2;
    Monitor().Rate = 250;
    Record(20500);
    for (const Boolean wanted : {On, Off, On}) {
        ChannelBPresent = wanted;
        Timers.Advance(20000);
    }
    EXPECT_EQ(RecordedSeconds, 80);
    EXPECT_EQ(WriteIndexB, WriteIndexA);
    for (const Long second : {35, 75}) {
        EXPECT_NEAR(IbiB[second], 0.8, 0.004) << second;
        for (Long i = (second - 1) * 128; i < second * 128; ++i)
            ASSERT_NEAR(EcgB[i], EcgA[i], 3) << i;
    }
    EXPECT_EQ(IbiB[10], 1.0F);
    EXPECT_EQ(IbiB[55], 1.0F);
    EXPECT_EQ(EcgB[55 * 128], 0);
}

TEST_F(Acquisition, WhatIsComputedLiveIsWhatIsComputedFromTheStoredSession) {
    Record(120500);
    Press();
    Timers.Advance(20);
    const SecondsBuffer live = CoherenceA;
    CoherenceA.Fill(0);
    RescanSession(false);
    for (Long second = 12; second <= 118; ++second)
        ASSERT_NEAR(CoherenceA[second], live[second], 1e-4) << second;
    EXPECT_GT(*std::max_element(live.begin(), live.begin() + 118), 0.001F);
}

TEST_F(Acquisition, AMonitorOfAnyRateKeepsTheTimeBase) {
    struct Case {
        double Rate, Speed;
        std::int64_t Packet;
        double Tolerance; // samples over ten minutes
    };
    // Rates of their own; a packet of 73 samples; clocks that go wrong, one of them grossly.
    for (const Case& monitor :
         {Case{125, 1, 1, 1}, Case{250, 1, 8, 1}, Case{130, 1, 73, 1}, Case{128, 1.0004, 1, 2},
          Case{250, 0.9996, 1, 2}, Case{128, 125.0 / 128, 1, 2}}) {
        PutEverythingBack();
        InstallTimerHandlers();
        MonitorName = "fake";
        AutoEndSession = Off;
        Monitor().Rate = monitor.Rate;
        Monitor().Speed = monitor.Speed;
        Monitor().Packet = monitor.Packet;
        Record(600500);
        const double expected = SamplesByClock(ClockNow()) - Diagnostics.A.LagMs * 0.128;
        EXPECT_EQ(WriteIndexA, static_cast<Long>(Round(expected)));
        EXPECT_GE(RecordedSeconds, 599) << monitor.Rate;
        // Ten minutes of waves lie where the clock has them.
        const Long from = 40 * 128, to = 590 * 128;
        EXPECT_NEAR(MeanPeriodInSamples(from, to), 0.8 * 128, 0.8 * 128 * monitor.Tolerance / (550 * 128))
            << monitor.Rate << " " << monitor.Speed;
        // No interval is bent by it either.
        for (Long second = 101; second <= 500; ++second)
            ASSERT_NEAR(IbiA[second], 0.8, 0.002) << monitor.Rate << " " << monitor.Speed;
        timProcess.Enabled = false;
    }
}

TEST_F(Acquisition, LostSamplesKeepTheirPlace) {
    Monitor().LoseEvery = 50;
    Record(60500);
    EXPECT_EQ(RecordedSeconds, 60);
    EXPECT_EQ(WriteIndexA, 60 * 128 + 64);
    EXPECT_NEAR(Diagnostics.A.LostSamples, 60.5 * 128 / 50, 2);
    EXPECT_NEAR(IbiA[40], 0.8, 0.01);
    EXPECT_EQ(ConnectionLost, Off);
}

TEST_F(Acquisition, AMonitorsOwnRateChecksTheBeats) {
    Monitor().OwnRate = 78;
    Record(20500);
    EXPECT_EQ(labBPMA.Caption, "<155>: 75 <147>");
    Monitor().OwnRate = 37.6; // every second beat is no beat
    Timers.Advance(2000);
    EXPECT_EQ(labBPMA.Caption, "<155>: 75 <147> (<306>: 38)");
}

TEST_F(Acquisition, ALossIsToldHeldAndMarked) {
    for (const bool knows : {true, false}) {
        PutEverythingBack();
        InstallTimerHandlers();
        MonitorName = "fake";
        AutoEndSession = Off;
        Monitor().Inits = 0;
        Record(30500);
        Outside.Midi.Silences = 0;
        MidiHandle = 1;
        (knows ? Monitor().Connected : Monitor().Silent) = knows ? false : true;
        Timers.Advance(2000);
        EXPECT_NE(ConnectionLost, Off);
        EXPECT_EQ(labStatus.Caption, "<331>");
        EXPECT_EQ(labConnection.Caption, "<330>");
        EXPECT_TRUE(labConnection.Visible);
        EXPECT_EQ(SignalLightA, 0);
        EXPECT_EQ(SignalQualityA, 0);
        EXPECT_GE(Outside.Midi.Silences, 1);
        Timers.Advance(8000);
        EXPECT_NEAR(RecordedSeconds, 40, 1); // it goes on
        EXPECT_NE(SessionRunning, Off);
        EXPECT_EQ(IbiA[36], 1.0F);
        EXPECT_EQ(EcgA[36 * 128], 0);
        EXPECT_EQ(labBPMA.Caption, "<155>: -- <147>");
        Monitor().Connected = true;
        Monitor().Silent = true; // found, and its first sample is still to come
        Timers.Advance(60);
        Monitor().Silent = false;
        Timers.Advance(19940);
        EXPECT_EQ(ConnectionLost, Off);
        EXPECT_FALSE(labConnection.Visible);
        EXPECT_TRUE(labStatus.Caption.starts_with("<332>")) << labStatus.Caption;
        EXPECT_EQ(Diagnostics.Losses, 1);
        EXPECT_EQ(RecordedSeconds, 60);
        EXPECT_NEAR(WriteIndexA, 60.5 * 128, 3);
        EXPECT_NEAR(IbiA[57], 0.8, 0.008);
        EXPECT_NEAR(Diagnostics.A.LostSamples, 10 * 128, 2 * 128);
        EXPECT_EQ(Monitor().Inits, knows ? 1 : 3); // a monitor that seeks by itself is left to it
        timProcess.Enabled = false;
    }
}

TEST_F(Acquisition, AfterALossTheBeatsLieWhereTheyWouldHaveLain) {
    for (const double rate : {128.0, 130.0, 200.0, 250.0}) {
        PutEverythingBack();
        InstallTimerHandlers();
        MonitorName = "fake";
        AutoEndSession = Off;
        Monitor().Rate = rate;
        Monitor().Speed = 0.9996;
        Monitor().Packet = 5;
        Record(60500);
        Monitor().Connected = false;
        Timers.Advance(7111);
        Monitor().Connected = true;
        Timers.Advance(20000);
        // Over the loss, too, the waves come every 0.8 seconds.
        const double before = TopAfter(50 * 128), after = TopAfter(80 * 128);
        const double periods = (after - before) / (0.8 * 128);
        EXPECT_NEAR(periods, std::round(periods), 1 / (0.8 * 128)) << rate;
        timProcess.Enabled = false;
    }
}

TEST_F(Acquisition, ARecordingWaitsForItsFirstSamples) {
    Monitor().Silent = true;
    Record(2500);
    EXPECT_EQ(labStatus.Caption, "<433>");
    EXPECT_EQ(labConnection.Caption, "<433>");
    EXPECT_EQ(RecordedSeconds, 0);
    EXPECT_EQ(Diagnostics.Losses, 0);
    Monitor().Silent = false;
    Monitor().Says = "fine";
    Timers.Advance(10300);
    EXPECT_EQ(labStatus.Caption, "<149> – fine");
    EXPECT_EQ(RecordedSeconds, 10);
    EXPECT_NEAR(WriteIndexA, 10.3 * 128, 3);
}

TEST_F(Acquisition, TheLampBlinksAtEachBeat) {
    Press();
    Timers.Advance(10000);
    int dark = 0;
    bool was = false;
    for (int step = 0; step < 500; ++step) {
        Timers.Advance(20);
        const bool is = picStartSmp.Frame == 1;
        dark += is && !was ? 1 : 0;
        was = is;
    }
    EXPECT_NEAR(dark, 10 / 0.8, 1);
}

TEST_F(Acquisition, AStandstillOfTheProgramIsCaughtUpWith) {
    Record(10500);
    Outside.Time.Now += 1200; // nothing ran
    Timers.Advance(300);
    EXPECT_EQ(RecordedSeconds, 11);
    EXPECT_EQ(ConnectionLost, Off);
    EXPECT_EQ(WriteIndexA, 12 * 128);
    Outside.Time.Now += 20000; // asleep; the monitor has kept what came
    Timers.Advance(500);
    EXPECT_EQ(RecordedSeconds, 32);
    EXPECT_NEAR(WriteIndexA, 32.5 * 128, 2);
    EXPECT_NEAR(IbiA[25], 0.8, 0.004);
}

} // namespace
} // namespace pulselark
