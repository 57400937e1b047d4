#include "platform/monitors/QtSerialPort.h"
#include "platform/monitors/QtStrapLink.h"
#include "platform/monitors/SerialMonitor.h"
#include "platform/monitors/StrapMonitor.h"
#include "support/FakePlatform.h"
#include "support/SensorBytes.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <pty.h>
#include <string>
#include <termios.h>
#include <unistd.h>

namespace pulselark {
namespace {

std::string WordNumber(MonitorWord word) {
    return "word " + std::to_string(static_cast<int>(word)) + " ";
}

// A board at the far end of a pseudo-terminal, which has a name that stays while the terminal comes and goes.
class Emulator {
public:
    explicit Emulator(std::string name) : name_(std::move(name)) {}
    Emulator(const Emulator&) = delete;
    Emulator& operator=(const Emulator&) = delete;
    ~Emulator() { Unplug(); }

    void Plug() {
        std::array<char, 64> path{};
        int port = -1;
        ASSERT_EQ(openpty(&board_, &port, path.data(), nullptr, nullptr), 0);
        termios raw{};
        tcgetattr(port, &raw);
        cfmakeraw(&raw);
        tcsetattr(port, TCSANOW, &raw);
        close(port);
        std::filesystem::remove(name_);
        std::filesystem::create_symlink(path.data(), name_);
    }
    void Unplug() {
        if (board_ >= 0)
            close(board_);
        board_ = -1;
        std::filesystem::remove(name_);
    }
    void Send(const std::string& bytes) const {
        ASSERT_EQ(write(board_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    // What the program has written, which must come.
    std::string Hear() const {
        std::array<char, 16> bytes{};
        const ssize_t count = read(board_, bytes.data(), bytes.size());
        return {bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
    }

private:
    std::string name_;
    int board_ = -1;
};

// The monitor on a clock of the test's own, so that ten minutes of it take no longer than its bytes.
struct SerialPortTest : testing::Test {
    TemporaryFolder Folder;
    Emulator Board{Folder.Name() + "/port"};
    FakeClock Clock;
    SerialMonitor Monitor{Clock, &WordNumber, std::make_unique<QtSerialPort>()};
    std::vector<float> Samples;
    int Sent = 0;

    void Open(const char* protocol) {
        Monitor.Options().Set("port", Folder.Name() + "/port");
        Monitor.Options().Set("protocol", protocol);
        Clock.Now = 1000;
        ASSERT_GT(Monitor.Init(), 0);
    }
    bool Read() {
        Clock.Now += 20;
        return Monitor.Read_Buff(1, Samples);
    }
    bool SendPackets(int count) {
        bool connected = false;
        for (int i = 0; i < count; ++i) {
            Board.Send(CytonPacket(Sent++, {0}));
            if (Sent % 5 == 0)
                connected = Read();
        }
        return connected;
    }
};

TEST_F(SerialPortTest, TenMinutesOfPacketsWithTornAndLostOnesKeepsItsTimeBase) {
    Board.Plug();
    Open("cyton");
    EXPECT_EQ(Board.Hear(), "b");
    constexpr int Packets = 10 * 60 * 250;
    for (; Sent < Packets; ++Sent) {
        std::string packet = CytonPacket(Sent, {Sent % 1000});
        if (Sent % 997 == 5)
            packet.erase(7, 9);
        if (Sent % 1501 != 7)
            Board.Send(packet);
        if (Sent % 5 == 0 && Sent > 5) {
            ASSERT_TRUE(Read()) << Sent;
        }
    }
    Read();
    EXPECT_NEAR(static_cast<double>(Samples.size()), Packets, 2);
    const auto lost = std::count_if(Samples.begin(), Samples.end(), [](float x) { return std::isnan(x); });
    EXPECT_GT(lost, Packets / 997);
    EXPECT_LT(lost, 3 * (Packets / 997 + Packets / 1501));
    Monitor.CloseC2(1);
    EXPECT_EQ(Board.Hear(), "s");
}

TEST_F(SerialPortTest, APulledPlugIsNoticedAndThePortFoundAgain) {
    Board.Plug();
    Open("cyton");
    EXPECT_TRUE(SendPackets(500));
    Board.Unplug();
    bool connected = true;
    for (int i = 0; i < 100; ++i)
        connected = Read();
    EXPECT_FALSE(connected) << "two seconds later";
    EXPECT_NE(Monitor.Error_Msg(), "");
    Board.Plug();
    for (int i = 0; i < 100; ++i)
        Read();
    EXPECT_TRUE(Board.Hear().starts_with("b"));
    EXPECT_TRUE(SendPackets(500));
    EXPECT_EQ(Monitor.Error_Msg(), "");
}

TEST_F(SerialPortTest, LinesAtTheWrongSpeedAndThenTheRightOne) {
    Board.Plug();
    Open("lines");
    for (int i = 0; i < 200; ++i) {
        Board.Send("\xFE\x80\x1C\xF0\xE6\x98\x80\xF8\x9E\x06");
        EXPECT_FALSE(Read());
    }
    EXPECT_EQ(Monitor.Error_Msg(), WordNumber(MonitorWord::NotAnEcg));
    for (int i = 0; i < 200; ++i) {
        Board.Send("\n512\n513\n514\n515\n516");
        Read();
    }
    EXPECT_TRUE(Read());
    EXPECT_GT(Samples.size(), 900U);
}

TEST(SerialPort, APortThatIsNotThereIsNoError) {
    FakeClock clock;
    SerialMonitor monitor(clock, &WordNumber, std::make_unique<QtSerialPort>());
    monitor.Options().Set("port", "/dev/no-such-port");
    EXPECT_GT(monitor.Init(), 0);
    std::vector<float> samples;
    EXPECT_FALSE(monitor.Read_Buff(1, samples));
    EXPECT_EQ(monitor.Error_Msg(), WordNumber(MonitorWord::PortFailed) + "/dev/no-such-port");
}

// A computer of the tests has no radio; where one has, a strap is sought and none is there.
TEST(StrapRadio, WithoutAStrapThereIsAnErrorTextAndNoWaiting) {
    FakeClock clock;
    StrapMonitor monitor(clock, &WordNumber, std::make_unique<QtStrapLink>());
    const Integer handle = monitor.Init();
    std::vector<float> samples;
    EXPECT_FALSE(monitor.Read_Buff(1, samples));
    EXPECT_NE(monitor.Error_Msg(), "");
    monitor.CloseC2(handle);
}

} // namespace
} // namespace pulselark
