#include "app/Commands.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <fstream>

// The traces of all modes against tests/reference/training.py and chord.py, which share no code with the
// program.
namespace pulselark {
namespace {

namespace fs = std::filesystem;

class TraceSecondOpinion : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Sessions, TraceSecondOpinion,
                         testing::Values("rest_two_channels_899s.hti", "chest_strap_one_channel_600s.hti"));

std::string TraceOf(const std::vector<std::string>& words, int& code) {
    testing::internal::CaptureStdout();
    code = RunTrace(words);
    return testing::internal::GetCapturedStdout();
}

// Whether the reference finds in these traces what it computes itself.
bool Agrees(const char* reference, const fs::path& session, const std::string& traces) {
    const fs::path script = fs::path(PULSELARK_SOURCE) / "tests" / "reference" / reference;
    const std::string command = "'" PULSELARK_PYTHON "' -B '" + script.string() + "' '" + session.string() +
                                "' --averaging 4" + traces;
    return std::system(command.c_str()) == 0;
}

TEST_P(TraceSecondOpinion, AgreesOnEveryScoreAndPayload) {
    const char* data = std::getenv("PULSELARK_DATA");
    if (data == nullptr)
        GTEST_SKIP() << "no recordings: PULSELARK_DATA is not set";
    const fs::path session = fs::path(data) / "sessions" / GetParam();
    const TemporaryFolder folder;
    std::string traces;
    for (const auto& [mode, interval] :
         {std::pair{"0", "16"}, {"1", "16"}, {"2", "4"}, {"3", "16"}, {"3", "61"}}) {
        int code = -1;
        const std::string lines =
            TraceOf({session.string(), "--mode", mode, "--interval", interval, "--averaging", "4"}, code);
        ASSERT_EQ(code, 0);
        const std::string name = folder.Name() + "/" + mode + "-" + interval;
        std::ofstream(name) << lines;
        traces += std::string(" ") + mode + ":" + interval + ":" + name;
    }
    EXPECT_TRUE(Agrees("training.py", session, traces));
}

// The words of every second, in training and with the panels, against tests/reference/chord.py.
TEST_P(TraceSecondOpinion, AgreesOnEveryMidiWord) {
    const char* data = std::getenv("PULSELARK_DATA");
    if (data == nullptr)
        GTEST_SKIP() << "no recordings: PULSELARK_DATA is not set";
    const fs::path session = fs::path(data) / "sessions" / GetParam();
    const TemporaryFolder folder;
    std::string traces;
    for (const std::string mode : {"panels", "1", "2", "3"}) {
        std::vector<std::string> words{session.string(), "--averaging", "4", "--midi"};
        if (mode != "panels")
            words.insert(words.end(), {"--mode", mode});
        int code = -1;
        const std::string lines = TraceOf(words, code);
        ASSERT_EQ(code, 0);
        const std::string name = folder.Name() + "/" + mode;
        std::ofstream(name) << lines;
        traces.append(" ").append(mode).append(":16:").append(name);
    }
    EXPECT_TRUE(Agrees("chord.py", session, traces));
}

TEST(Trace, TellsWrongUsage) {
    for (const std::vector<std::string>& words : {std::vector<std::string>{},
                                                  {"a.hti", "--mode", "4"},
                                                  {"a.hti", "--interval", "3"},
                                                  {"a.hti", "--interval", "62"},
                                                  {"a.hti", "--mode"},
                                                  {"a.hti", "b.hti"},
                                                  {"a.hti", "--what"}}) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(RunTrace(words), 2);
        EXPECT_NE(testing::internal::GetCapturedStderr().find("trace FILE.hti"), std::string::npos);
    }
}

} // namespace
} // namespace pulselark
