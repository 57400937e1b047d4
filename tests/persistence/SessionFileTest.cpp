#include "persistence/SessionFile.h"

#include "persistence/OpenSession.h"
#include "session/MainBuffers.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

#include <bit>
#include <random>

namespace pulselark {
namespace {

class SessionFile : public SessionTest {
protected:
    SessionFile() { SessionInfo.fill(""); }
    static std::string Repeated(const std::string& line, Long count) {
        std::string text;
        for (Long i = 0; i < count; ++i)
            text += line;
        return text;
    }
    static std::string Head(const std::string& seconds, const std::string& mode = "2") {
        return "\"PulseLark\"\r\n" + seconds + "\r\n" + mode + "\r\n" + Repeated("\"future use\"\r\n", 9) +
               Repeated("\"\"\r\n", 21);
    }
    static Integer NumberOf(const std::string& text) { return ReadSessionText(text).Number; }

    // Any 32 bits that are a number.
    static void FillWithAnything(Long seconds) {
        std::mt19937 random(5);
        for (Long i = 1; i <= seconds * SamplesPerSecond; ++i) {
            for (EcgBuffer* ecg : {&EcgA, &EcgB}) {
                const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
                (*ecg)[i] = std::isfinite(value) ? value : 0.0F;
            }
        }
    }
    // One of the told failures, with its place, or a session that was taken.
    static void ExpectTold(const FileOutcome& outcome, const std::string& what) {
        const bool told = outcome.Number == 0 || outcome.Number == 6 || outcome.Number == 9 ||
                          outcome.Number == 13 || outcome.Number == 62;
        ASSERT_TRUE(told) << what << ": " << outcome.Number;
        ASSERT_EQ(outcome.Line > 0, outcome.Number != 0) << what;
        ASSERT_LE(outcome.Line, 1000) << what;
    }
};

TEST_F(SessionFile, NoSecondsAreThirtyThreeLines) {
    EXPECT_EQ(SessionText(), Head("0"));
    ChannelMode = 1;
    EXPECT_EQ(NumberOf(Head("0")), 0);
    EXPECT_EQ(SessionSeconds, 0);
    EXPECT_EQ(ChannelMode, 2);
}

TEST_F(SessionFile, LinesStandInTheirOrder) {
    SessionSeconds = 1;
    SessionInfo[0] = "title";
    SessionInfo[20] = "1";
    IbiA[1] = 0.75F;
    EcgA[1] = -12.5F;
    EcgA[128] = 1.25e-5F;
    const std::string head = "\"PulseLark\"\r\n1\r\n2\r\n" + Repeated("\"future use\"\r\n", 9) +
                             "\"title\"\r\n" + Repeated("\"\"\r\n", 19) + "\"1\"\r\n";
    const std::string a = "-12.5\r\n" + Repeated("0\r\n", 126) + "1.25E-05\r\n";
    EXPECT_EQ(SessionText(), head + ".75\r\n0\r\n" + a + Repeated("1\r\n", 128));
    ChannelBPresent = On;
    EcgB[2] = 7;
    EXPECT_EQ(SessionText(), head + ".75\r\n1\r\n" + a + "0\r\n7\r\n" + Repeated("0\r\n", 126));
}

TEST_F(SessionFile, TwoChannelsComeBackBitForBit) {
    ResetSessionBuffers();
    SessionSeconds = 20;
    FillWithAnything(20);
    ChannelMode = 1;
    ChannelBPresent = On;
    SessionInfo = {"title", "  blanks inside  ", "ümlaut ♥", "", "comma, semicolon; 'apostrophe'", "\\"};
    const auto info = SessionInfo;
    const auto ecgA = std::make_unique<EcgBuffer>(EcgA), ecgB = std::make_unique<EcgBuffer>(EcgB);
    const auto ibiA = IbiA, ibiB = IbiB;
    const std::string text = SessionText();
    ResetSessionBuffers();
    SessionInfo.fill("x");
    ChannelMode = 2;
    ASSERT_EQ(NumberOf(text), 0);
    EXPECT_EQ(SessionSeconds, 20);
    EXPECT_EQ(ChannelMode, 1);
    EXPECT_EQ(SessionInfo, info);
    const auto sameBits = [](float a, float b) {
        return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
    };
    EXPECT_TRUE(std::equal(EcgA.begin(), EcgA.end(), ecgA->begin(), sameBits));
    EXPECT_TRUE(std::equal(EcgB.begin(), EcgB.end(), ecgB->begin(), sameBits));
    EXPECT_TRUE(IbiA == ibiA && IbiB == ibiB);
    EXPECT_EQ(SessionText(), text);
}

TEST_F(SessionFile, OneChannelLeavesItsFillValuesInB) {
    MakeSession(3);
    const std::string text = SessionText();
    ResetSessionBuffers();
    ASSERT_EQ(NumberOf(text), 0);
    EXPECT_EQ(IbiB[3], 0);
    EXPECT_EQ(IbiB[4], 1);
    EXPECT_EQ(EcgB[1], 1);
    EXPECT_EQ(EcgB[384], 1);
    EXPECT_EQ(EcgB[385], 0);
    EXPECT_EQ(SessionText(), text);
}

TEST_F(SessionFile, TextsCannotBreakTheFile) {
    SessionInfo[0] = "a \"quote\"";
    SessionInfo[1] = "two\r\nlines";
    const std::string text = SessionText();
    ASSERT_EQ(NumberOf(text), 0);
    EXPECT_EQ(SessionInfo[0], "a \"quote\"");
    EXPECT_EQ(SessionInfo[1], "two lines");
    EXPECT_EQ(SessionText(), text);
}

TEST_F(SessionFile, OtherProgramsLinesAreTaken) {
    std::string text =
        Head("1", " \"1\" ") + "0.5\r\n +1.5 \r\n" + Repeated("\t-2e1\r\n", 128) + Repeated("1\r\n", 127);
    std::erase(text, '\r');
    text = "\xEF\xBB\xBF" + text + " 9"; // a byte order mark, bare line feeds, no end of the last line
    ASSERT_EQ(NumberOf(text), 0);
    EXPECT_EQ(ChannelMode, 1);
    EXPECT_EQ(IbiA[1], 0.5F);
    EXPECT_EQ(IbiB[1], 1.5F);
    EXPECT_EQ(EcgA[128], -20);
    EXPECT_EQ(EcgB[128], 9);
    for (const auto& [mode, taken] :
         {std::pair{"3", 1}, {"\"two\"", 1}, {"", 1}, {"0", 1}, {"1.5", 1}, {"2.0", 2}}) {
        ChannelMode = 1;
        EXPECT_EQ(NumberOf(Head("0", mode)), 0) << mode;
        EXPECT_EQ(ChannelMode, taken) << mode;
    }
}

TEST_F(SessionFile, LengthsThatCannotBe) {
    const struct {
        std::string Text;
        Integer Number;
        Long Line;
    } cases[] = {
        {Head("text"), 13, 2},
        {Head(""), 13, 2},
        {Head("2147483648"), 6, 2},
        {Head("1"), 62, 34},
        {Head("4096") + Repeated("1\n", 4096), 62, 33 + 4096 + 1},
        {Head("2147483647") + Repeated("1\n", 5000), 9, 33 + 4096}, // the series are full
        {Head("3602") + Repeated("1\n", 2 * 3602 + 461056), 9, 33 + 2 * 3602 + 461000},
        {Head("1") + "1\n1\nx\n", 13, 36},
        {Head("1") + "1\r\nnan\r\n1\r\n", 13, 35},
        {Head("1") + "1\r\n1\r\n-inf\r\n", 13, 36},
        {Head("1") + "1\n1\n1e39\n", 6, 36},
        {"", 62, 1},
        {Head("0").substr(0, 100), 13, 9}, // within a quote
    };
    for (const auto& c : cases) {
        SessionSeconds = 7;
        const FileOutcome outcome = ReadSessionText(c.Text);
        EXPECT_EQ(outcome.Number, c.Number) << c.Text.substr(13, 12);
        EXPECT_EQ(outcome.Line, c.Line) << c.Text.substr(13, 12);
    }
    EXPECT_EQ(NumberOf(Head("-1")), 9);
    EXPECT_EQ(SessionSeconds, 0);
    EXPECT_EQ(NumberOf(Head("3602")), 62);
    EXPECT_EQ(SessionSeconds, 0); // a length that does not fit is never kept
    EXPECT_EQ(NumberOf(Head("3601")), 62);
    EXPECT_EQ(SessionSeconds, 3601);
    EXPECT_EQ(NumberOf(Head("3601") + Repeated("1\n", 2 * 3601 * 129)), 0);
    EXPECT_EQ(EcgB[460928], 1);
}

class Damage : public SessionFile, public testing::WithParamInterface<Integer> {
protected:
    Damage() {
        MakeSession(2);
        ChannelMode = GetParam();
        ChannelBPresent = ToBoolean(GetParam() == 1);
        SessionInfo[0] = "title";
        Whole = SessionText();
    }

