#include "persistence/WfdbRecord.h"

#include "platform/system/SystemFiles.h"

#include <gtest/gtest.h>

#include <cmath>

namespace pulselark {
namespace {

const std::string good =
    "# a comment\n100 2 360/720(10) 3 10:20:30\n"
    "r.dat 212 200(1024)/mV 11 0 995 -22131 0 MLII\nr.dat 212+0 100 11 5 0 0 0 V5\n# 69 M\n";

TEST(WfdbRecordTest, HeaderGivesRateGainAndBaseline) {
    WfdbHeader header;
    ASSERT_EQ(ReadWfdbHeader(good, header).Number, 0);
    EXPECT_EQ(header.Rate, 360);
    EXPECT_EQ(header.Samples, 3);
    ASSERT_EQ(header.Signals.size(), 2U);
    EXPECT_EQ(header.Signals[0].Baseline, 1024);
    EXPECT_EQ(header.Signals[0].Name, "MLII");
    EXPECT_EQ(header.Signals[1].Baseline, 5); // of a signal without one it is the resolution's zero
    EXPECT_EQ(header.Signals[1].Gain, 100);
}

TEST(WfdbRecordTest, SamplesOfBothFormats) {
    WfdbHeader header;
    ASSERT_EQ(ReadWfdbHeader(good, header).Number, 0);
    // Pairs 1024, 5; 1224, -95; -2048 (invalid), 2047.
    const std::string bytes("\x00\x04\x05\xC8\xF4\xA1\x00\x78\xFF", 9);
    std::vector<float> a, b;
    ASSERT_EQ(ReadWfdbSamples(header, 0, bytes, a), 0);
    ASSERT_EQ(ReadWfdbSamples(header, 1, bytes, b), 0);
    ASSERT_EQ(a.size(), 3U);
    EXPECT_EQ(a[0], 0);
    EXPECT_EQ(a[1], 500);
    EXPECT_TRUE(std::isnan(a[2]));
    EXPECT_EQ(b, (std::vector<float>{0, -500, 10210}));
    EXPECT_EQ(ReadWfdbSamples(header, 0, bytes.substr(0, 8), a), FailureInputPastEnd);

    ASSERT_EQ(ReadWfdbHeader("r 1 128\nr.dat 16 1000/uV\n", header).Number, 0);
    std::vector<float> c;
    ASSERT_EQ(ReadWfdbSamples(header, 0, std::string("\xE8\x03\x18\xFC\x00\x80\x01", 7), c), 0);
    ASSERT_EQ(c.size(), 3U);
    std::vector<float> later;
    header.Signals[0].Skew = 1;
    ASSERT_EQ(ReadWfdbSamples(header, 0, std::string("\xE8\x03\x18\xFC", 4), later), 0);
    EXPECT_FLOAT_EQ(later[0], -0.5F);
    EXPECT_TRUE(std::isnan(later[1]));
    EXPECT_FLOAT_EQ(c[0], 0.5F);
    EXPECT_FLOAT_EQ(c[1], -0.5F);
    EXPECT_TRUE(std::isnan(c[2]));
}

TEST(WfdbRecordTest, BrokenHeadersFailByNumberAndLine) {
    const auto outcome = [](const std::string& text) {
        WfdbHeader header;
        const FileOutcome result = ReadWfdbHeader(text, header);
        return std::pair<int, Long>(result.Number, result.Line);
    };
    using Pair = std::pair<int, Long>;
    EXPECT_EQ(outcome(""), Pair(62, 1));
    EXPECT_EQ(outcome("r 2 360\nr.dat 16\n"), Pair(62, 3));
    EXPECT_EQ(outcome("r/2 2 360\n"), Pair(13, 1));
    EXPECT_EQ(outcome("r x\n"), Pair(13, 1));
    EXPECT_EQ(outcome("r 99999999999\n"), Pair(6, 1));
    EXPECT_EQ(outcome("r 1 0\n"), Pair(6, 1));
    EXPECT_EQ(outcome("r 1 360\nr.dat 80\n"), Pair(13, 2));
    EXPECT_EQ(outcome("r 1 360\nr.dat 16x4\n"), Pair(13, 2));
    EXPECT_EQ(outcome("r 1 360\n../r.dat 16\n"), Pair(52, 2));
    EXPECT_EQ(outcome("r 1 360\nr.dat 16+-5\n"), Pair(6, 2));
    for (std::size_t length = 0; length < good.size(); ++length) // no break does worse than fail
        outcome(good.substr(0, length));
}

} // namespace
} // namespace pulselark
