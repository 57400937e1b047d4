#include "platform/monitors/SerialMonitor.h"

#include "support/FakePlatform.h"
#include "support/SensorBytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace pulselark {
namespace {

std::string WordNumber(MonitorWord word) {
    return "word " + std::to_string(static_cast<int>(word)) + " ";
}

class FakePort final : public BytePort {
public:
    struct Script {
        bool Plugged = true;
        std::string Name;
        int Speed = 0, Opened = 0, Closed = 0;
        std::string Incoming, Written;
    };
    explicit FakePort(Script& script) : script_(script) {}
    bool Open(const std::string& name, int speed) override {
        script_.Name = name;
        script_.Speed = speed;
        script_.Opened += script_.Plugged ? 1 : 0;
        return script_.Plugged;
    }
    bool Read(std::string& bytes) override {
        bytes += std::exchange(script_.Incoming, {});
        return script_.Plugged;
    }
    void Write(std::string_view bytes) override { script_.Written += bytes; }
    void Close() override { ++script_.Closed; }
    std::vector<std::string> Ports() override { return {"/dev/one"}; }

private:
    Script& script_;
};

// A board on a port that sends what the protocol of the options wants, 20 ms at a time.
struct SerialMonitorTest : testing::Test {
    FakeClock Clock;
    FakePort::Script Port;
    SerialMonitor Monitor{Clock, &WordNumber, std::make_unique<FakePort>(Port)};
    std::vector<float> Samples;
    int Sent = 0;

    void Open(std::initializer_list<std::pair<const char*, const char*>> options) {
        Clock.Now = 1000;
        for (const auto& [key, value] : options)
            ASSERT_TRUE(Monitor.Options().Set(key, value)) << key;
        ASSERT_GT(Monitor.Init(), 0);
    }
    bool Read() { return Monitor.Read_Buff(1, Samples); }
    // A cosine of 1 Hz on a high resting level.
    static double Wave(int sample) { return 9000 + 400 * std::cos(2 * 3.14159265358979 * sample / 250); }
    // So many milliseconds; returns the reads that were connected.
    int Lines(int milliseconds) {
        int connected = 0;
        for (int i = 0; i < milliseconds / 20; ++i) {
            Clock.Now += 20;
            for (int k = 0; k < 5; ++k)
                Port.Incoming += std::to_string(Wave(Sent++)) + "\r\n";
            connected += Read() ? 1 : 0;
        }
        return connected;
    }
    int Packets(int milliseconds) {
        int connected = 0;
        for (int i = 0; i < milliseconds / 20; ++i) {
            Clock.Now += 20;
            for (int k = 0; k < 5; ++k)
                Port.Incoming += CytonPacket(Sent++, {0, 44739});
            connected += Read() ? 1 : 0;
        }
        return connected;
    }
    int Silence(int milliseconds) {
        int connected = 0;
        for (int i = 0; i < milliseconds / 20; ++i) {
            Clock.Now += 20;
            connected += Read() ? 1 : 0;
        }
        return connected;
    }
};

TEST_F(SerialMonitorTest, LinesBecomePanelUnitsWithoutTheirRestingLevel) {
    Open({{"port", "/dev/x"}, {"speed", "57600"}, {"scale", "0.5"}});
    EXPECT_EQ(Port.Name, "/dev/x");
    EXPECT_EQ(Port.Speed, 57600);
    EXPECT_EQ(Monitor.Sig_Rate(1), 250);
    EXPECT_EQ(Lines(20000), 1000);
    ASSERT_EQ(Samples.size(), 4999U) << "what comes before the first line end is no line";
    const auto [least, most] = std::minmax_element(Samples.end() - 1000, Samples.end());
    EXPECT_NEAR(*most, 200, 15);
    EXPECT_NEAR(*least, -200, 15);
    EXPECT_EQ(Port.Written, "") << "such a board takes no commands";
}

TEST_F(SerialMonitorTest, ACytonBoardIsStartedReadInMillivoltsAndStopped) {
    Open({{"protocol", "cyton"}, {"first", "2"}, {"rate", "100"}});
    EXPECT_EQ(Port.Written, "b");
    EXPECT_EQ(Monitor.Sig_Rate(1), 250);
    Packets(1000);
    Clock.Now += 20;
    Port.Incoming += CytonPacket(Sent, {0, 44739 + 44739}) + CytonPacket(Sent + 1, {0, 44739});
    Read();
    // 44739 counts are 1 mV at the gain of 24.
    EXPECT_NEAR(Samples.back(), 500, 5);
    Monitor.CloseC2(1);
    EXPECT_EQ(Port.Written, "bs");
    EXPECT_FALSE(Read());
}

TEST_F(SerialMonitorTest, APulledPortIsSoughtUntilItIsBack) {
    Open({{"protocol", "cyton"}});
    Packets(2000);
    const std::size_t before = Samples.size();
    Port.Plugged = false;
    EXPECT_LE(Silence(2000), 1);
    EXPECT_EQ(Monitor.Error_Msg(), WordNumber(MonitorWord::NoPort)) << "none was chosen, and none is there";
    Silence(8000);
    EXPECT_EQ(Samples.size(), before);
    Port.Plugged = true;
    Port.Written.clear();
    Silence(1100);
    EXPECT_TRUE(Port.Written.starts_with("b"));
    Sent += 77; // the board has counted on, and nobody has heard it
    EXPECT_GT(Packets(1000), 45);
    EXPECT_EQ(std::count_if(Samples.begin(), Samples.end(), [](float x) { return std::isnan(x); }), 0)
        << "the time of the loss is the clock's affair";
    EXPECT_EQ(Monitor.Error_Msg(), "");
}

TEST_F(SerialMonitorTest, ABoardThatFallsSilentIsLostWithinTwoSecondsAndStartedAgain) {
    Open({{"protocol", "cyton"}});
    EXPECT_EQ(Monitor.Error_Msg(), WordNumber(MonitorWord::Connecting));
    Packets(1000);
    EXPECT_LT(Silence(2000), 100);
    EXPECT_FALSE(Read());
    EXPECT_EQ(Monitor.Error_Msg(), WordNumber(MonitorWord::Lost));
    Silence(10000);
    EXPECT_GT(Port.Written.size(), 5U);
    EXPECT_GE(Port.Opened, 3) << "the port itself is opened anew now and then";
    EXPECT_LE(Port.Opened, 4);
}

TEST_F(SerialMonitorTest, AnotherSpeedIsNoEcg) {
    Open({{"protocol", "lines"}});
    for (int i = 0; i < 150; ++i) {
        Clock.Now += 20;
        Port.Incoming += std::string(60, static_cast<char>(0x80 + i % 100)) + (i % 7 == 0 ? "\n" : "");
        EXPECT_FALSE(Read());
    }
    EXPECT_TRUE(Samples.empty());
    EXPECT_EQ(Monitor.Error_Msg(), WordNumber(MonitorWord::NotAnEcg));
}

} // namespace
} // namespace pulselark
