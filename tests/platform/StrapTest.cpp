#include "platform/monitors/StrapDecoder.h"
#include "platform/monitors/StrapMonitor.h"
#include "support/FakePlatform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace pulselark {
namespace {

using Bytes = StrapLink::Bytes;

// A packet whose last sample lies at so many samples after the strap's start.
Bytes EcgPacket(double lastSample, const std::vector<int>& microvolts) {
    Bytes bytes{0};
    const auto time = static_cast<std::uint64_t>(std::llround(lastSample / 130 * 1e9));
    for (unsigned i = 0; i < 8; ++i)
        bytes.push_back(static_cast<std::uint8_t>(time >> (8 * i)));
    bytes.push_back(0);
    for (const int value : microvolts) {
        for (const unsigned shift : {0U, 8U, 16U})
            bytes.push_back(static_cast<std::uint8_t>(static_cast<unsigned>(value) >> shift));
    }
    return bytes;
}

std::string WordNumber(MonitorWord word) {
    return "word " + std::to_string(static_cast<int>(word));
}

TEST(StrapDecoder, ReadsAPacketToTheByte) {
    // 2^40 + 1 ns; 1, -1, 8388607 and -8388608 microvolts.
    const Bytes bytes{0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F, 0, 0, 0x80};
    const auto packet = ReadStrapEcg(bytes);
    ASSERT_TRUE(packet);
    EXPECT_EQ(packet->Nanoseconds, (std::uint64_t{1} << 40U) + 1);
    EXPECT_EQ(packet->Microvolts, (std::vector<float>{1, -1, 8388607, -8388608}));
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        const bool whole = size > 10 && (size - 10) % 3 == 0;
        EXPECT_EQ(ReadStrapEcg(std::span(bytes).first(size)).has_value(), whole) << size;
    }
    Bytes other = bytes;
    other[0] = 2; // acceleration
    EXPECT_FALSE(ReadStrapEcg(other));
    other = bytes;
    other[9] = 1; // another frame
    EXPECT_FALSE(ReadStrapEcg(other));
}

TEST(StrapDecoder, AMissingPacketIsItsSamplesLost) {
    StrapDecoder decoder;
    std::vector<float> samples;
    const std::vector<int> values(73, 2000);
    EXPECT_TRUE(decoder.Take(EcgPacket(73, values), samples));
    EXPECT_TRUE(decoder.Take(EcgPacket(146.8, values), samples)) << "times are not exact";
    EXPECT_FALSE(decoder.Take(EcgPacket(146.8, values), samples)) << "the same once more";
    EXPECT_EQ(samples.size(), 146U);
    EXPECT_TRUE(decoder.Take(EcgPacket(4 * 73, values), samples));
    ASSERT_EQ(samples.size(), 4U * 73 - 1);
    EXPECT_EQ(std::count_if(samples.begin(), samples.end(), [](float x) { return std::isnan(x); }), 72);
    EXPECT_EQ(samples.back(), 2.0F) << "millivolts";
    // A strap that sets its clock loses nothing.
    EXPECT_TRUE(decoder.Take(EcgPacket(1e9, values), samples));
    EXPECT_TRUE(decoder.Take(EcgPacket(73, values), samples));
    EXPECT_EQ(samples.size(), 6U * 73 - 1);
}

TEST(HeartRateMeasurement, HasRatesAndIntervalsOfEveryForm) {
    const auto narrow = ReadHeartRate(Bytes{0x10, 60, 0x00, 0x04, 0x00, 0x02});
    ASSERT_TRUE(narrow);
    EXPECT_EQ(narrow->BeatsPerMinute, 60);
    EXPECT_EQ(narrow->Intervals, (std::vector<double>{1.0, 0.5}));
    EXPECT_FALSE(narrow->KnowsContact);
    const auto wide = ReadHeartRate(Bytes{0x1F, 0x2C, 0x01, 9, 9, 0x00, 0x01, 7});
    ASSERT_TRUE(wide);
    EXPECT_EQ(wide->BeatsPerMinute, 300);
    EXPECT_TRUE(wide->Contact);
    EXPECT_EQ(wide->Intervals, std::vector<double>{0.25}) << "half an interval is none";
    const auto loose = ReadHeartRate(Bytes{0x04, 0});
    ASSERT_TRUE(loose);
    EXPECT_TRUE(loose->KnowsContact && !loose->Contact);
    for (const Bytes& cut : {Bytes{}, Bytes{0}, Bytes{1, 60}, Bytes{8, 60, 1}})
        EXPECT_FALSE(ReadHeartRate(cut));
}

