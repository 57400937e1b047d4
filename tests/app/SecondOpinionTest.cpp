#include "app/Commands.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

// The numbers of `analyse` against tests/reference/analyse.py, which shares no code and no library with the
// program.
namespace pulselark {
namespace {

struct Recording {
    const char* Name;
    const char* File; // beside $PULSELARK_DATA; empty: the demo session
    const char* Averaging;
};

class SecondOpinion : public testing::TestWithParam<Recording> {};
INSTANTIATE_TEST_SUITE_P(Sessions, SecondOpinion,
                         testing::Values(Recording{"Demo", "", "0"}, Recording{"DemoAveraged", "", "14"},
                                         Recording{"Rest", "rest_two_channels_899s.hti", "14"},
                                         Recording{"Strap", "chest_strap_one_channel_600s.hti", "0"}),
                         [](const auto& recording) { return recording.param.Name; });

std::string Quoted(const std::filesystem::path& path) {
    return "'" + path.string() + "'";
}

TEST_P(SecondOpinion, AgreesOnEveryNumber) {
    namespace fs = std::filesystem;
    const auto& [title, file, averaging] = GetParam();
    fs::path session = fs::path(PULSELARK_BUILD) / "Sessions" / "demo.hti";
    if (*file != '\0') {
        const char* data = std::getenv("PULSELARK_DATA");
        if (data == nullptr)
            GTEST_SKIP() << "no recordings: PULSELARK_DATA is not set";
        session = fs::path(data) / "sessions" / file;
    }
    ASSERT_TRUE(fs::exists(session)) << session;
    std::string name = (fs::temp_directory_path() / "pulselark-test-XXXXXX").string();
    const fs::path folder = ::mkdtemp(name.data());
    const fs::path ours = folder / "ours.csv", theirs = folder / "theirs.csv";
    const std::string words[] = {session.string(), "--averaging", averaging, "--out", ours.string()};
    ASSERT_EQ(RunAnalyse(words), 0);
    const std::string python = Quoted(PULSELARK_PYTHON) + " ";
    const fs::path reference = fs::path(PULSELARK_SOURCE) / "tests" / "reference";
    EXPECT_EQ(std::system((python + Quoted(reference / "analyse.py") + " " + Quoted(session) +
                           " --averaging " + averaging + " >" + Quoted(theirs))
                              .c_str()),
              0);
    EXPECT_EQ(
        std::system(
            (python + Quoted(reference / "compare.py") + " " + Quoted(theirs) + " " + Quoted(ours)).c_str()),
        0);
    fs::remove_all(folder);
}

class ScanSecondOpinion : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Sessions, ScanSecondOpinion,
                         testing::Values("rest_two_channels_899s.hti", "ectopic_two_channels_1805s.hti",
                                         "hour_two_channels_3601s.hti", "chest_strap_one_channel_600s.hti"));

TEST_P(ScanSecondOpinion, AgreesOnEveryFigure) {
    namespace fs = std::filesystem;
    const char* data = std::getenv("PULSELARK_DATA");
    if (data == nullptr)
        GTEST_SKIP() << "no recordings: PULSELARK_DATA is not set";
    setenv("PULSELARK_HOME", PULSELARK_BUILD, 1);
    const fs::path session = fs::path(data) / "sessions" / GetParam();
    const std::string words[] = {session.string()};
    testing::internal::CaptureStdout();
    const int code = RunScan(words, {});
    const std::string line = testing::internal::GetCapturedStdout();
    ASSERT_EQ(code, 0);
    std::string name = (fs::temp_directory_path() / "pulselark-test-XXXXXX").string();
    const fs::path folder = ::mkdtemp(name.data());
    std::ofstream(folder / "figures.json") << line;
    const fs::path reference = fs::path(PULSELARK_SOURCE) / "tests" / "reference" / "scan.py";
    EXPECT_EQ(std::system((Quoted(PULSELARK_PYTHON) + " -B " + Quoted(reference) + " " + Quoted(session) +
                           " " + Quoted(folder / "figures.json"))
                              .c_str()),
              0);
    fs::remove_all(folder);
}

} // namespace
} // namespace pulselark