    // The whole way of a file into the program.
    void Open(const std::string& bytes, const std::string& what) {
        Outside.Disk.Content["x.hti"] = bytes;
        OpenSessionFile("x.hti");
        const Integer number = LastFileResult == FileSuccess ? Integer{0} : LastFileResult;
        ExpectTold({number, LastFileLine}, what);
        ASSERT_EQ(LoadingSession | Rescanning | Outside.Bar.Visible, 0) << what;
        ASSERT_EQ(Outside.Boxes.Shown.size(), number == 0 ? 0U : 1U) << what;
        Outside.Boxes.Shown.clear();
    }

    std::string Whole;
};
INSTANTIATE_TEST_SUITE_P(Modes, Damage, testing::Values(1, 2));

TEST_P(Damage, CutAtEveryByte) {
    for (std::size_t size = 0; size < Whole.size(); ++size) {
        const FileOutcome outcome = ReadSessionText(Whole.substr(0, size));
        ASSERT_NO_FATAL_FAILURE(ExpectTold(outcome, "cut at " + std::to_string(size)));
        // Only the last line may lose something and still be a number.
        const bool lastLine = size > Whole.rfind('\n', Whole.size() - 2) + 1;
        ASSERT_TRUE(lastLine || outcome.Number != 0) << size;
        if (size % 211 == 0) {
            ASSERT_NO_FATAL_FAILURE(Open(Whole.substr(0, size), "cut at " + std::to_string(size)));
        }
    }
}

TEST_P(Damage, EveryByteChanged) {
    const std::string others("\0\n\r\"-9e. x\xFF", 11);
    for (std::size_t at = 0; at < Whole.size(); ++at) {
        for (const char other : others) {
            std::string bytes = Whole;
            bytes[at] = other;
            const std::string what = "byte " + std::to_string(at) + " is " + std::to_string(int{other});
            ASSERT_NO_FATAL_FAILURE(ExpectTold(ReadSessionText(bytes), what));
            if (at % 97 == 0 && other == '9') {
                ASSERT_NO_FATAL_FAILURE(Open(bytes, what));
            }
        }
    }
}

} // namespace
} // namespace pulselark