class FakeStrap final : public StrapLink {
public:
    struct Script {
        State Radio = State::Seeking;
        std::string Sought = "-";
        std::vector<Bytes> Ecg, HeartRates;
        int Left = 0;
    };
    explicit FakeStrap(Script& script) : script_(script) {}
    void Seek(const std::string& address) override { script_.Sought = address; }
    void Leave() override { ++script_.Left; }
    State Now() override { return script_.Radio; }
    std::vector<Bytes> TakeEcg() override { return std::exchange(script_.Ecg, {}); }
    std::vector<Bytes> TakeHeartRates() override { return std::exchange(script_.HeartRates, {}); }
    std::vector<std::string> Straps() override { return {"AA:BB strap"}; }

private:
    Script& script_;
};

struct StrapMonitorTest : testing::Test {
    FakeClock Clock;
    FakeStrap::Script Radio;
    StrapMonitor Monitor{Clock, &WordNumber, std::make_unique<FakeStrap>(Radio)};
    std::vector<float> Samples;
    bool Read() { return Monitor.Read_Buff(1, Samples); }
};

TEST_F(StrapMonitorTest, GivesTheStrapsSamplesAndNoticesItsSilence) {
    Monitor.Options().Set("address", "AA:BB strap of mine");
    ASSERT_GT(Monitor.Init(), 0);
    EXPECT_EQ(Radio.Sought, "AA:BB");
    EXPECT_FALSE(Read());
    EXPECT_EQ(Monitor.Error_Msg(), WordNumber(MonitorWord::StrapSought));
    Radio.Radio = StrapLink::State::Connected;
    std::vector<int> values(73, 100000); // the skin's own 100 mV
    values[40] += 1000;
    Radio.Ecg.push_back(EcgPacket(73, values));
    Radio.HeartRates.push_back({0, 64});
    EXPECT_TRUE(Read());
    EXPECT_EQ(Monitor.Error_Msg(), "");
    ASSERT_EQ(Samples.size(), 73U);
    EXPECT_NEAR(Samples[40], 500, 15) << "1 mV";
    EXPECT_EQ(Monitor.OwnHeartRate(), 64);
    Clock.Now += 2000;
    EXPECT_FALSE(Read());
    EXPECT_EQ(Monitor.Error_Msg(), WordNumber(MonitorWord::Lost));
    // The time of the loss is the clock's affair: nothing is put in for it.
    Radio.Ecg.push_back(EcgPacket(73 * 8, values));
    EXPECT_TRUE(Read());
    EXPECT_EQ(Samples.size(), 146U);
    Clock.Now += 4000;
    EXPECT_EQ(Monitor.OwnHeartRate(), 0);
}

TEST_F(StrapMonitorTest, SaysInWordsWhyThereIsNoEcg) {
    Radio.Radio = StrapLink::State::NoRadio;
    EXPECT_LE(Monitor.Init(), 0);
    EXPECT_EQ(Monitor.Error_Msg(), WordNumber(MonitorWord::NoBluetooth));
    EXPECT_FALSE(Read());
    Radio.Radio = StrapLink::State::WithoutEcg;
    EXPECT_GT(Monitor.Init(), 0);
    EXPECT_FALSE(Read());
    EXPECT_EQ(Monitor.Error_Msg(), WordNumber(MonitorWord::StrapWithoutEcg));
    Radio.Left = 0;
    Monitor.CloseC2(1);
    EXPECT_EQ(Radio.Left, 1);
}

} // namespace
} // namespace pulselark
