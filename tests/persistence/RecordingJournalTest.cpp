#include "persistence/RecordingJournal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <numeric>

namespace pulselark {
namespace {

JournalHead SomeHead() {
    JournalHead head{.Date = "21/11/2026", .Time = "17:45", .Monitor = "fake", .Mode = 1, .Info = {}};
    head.Info[0] = "a title with\na line";
    head.Info[20] = "1";
    return head;
}

std::vector<float> Ramp(std::size_t count, float start) {
    std::vector<float> values(count);
    std::iota(values.begin(), values.end(), start);
    return values;
}

TEST(RecordingJournal, GivesBackWhatWasWrittenAndTheLastWordCounts) {
    EXPECT_EQ(Crc32("123456789"), 0xCBF43926U); // the check value of its definition
    std::string journal = JournalStart(SomeHead());
    AppendSamples(journal, 'A', 1, Ramp(100, 1));
    AppendSamples(journal, 'B', 1, Ramp(64, -1000));
    AppendIntervals(journal, 1, Ramp(2, 0.5F), Ramp(2, 0.75F));
    AppendSamples(journal, 'A', 301, Ramp(100, 301)); // a pause lies between
    AppendIntervals(journal, 2, Ramp(2, 0.875F), Ramp(2, 0.9375F));
    JournalContent content;
    ASSERT_TRUE(ReadJournal(journal, content));
    EXPECT_EQ(content.Head.Monitor, "fake");
    EXPECT_EQ(content.Head.Mode, 1);
    EXPECT_EQ(content.Head.Info, SomeHead().Info);
    EXPECT_EQ(content.WholeBytes, journal.size());
    ASSERT_EQ(content.EcgA.size(), 400U);
    EXPECT_EQ(content.EcgA[99], 100);
    EXPECT_EQ(content.EcgA[200], 0);
    EXPECT_EQ(content.EcgA[399], 400);
    EXPECT_EQ(content.EcgB.size(), 64U);
    EXPECT_EQ(content.IbiA, (std::vector<float>{0.5F, 0.875F, 1.875F}));
    EXPECT_EQ(content.IbiB[1], 0.9375F);
    EXPECT_EQ(JournalSeconds(content), 3); // and 16 samples, which are too few
}

TEST(RecordingJournal, CutAtEveryByteItGivesWhatWasWhole) {
    std::string journal = JournalStart(SomeHead());
    const std::size_t head = journal.size();
    std::vector<std::size_t> ends{head};
    for (int second = 0; second < 6; ++second) {
        AppendSamples(journal, 'A', second * 128 + 1, Ramp(128, 0));
        ends.push_back(journal.size());
    }
    for (std::size_t cut = 0; cut <= journal.size(); ++cut) {
        JournalContent content;
        const bool read = ReadJournal(std::string_view(journal).substr(0, cut), content);
        ASSERT_EQ(read, cut >= head) << cut;
        const auto whole = std::upper_bound(ends.begin(), ends.end(), cut) - ends.begin();
        ASSERT_EQ(content.EcgA.size(), read ? static_cast<std::size_t>(whole - 1) * 128 : 0) << cut;
        ASSERT_EQ(content.WholeBytes, read ? ends[static_cast<std::size_t>(whole - 1)] : 0) << cut;
    }
}

TEST(RecordingJournal, AFlippedByteEndsWhatCounts) {
    std::string journal = JournalStart(SomeHead());
    const std::size_t head = journal.size();
    AppendSamples(journal, 'A', 1, Ramp(128, 0));
    const std::size_t first = journal.size();
    AppendSamples(journal, 'A', 129, Ramp(128, 0));
    for (std::size_t place = 0; place < journal.size(); ++place) {
        std::string broken = journal;
        broken[place] = static_cast<char>(broken[place] ^ 0x10);
        JournalContent content;
        const bool read = ReadJournal(broken, content);
        ASSERT_EQ(read, place >= head) << place;
        ASSERT_EQ(content.EcgA.size(), place < first ? 0U : 128U) << place;
    }
}

TEST(RecordingJournal, RecordsThatNoSessionCanHoldEndIt) {
    for (const Long first :
         {0, -5, 461000, std::numeric_limits<Long>::max(), std::numeric_limits<Long>::min()}) {
        std::string journal = JournalStart(SomeHead());
        const std::size_t whole = journal.size();
        AppendSamples(journal, 'A', first, Ramp(3, 1));
        AppendSamples(journal, 'A', 1, Ramp(128, 1));
        JournalContent content;
        EXPECT_TRUE(ReadJournal(journal, content));
        EXPECT_EQ(content.WholeBytes, whole) << first;
        EXPECT_LE(content.EcgA.size(), 461000U);
    }
    std::string journal = JournalStart(SomeHead());
    AppendSamples(journal, 'A', 1, std::vector{1.0F, std::numeric_limits<float>::quiet_NaN()});
    AppendSamples(journal, 'Z', 1, Ramp(3, 1)); // of a later version, had it come first
    JournalContent content;
    EXPECT_TRUE(ReadJournal(journal, content));
    EXPECT_EQ(content.EcgA.size(), 1U);
    EXPECT_FALSE(ReadJournal("", content));
    EXPECT_FALSE(ReadJournal("\"PulseLark\"\r\n5\r\n", content));
}

} // namespace
} // namespace pulselark
