#include "app/Commands.h"
#include "persistence/SessionFile.h"
#include "platform/monitors/StandardMonitors.h"
#include "platform/system/SystemFiles.h"
#include "session/MainBuffers.h"
#include "support/SessionTest.h"
#include "support/Signals.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <filesystem>
#include <utility>
#include <vector>

namespace pulselark {
namespace {

namespace fs = std::filesystem;

std::string folderThatGoes; // once the monitor opens

// "Replay file" plays five seconds of nothing much.
bool FiveSeconds(const std::string& /*file*/, LiveRecord& record) {
    if (!folderThatGoes.empty())
        fs::remove_all(folderThatGoes);
    record.Channels.assign(1, std::vector<float>(5 * SamplesPerSecond + 1, 3.0F));
    return true;
}

void AddMonitors(SystemMonitors& monitors, const MonitorSurroundings& around) {
    AddStandardMonitors(
        monitors, {around.Clock, around.Words, &FiveSeconds, around.SerialPort, around.TellPortRefused});
}

class RecordCommand : public SessionTest {
protected:
    using Words = std::vector<std::string>;

    RecordCommand() {
        folderThatGoes.clear();
        fs::create_directories(At("home"));
        fs::create_directories(At("out"));
        fs::copy(fs::path(PULSELARK_BUILD) / "config", At("home/config"));
        setenv("PULSELARK_HOME", At("home").c_str(), 1);
    }
    std::string At(const std::string& name) const { return Folder.Name() + "/" + name; }
    int Record(const Words& more, const std::string& monitor = "Simulated ECG") {
        Words words{"--monitor", monitor, "--seconds", "5", "--out", At("out/x.hti"), "--fast"};
        words.insert(words.end(), more.begin(), more.end());
        return Run([&] { return RunRecord(words, {&AddMonitors, nullptr}); });
    }
    template <class Command>
    int Run(const Command& command) {
        testing::internal::CaptureStderr();
        testing::internal::CaptureStdout();
        const int code = command();
        Output = testing::internal::GetCapturedStdout();
        Error = testing::internal::GetCapturedStderr();
        return code;
    }
    bool Nothing(const char* folder) const { return fs::is_empty(At(folder)); }

    TemporaryFolder Folder;
    std::string Output, Error;
};

TEST_F(RecordCommand, RefusesWhatItCannotDoBeforeItRecords) {
    const std::pair<Words, const char*> cases[] = {
        {{"--option", "rate=10"}, "rate=10: rate is a whole number from 30 to 200"},
        {{"--option", "channels=3"}, "channels is one of 1, 2"},
        {{"--option", "speed=9600"}, "seed"},
        {{"--seconds", "3602"}, "1 to 3601"},
        {{"--seconds", "1.5"}, "--seconds 1.5"},
        {{"--slow"}, "--slow"},
        {{"--monitor", "Vilistus"}, "--fast: Vilistus"},
        {{"--monitor", "other"}, "\"Replay file\""},
    };
    for (const auto& [words, says] : cases) {
        EXPECT_EQ(Record(words), ExitUsage);
        EXPECT_NE(Error.find(says), std::string::npos) << Error;
        EXPECT_EQ(std::count(Error.begin(), Error.end(), '\n'), 1) << Error;
    }
    for (const std::string& out : {At("none/x.hti"), At("out"), At("out/x/")}) {
        EXPECT_EQ(Record({"--out", out}), ExitFailure);
        EXPECT_NE(Error.find(out), std::string::npos) << Error;
    }
    EXPECT_TRUE(Nothing("out"));
    EXPECT_TRUE(Nothing("home/Sessions"));
    EXPECT_EQ(Record({}), ExitSuccess) << Error;
    EXPECT_TRUE(fs::exists(At("out/x.hti")));
    EXPECT_TRUE(Nothing("home/Sessions"));
}

TEST_F(RecordCommand, AnOutputThatCannotBeWrittenAtTheEndLeavesTheRecording) {
    folderThatGoes = At("out");
    EXPECT_EQ(Record({"--option", "file=x"}, "Replay file"), ExitFailure);
    EXPECT_NE(Error.find("pulselark recover"), std::string::npos) << Error;
    fs::create_directories(At("out"));
    const Words words{"--out", At("out/y.hti")};
    EXPECT_EQ(Run([&] { return RunRecover(words); }), ExitSuccess) << Error;
    EXPECT_EQ(Output, At("out/y.hti") + ": 5 seconds\n");
    EXPECT_TRUE(Nothing("home/Sessions"));

    // Without a journal, too: it then goes where sessions are, or to the system's folder for what is
    // temporary.
    fs::remove_all(At("home/Sessions"));
    setenv("TMPDIR", At("home").c_str(), 1);
    fs::create_symlink("/dev/null", At("home/Sessions"));
    EXPECT_EQ(Record({"--option", "file=x"}, "Replay file"), ExitFailure);
    unsetenv("TMPDIR");
    const std::size_t name = Error.find(At("home/recording-"));
    ASSERT_NE(name, std::string::npos) << Error;
    std::string bytes;
    EXPECT_EQ(SystemFiles().ReadWhole(Error.substr(name, Error.find('\n', name) - name), bytes), 0);
    EXPECT_TRUE(bytes.starts_with("\"PulseLark\"\r\n5\r\n"));
}

} // namespace
} // namespace pulselark
