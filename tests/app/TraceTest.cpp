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

class TraceSecondOpinion : public testing::TestWithParam<const char*> {
protected:
    fs::path Session;
    TemporaryFolder Folder;
    std::string Traces; // "mode:interval:file" of each, as the references take them

    void SetUp() override {
        const char* data = std::getenv("PULSELARK_DATA");
        if (data == nullptr)
            GTEST_SKIP() << "no recordings: PULSELARK_DATA is not set";
        Session = fs::path(data) / "sessions" / GetParam();
    }
    void Trace(const std::string& mode, const std::string& interval, std::vector<std::string> words);
    // Whether the reference finds in these traces what it computes itself.
    bool Agrees(const char* reference) const;
};
INSTANTIATE_TEST_SUITE_P(Sessions, TraceSecondOpinion,
                         testing::Values("rest_two_channels_899s.hti", "chest_strap_one_channel_600s.hti"));

std::string TraceOf(const std::vector<std::string>& words, int& code) {
    testing::internal::CaptureStdout();
    code = RunTrace(words);
    return testing::internal::GetCapturedStdout();
}

void TraceSecondOpinion::Trace(const std::string& mode, const std::string& interval,
                               std::vector<std::string> words) {
    words.insert(words.begin(), {Session.string(), "--averaging", "4"});
    int code = -1;
    const std::string lines = TraceOf(words, code);
    ASSERT_EQ(code, 0);
    const std::string name = Folder.Name() + "/" + mode + "-" + interval;
    std::ofstream(name) << lines;
    Traces.append(" ").append(mode).append(":").append(interval).append(":").append(name);
}

bool TraceSecondOpinion::Agrees(const char* reference) const {
    const fs::path script = fs::path(PULSELARK_SOURCE) / "tests" / "reference" / reference;
    const std::string command = "'" PULSELARK_PYTHON "' -B '" + script.string() + "' '" + Session.string() +
                                "' --averaging 4" + Traces;
    return std::system(command.c_str()) == 0;
}

TEST_P(TraceSecondOpinion, AgreesOnEveryScoreAndPayload) {
    for (const auto& [mode, interval] :
         {std::pair{"0", "16"}, {"1", "16"}, {"2", "4"}, {"3", "16"}, {"3", "61"}})
        Trace(mode, interval, {"--mode", mode, "--interval", interval});
    EXPECT_TRUE(Agrees("training.py"));
}

// The words of every second, in training and with the panels, against tests/reference/chord.py.
TEST_P(TraceSecondOpinion, AgreesOnEveryMidiWord) {
    Trace("panels", "16", {"--midi"});
    for (const char* mode : {"1", "2", "3"})
        Trace(mode, "16", {"--midi", "--mode", mode});
    EXPECT_TRUE(Agrees("chord.py"));
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
