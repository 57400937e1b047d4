#include "analysis/BeatDetector.h"
#include "analysis/IntervalSeries.h"
#include "analysis/Resampler.h"
#include "persistence/LiveRecordFile.h"
#include "persistence/SessionFile.h"
#include "platform/monitors/FileMonitor.h"
#include "platform/monitors/SimulatedMonitor.h"
#include "platform/monitors/StandardMonitors.h"
#include "session/MainBuffers.h"
#include "session/MonitorChoice.h"
#include "session/Settings.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

namespace pulselark {
namespace {

std::string WordNumber(MonitorWord word) {
    return "word " + std::to_string(static_cast<int>(word)) + " ";
}

constexpr double PerSample = 1 / SimulatedMonitor::Rate;

// A simulated monitor on a clock of its own, read every 20 ms as a recording does.
struct Simulated {
    FakeClock Clock;
    SimulatedMonitor Monitor{Clock, &WordNumber};
    std::vector<float> A, B;
    int Unconnected = 0; // reads of channel A

    using Settings = std::map<std::string, std::string>;
    explicit Simulated(const Settings& options) {
        Clock.Now = 5000;
        for (const auto& [key, value] : options)
            EXPECT_TRUE(Monitor.Options().Set(key, value)) << key;
        EXPECT_GT(Monitor.Init(), 0);
    }
    void Run(int seconds) {
        for (int i = 0; i < seconds * 50; ++i) {
            Clock.Now += 20;
            Unconnected += Monitor.Read_Buff(1, A) ? 0 : 1;
            Monitor.Read_Buff(2, B);
        }
    }
    std::vector<SimulatedBeat> BeatsWithin(Integer channel, double seconds) const {
        std::vector<SimulatedBeat> beats;
        for (const SimulatedBeat& beat : Monitor.TrueBeats(channel)) {
            if (beat.Time < seconds)
                beats.push_back(beat);
        }
        return beats;
    }
};

TEST(SimulatedMonitor, BeatsAtItsRateAndSwingsWithBreathing) {
    Simulated run({{"rate", "70"}, {"breathing", "6"}, {"depth", "8"}, {"noise", "0"}, {"seed", "3"}});
    run.Run(300);
    ASSERT_EQ(run.A.size(), 75000U);
    ASSERT_EQ(run.B.size(), 75000U);
    const auto beats = run.BeatsWithin(1, 300);
    EXPECT_NEAR(static_cast<double>(beats.size()), 350, 1.5);
    EXPECT_NEAR(static_cast<double>(run.BeatsWithin(2, 300).size()), 350 * 1.08, 1.5);
    const auto [shortest, longest] =
        std::minmax_element(beats.begin() + 1, beats.end(), [&](const auto& a, const auto& b) {
            return a.Time - (&a - 1)->Time < b.Time - (&b - 1)->Time;
        });
    EXPECT_NEAR(60 / (shortest->Time - (shortest - 1)->Time), 78, 1.6);
    EXPECT_NEAR(60 / (longest->Time - (longest - 1)->Time), 62, 1.6);
}

TEST(SimulatedMonitor, PutsAnRPeakAtEachTrueBeat) {
    Simulated run(Simulated::Settings{{"noise", "0"}, {"ectopic", "10"}});
    run.Run(120);
    int ectopic = 0;
    for (const SimulatedBeat& beat : run.BeatsWithin(1, 119)) {
        if (beat.Time < 0.5)
            continue;
        const auto middle = static_cast<std::ptrdiff_t>(beat.Time / PerSample);
        const auto highest = std::max_element(run.A.begin() + middle - 30, run.A.begin() + middle + 30);
        EXPECT_NEAR(static_cast<double>(highest - run.A.begin()) * PerSample, beat.Time, 0.012);
        EXPECT_GT(*highest, beat.Ectopic ? 600 : 400);
        EXPECT_LT(*highest, beat.Ectopic ? 950 : 700);
        ectopic += beat.Ectopic ? 1 : 0;
    }
    EXPECT_GT(ectopic, 4);
    EXPECT_LT(ectopic, 25);
}

TEST(SimulatedMonitor, ItsEarlyBeatsAreFoundAsSuchAtEveryRate) {
    for (const char* rate : {"50", "80", "120"}) {
        Simulated run(Simulated::Settings{{"ectopic", "8"}, {"rate", rate}});
        run.Run(180);
        Resampler resampler(SimulatedMonitor::Rate);
        std::vector<float> samples;
        BeatDetector detector;
        IntervalSeries series;
        for (const float sample : run.A)
            resampler.Push(sample, samples);
        long found = 0;
        for (const float sample : samples) {
            if (const auto beat = detector.Push(sample))
                series.Add(*beat);
            while (const auto beat = series.Next())
                found += beat->Kind == BeatKind::Ectopic ? 1 : 0;
        }
        const auto beats = run.BeatsWithin(1, 175);
        const auto early =
            std::count_if(beats.begin(), beats.end(), [](const auto& beat) { return beat.Ectopic; });
        EXPECT_GT(early, 8);
        EXPECT_GE(10 * found, 9 * early) << rate;
    }
}

TEST(SimulatedMonitor, TheSeedDecidesEverySample) {
    const std::map<std::string, std::string> noisy{{"noise", "0.1"}, {"dropouts", "20"}, {"seed", "9"}};
    Simulated one(noisy);
    Simulated two(noisy);
    auto others = noisy;
    others["seed"] = "10";
    Simulated other(others);
    for (Simulated* run : {&one, &two, &other})
        run->Run(60);
    const auto same = [](float a, float b) { return a == b || (std::isnan(a) && std::isnan(b)); };
    EXPECT_TRUE(std::equal(one.A.begin(), one.A.end(), two.A.begin(), two.A.end(), same));
    EXPECT_FALSE(std::equal(one.A.begin(), one.A.end(), other.A.begin(), other.A.end(), same));
}

TEST(SimulatedMonitor, LostSamplesKeepTheTimeAndALostConnectionComesBack) {
    Simulated run(Simulated::Settings{{"dropouts", "20"}, {"noise", "0"}});
    run.Run(600);
    const auto lost = std::count_if(run.A.begin(), run.A.end(), [](float x) { return std::isnan(x); });
    EXPECT_GT(lost, 500);
    EXPECT_GT(run.Unconnected, 20 * 150); // about 50 losses of 3 to 6 s
    // Delivered samples and the time without connection make up the time that has passed.
    const double seconds = static_cast<double>(run.A.size()) * PerSample + run.Unconnected * 0.02;
    EXPECT_NEAR(seconds, 600, 0.02 * 100);
    EXPECT_EQ(run.A.size(), run.B.size());
}

TEST(SimulatedMonitor, ALossBetweenTwoReadsIsMarkedInsteadOfCutOut) {
    Simulated run(Simulated::Settings{{"dropouts", "20"}});
    run.Clock.Now += 60000;
    while (!run.Monitor.Read_Buff(1, run.A))
        run.Clock.Now += 500;
    const std::size_t before = run.A.size();
    for (int minute = 1; minute <= 5; ++minute) {
        run.Clock.Now += 60000;
        if (!run.Monitor.Read_Buff(1, run.A))
            break;
        EXPECT_EQ(run.A.size(), before + static_cast<std::size_t>(minute) * 15000);
    }
    EXPECT_GT(run.A.size(), before);
}

TEST(SimulatedMonitor, OpeningAnewDoesNotBringALostConnectionBack) {
    Simulated run(Simulated::Settings{{"dropouts", "30"}});
    while (run.Unconnected == 0)
        run.Run(1);
    run.Unconnected = 0;
    run.Monitor.CloseC2(1);
    EXPECT_GT(run.Monitor.Init(), 0);
    EXPECT_FALSE(run.Monitor.Read_Buff(1, run.A));
    EXPECT_EQ(run.Monitor.Error_Msg(), WordNumber(MonitorWord::Lost));
    run.Clock.Now += 6000;
    run.Monitor.CloseC2(1);
    EXPECT_FALSE(run.Monitor.Read_Buff(1, run.A)) << "a closed monitor gives nothing";
}

class MonitorFiles : public SessionTest {
protected:
    SystemMonitors Monitors{Outside.Disk, [] { return std::string("/config/monitors.ini"); }};
    MonitorFiles() {
        AddStandardMonitors(Monitors, {.Clock = Outside.Time,
                                       .Words = &WordNumber,
                                       .ReadRecord =
                                           [](const std::string& file, LiveRecord& record) {
                                               return ReadLiveRecord(file, record).Number == 0;
                                           },
                                       .SerialPort = SerialPort,
                                       .TellPortRefused = &TellPortRefused});
    }
};

TEST_F(MonitorFiles, AFilePlaysSampleBySampleOnTheClock) {
    MakeSession(20);
    ChannelBPresent = On;
    Outside.Disk.Content["/s.hti"] = SessionText();
    ASSERT_TRUE(Monitors.SetOption("Replay file", "file", "/s.hti"));
    EcgMonitor& monitor = *Monitors.Find("Replay file");
    ASSERT_GT(monitor.Init(), 0) << monitor.Error_Msg();
    EXPECT_EQ(monitor.Tot_Channels(), 2);
    EXPECT_EQ(monitor.Sig_Rate(1), 128);
    std::vector<float> a, b;
    bool connected = true;
    for (int i = 1; connected; ++i) {
        Outside.Time.Now += 17;
        connected = monitor.Read_Buff(1, a);
        monitor.Read_Buff(2, b);
        ASSERT_EQ(a.size(), std::min<std::size_t>(static_cast<std::size_t>(i) * 17 * 128 / 1000, 2560));
    }
    EXPECT_EQ(monitor.Error_Msg(), WordNumber(MonitorWord::FileAtEnd));
    EXPECT_TRUE(std::equal(a.begin(), a.end(), EcgA.data()));
    EXPECT_TRUE(std::equal(b.begin(), b.end(), EcgB.data()));
}

TEST_F(MonitorFiles, ARecordOfAnotherRatePlaysItsFirstTwoSignals) {
    // Three signals of 16 bits, 200 steps to the millivolt, 300 samples at 300 a second.
    std::string header = "r 3 300 300\n";
    std::string bytes;
    for (int i = 0; i < 3; ++i)
        header += "r.dat 16 200 16 0 0 0 0 ecg\n";
    for (int k = 0; k < 300; ++k) {
        for (const int value : {k, 2 * k, 0}) {
            bytes.push_back(static_cast<char>(value & 0xFF));
            bytes.push_back(static_cast<char>(value >> 8));
        }
    }
    Outside.Disk.Content["/w/r.hea"] = header;
    Outside.Disk.Content["/w/r.dat"] = bytes;
    Monitors.SetOption("Replay file", "file", "/w/r.hea");
    EcgMonitor& monitor = *Monitors.Find("Replay file");
    ASSERT_GT(monitor.Init(), 0) << monitor.Error_Msg();
    EXPECT_EQ(monitor.Sig_Rate(1), 300);
    EXPECT_EQ(monitor.Tot_Channels(), 2);
    Outside.Time.Now += 500;
    std::vector<float> a, b;
    EXPECT_TRUE(monitor.Read_Buff(1, a));
    EXPECT_TRUE(monitor.Read_Buff(2, b));
    ASSERT_EQ(a.size(), 150U);
    EXPECT_FLOAT_EQ(a[100], 250) << "half a millivolt";
    EXPECT_FLOAT_EQ(b[100], 500);
}

TEST_F(MonitorFiles, AFileThatIsMissingOrCutShortSaysSo) {
    EcgMonitor& monitor = *Monitors.Find("Replay file");
    EXPECT_LE(monitor.Init(), 0);
    EXPECT_EQ(monitor.Error_Msg(), WordNumber(MonitorWord::NoFileChosen));
    MakeSession(5);
    const std::string whole = SessionText();
    Outside.Disk.Content["/short.hti"] = whole.substr(0, whole.size() / 2);
    for (const char* name : {"/none.hti", "/short.hti"}) {
        Monitors.SetOption("Replay file", "file", name);
        EXPECT_LE(monitor.Init(), 0);
        EXPECT_EQ(monitor.Error_Msg(), WordNumber(MonitorWord::FileUnreadable) + name);
        std::vector<float> samples;
        EXPECT_FALSE(monitor.Read_Buff(1, samples));
    }
}

TEST_F(MonitorFiles, OptionsAreCheckedKeptAndReadBack) {
    EXPECT_TRUE(Monitors.SetOption("Simulated ECG", "rate", " 72 "));
    for (const auto& [key, value] : std::map<std::string, std::string>{
             {"rate", "29"}, {"depth", "much"}, {"channels", "3"}, {"no", "1"}})
        EXPECT_FALSE(Monitors.SetOption("Simulated ECG", key, value)) << key;
    EXPECT_FALSE(Monitors.SetOption("Simulated ECG", "rate", "60.5"));
    EXPECT_FALSE(Monitors.SetOption("Replay file", "file", "/a\nrate=1"));
    EXPECT_FALSE(Monitors.SetOption("Nobody", "rate", "70"));
    Monitors.SetOption("Replay file", "file", "/with = sign [x].hti");
    ASSERT_EQ(Monitors.KeepOptions(), 0);
    // What a stranger's hand has added is passed over.
    std::string& text = Outside.Disk.Content["/config/monitors.ini"];
    text = "rubbish\r\n[Nobody]\nrate=3\n" + text + "[Simulated ECG]\nbreathing=900\ndepth=11";
    SystemMonitors second(Outside.Disk, [] { return std::string("/config/monitors.ini"); });
    AddStandardMonitors(second, {.Clock = Outside.Time,
                                 .Words = &WordNumber,
                                 .ReadRecord = nullptr,
                                 .SerialPort = SerialPort,
                                 .TellPortRefused = &TellPortRefused});
    const auto value = [&second](const char* name, const char* key) {
        for (const MonitorOption& option : second.Options(name)) {
            if (option.Key == key)
                return option.Value;
        }
        return std::string("none");
    };
    EXPECT_EQ(value("Simulated ECG", "rate"), "72");
    EXPECT_EQ(value("Simulated ECG", "breathing"), "6");
    EXPECT_EQ(value("Simulated ECG", "depth"), "11");
    EXPECT_EQ(value("Replay file", "file"), "/with = sign [x].hti");
    Outside.Disk.WriteFailure = FailureDiskFull;
    EXPECT_EQ(Monitors.KeepOptions(), FailureDiskFull);
}

} // namespace
} // namespace pulselark
