#include "platform/FakeDrivers.h"
#include "platform/ProgramFolder.h"
#include "platform/monitors/StdDriverMonitor.h"
#include "platform/monitors/VilistusMonitor.h"
#include "support/FakePlatform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <dlfcn.h>
#include <memory>
#include <string>
#include <vector>

namespace pulselark {
namespace {

std::string WordNumber(MonitorWord word) {
    return "word " + std::to_string(static_cast<int>(word)) + " ";
}

// The library as the test sees it, wiped; the monitor opens the same one.
class Driver {
public:
    explicit Driver(const std::string& file) : library_(dlopen(file.c_str(), RTLD_NOW), &dlclose) {
        auto* calls = reinterpret_cast<FakeDriver* (*)()>(dlsym(library_.get(), "FakeCalls"));
        state_ = calls();
        *state_ = {};
    }
    FakeDriver* operator->() const { return state_; }

private:
    std::unique_ptr<void, int (*)(void*)> library_;
    FakeDriver* state_ = nullptr;
};

TEST(StdDriverMonitor, GivesWhatTheDriverGivesInThePanelsRange) {
    const Driver driver(FAKE_STDDRIVER);
    FakeClock clock;
    StdDriverMonitor monitor(clock, &WordNumber, FAKE_STDDRIVER);
    EXPECT_EQ(monitor.Tot_Channels(), 0);
    driver->Answer = 7;
    ASSERT_EQ(monitor.Init(), 7);
    EXPECT_EQ(monitor.Tot_Channels(), 2);
    EXPECT_EQ(monitor.Sig_Name(2), "wrist");
    EXPECT_EQ(monitor.Sig_Rate(1), 256);
    EXPECT_EQ(monitor.Error_Msg(), "no electrode");
    driver->Waiting = 3000;
    std::vector<float> samples;
    EXPECT_TRUE(monitor.Read_Buff(1, samples));
    EXPECT_EQ(samples, std::vector<float>(3000, 1000.0F)) << "5 of 0 to 5 is the upper edge";
    driver->Waiting = 2;
    samples.clear();
    EXPECT_TRUE(monitor.Read_Buff(2, samples));
    EXPECT_EQ(samples, std::vector<float>(2, 0.0F));
    driver->Waiting = 100000000; // a driver that never ends
    EXPECT_TRUE(monitor.Read_Buff(2, samples));
    EXPECT_LT(samples.size(), 100000U);
    monitor.CloseC2(7);
    monitor.CloseC2(7);
    EXPECT_EQ(driver->Calls, "Init\nCloseC2 7\n");
    EXPECT_FALSE(monitor.Read_Buff(1, samples));
}

TEST(StdDriverMonitor, ALossIsToldByTheDriverOrByItsSilence) {
    const Driver driver(FAKE_STDDRIVER);
    FakeClock clock;
    StdDriverMonitor monitor(clock, &WordNumber, FAKE_STDDRIVER);
    ASSERT_GT(monitor.Init(), 0);
    std::vector<float> samples;
    EXPECT_TRUE(monitor.Read_Buff(1, samples));
    clock.Now += 2000;
    EXPECT_FALSE(monitor.Read_Buff(1, samples));
    driver->Waiting = 1;
    EXPECT_TRUE(monitor.Read_Buff(1, samples));
    driver->Waiting = -1;
    EXPECT_FALSE(monitor.Read_Buff(1, samples));
    monitor.CloseC2(1);
    driver->Answer = -3;
    EXPECT_LE(monitor.Init(), 0);
    EXPECT_FALSE(monitor.Read_Buff(1, samples));
}

TEST(StdDriverMonitor, SaysWhatIsMissing) {
    FakeClock clock;
    StdDriverMonitor none(clock, &WordNumber, "libnosuchdriver.so");
    EXPECT_EQ(none.Error_Msg(), WordNumber(MonitorWord::NoLibrary) + "libnosuchdriver.so");
    EXPECT_LE(none.Init(), 0);
    std::vector<float> samples;
    EXPECT_FALSE(none.Read_Buff(1, samples));
    none.CloseC2(0);
    StdDriverMonitor other(clock, &WordNumber, FAKE_VILISTUS);
    EXPECT_LE(other.Init(), 0);
    EXPECT_EQ(other.Error_Msg(), WordNumber(MonitorWord::LibraryTooSmall) + FAKE_VILISTUS);
}

Long refusedWith = 0;
void TakeRefusal(Long code) {
    refusedWith = code;
}

struct VilistusMonitorTest : testing::Test {
    Driver Library{FAKE_VILISTUS};
    FakeClock Clock;
    Integer SerialPort = 2;
    VilistusMonitor Monitor{Clock, &WordNumber, SerialPort, &TakeRefusal, FAKE_VILISTUS};
    VilistusMonitorTest() {
        SetProgramFolder("/home/lark");
        refusedWith = 0;
    }
    ~VilistusMonitorTest() override { SetProgramFolder(""); }
};

TEST_F(VilistusMonitorTest, CallsTheDriverInItsOrder) {
    ASSERT_GT(Monitor.Init(), 0);
    EXPECT_EQ(Library->Calls, "SetDebugMode #1 0 '/home/lark/Vilistus_debug.txt'\n"
                              "SetDSUBaudRate #1 9\n"
                              "SetDSUPacketLength #1 14\n"
                              "SetComPorts #1 1 100 2\n"
                              "SetScanWaitTime #1 200\n"
                              "InitialiseDSU #1\n");
    Library->Calls.clear();
    Monitor.CloseC2(1);
    Monitor.CloseC2(1);
    EXPECT_EQ(Library->Calls, "SetDebugMode #1 0 ''\n"
                              "ActiveComPort #1\n"
                              "TerminateDSU 1 0 '/home/lark /S12345.SES'\n");
    EXPECT_EQ(SerialPort, 4);
    EXPECT_EQ(refusedWith, 0);
}

TEST_F(VilistusMonitorTest, APortThatIsRefusedIsToldAndTheStartGoesOn) {
    Library->Answer = -12;
    ASSERT_GT(Monitor.Init(), 0);
    EXPECT_EQ(refusedWith, -12);
    EXPECT_TRUE(Library->Calls.ends_with("SetComPorts #1 1 100 2\nSetDebugMode #1 0 ''\nInitialiseDSU #1\n"))
        << Library->Calls;
}

TEST_F(VilistusMonitorTest, ReadsSamplesAndTellsItsState) {
    Monitor.Init();
    Library->Waiting = 1500;
    std::vector<float> samples;
    EXPECT_TRUE(Monitor.Read_Buff(2, samples));
    EXPECT_EQ(samples, std::vector<float>(1500, 200.0F));
    EXPECT_EQ(Monitor.Error_Msg(), "");
    EXPECT_EQ(Monitor.Status(),
              WordNumber(MonitorWord::StateOk) + " (" + WordNumber(MonitorWord::Version) + "31)");
    Library->State = 6;
    EXPECT_EQ(Monitor.Status(), "");
    EXPECT_EQ(Monitor.Error_Msg(),
              WordNumber(MonitorWord::StatePortFailure) + " (" + WordNumber(MonitorWord::Version) + "31)");
    Library->State = 7;
    EXPECT_EQ(Monitor.Error_Msg(), "");
    Clock.Now += 2000;
    EXPECT_FALSE(Monitor.Read_Buff(1, samples));
}

TEST(VilistusWithout, ALibraryDoesNotStart) {
    FakeClock clock;
    Integer port = 3;
    VilistusMonitor monitor(clock, &WordNumber, port, &TakeRefusal, "libnosuchdriver.so");
    EXPECT_LE(monitor.Init(), 0);
    monitor.CloseC2(1);
    EXPECT_EQ(port, 3);
    EXPECT_EQ(monitor.Error_Msg(), WordNumber(MonitorWord::NoLibrary) + "libnosuchdriver.so");
}

} // namespace
} // namespace pulselark
