#include "app/Commands.h"

#include "persistence/SessionFile.h"
#include "platform/system/SystemFiles.h"
#include "session/MainBuffers.h"
#include "support/BeatSignal.h"
#include "support/SessionTest.h"
#include "support/Signals.h"

#include <algorithm>
#include <filesystem>
#include <unistd.h>

namespace pulselark {
namespace {

class Commands : public SessionTest {
protected:
    Commands() {
        std::string name = (std::filesystem::temp_directory_path() / "pulselark-test-XXXXXX").string();
        Folder = ::mkdtemp(name.data());
        MakeSession(20);
        ChannelMode = 1;
        ChannelBPresent = On;
        Text = SessionText();
        Write("good.hti", Text);
    }
    ~Commands() override { std::filesystem::remove_all(Folder); }

    using Words = std::vector<std::string>;
    using Command = int (*)(Arguments);

    std::string At(const std::string& name) const { return Folder + "/" + name; }
    void Write(const std::string& name, const std::string& bytes) {
        ASSERT_EQ(Real.ReplaceWhole(At(name), bytes), 0);
    }
    std::string Read(const std::string& name) {
        std::string bytes;
        EXPECT_EQ(Real.ReadWhole(At(name), bytes), 0);
        return bytes;
    }
    // Runs a command; `Error` and `Output` are what it said.
    int Run(Command command, const Words& words) {
        testing::internal::CaptureStderr();
        testing::internal::CaptureStdout();
        const int code = command(words);
        Output = testing::internal::GetCapturedStdout();
        Error = testing::internal::GetCapturedStderr();
        return code;
    }
    bool OneLine() const { return std::count(Error.begin(), Error.end(), '\n') == 1 && Error.back() == '\n'; }

    std::string Folder, Text, Output, Error;
    SystemFiles Real;
};

TEST_F(Commands, AnalyseWritesALineForEachReplayedSecond) {
    ASSERT_EQ(Run(&RunAnalyse, {At("good.hti")}), 0);
    EXPECT_EQ(Error, "");
    EXPECT_TRUE(
        Output.starts_with("second,CoherenceA,CoherenceAvgA,PeakIndexA,SpectrumNormA,HrvLfA,HrvHfA,IbiAvgA,"
                           "CoherenceB,CoherenceAvgB,PeakIndexB,SpectrumNormB,HrvLfB,HrvHfB,IbiAvgB\n"
                           "1,0.0549999997,0.0549999997,"));
    EXPECT_EQ(std::count(Output.begin(), Output.end(), '\n'), 1 + 19);
    EXPECT_EQ(std::count(Output.begin(), Output.end(), ','), 14 * (1 + 19));
    const std::string direct = Output;
    ASSERT_EQ(Run(&RunAnalyse, {"--averaging", "0", At("good.hti"), "--out", At("numbers.csv")}), 0);
    EXPECT_EQ(Output, "");
    EXPECT_EQ(Read("numbers.csv"), direct); // a second run in the same process, too
    ASSERT_EQ(Run(&RunAnalyse, {At("good.hti"), "--averaging", "14"}), 0);
    EXPECT_NE(Output, direct);
}

TEST_F(Commands, ResaveReadsAndWrites) {
    ASSERT_EQ(Run(&RunResave, {At("good.hti"), At("again.hti")}), 0);
    EXPECT_TRUE(Read("again.hti") == Text);
    std::string third = Text; // a mode that is neither 1 nor 2 keeps its channel B
    third[third.find("20\r\n") + 4] = '3';
    Write("third.hti", third);
    ASSERT_EQ(Run(&RunResave, {At("third.hti"), At("third.hti")}), 0);
    EXPECT_TRUE(Read("third.hti") == third);
    ChannelBPresent = Off;
    ChannelMode = 2;
    SessionSeconds = 3;
    const std::string one = SessionText();
    Write("one.hti", one);
    ASSERT_EQ(Run(&RunResave, {At("one.hti"), At("again.hti")}), 0);
    EXPECT_EQ(Read("again.hti"), one);
}

TEST_F(Commands, WrongUsageIsExitTwo) {
    const std::string file = At("good.hti");
    for (const Words& words : std::initializer_list<Words>{{},
                                                           {file, file},
                                                           {file, "--averaging"},
                                                           {file, "--averaging", "x"},
                                                           {file, "--averaging", "-1"},
                                                           {file, "--averaging", "3.5"},
                                                           {file, "--averaging", "99999"},
                                                           {file, "--out"},
                                                           {"--fast", file}}) {
        EXPECT_EQ(Run(&RunAnalyse, words), 2);
        EXPECT_TRUE(OneLine() && Error.find("usage") != std::string::npos) << Error;
        EXPECT_EQ(Output, "");
    }
    for (const Words& words : std::initializer_list<Words>{{}, {file}, {file, file, file}, {"--in", file}})
        EXPECT_EQ(Run(&RunResave, words), 2);
}

TEST_F(Commands, FailuresAreOneLineThatSaysWhatAndWhere) {
    Write("cut.hti", Text.substr(0, Text.size() / 2));
    Write("word.hti", "\"PulseLark\"\r\nmany\r\n");
    const auto lines =
        std::count(Text.begin(), Text.begin() + static_cast<std::ptrdiff_t>(Text.size() / 2), '\n');
    const struct {
        Words Arguments;
        std::vector<std::string> Says;
    } cases[] = {{{At("gone.hti")}, {At("gone.hti"), "not found"}},
                 {{At("word.hti")}, {At("word.hti"), "line 2", "13"}},
                 {{Folder}, {Folder, "75"}},
                 {{At("cut.hti")}, {At("cut.hti"), "line " + std::to_string(lines + 2), "62"}},
                 {{At("good.hti"), "--out", At("gone/x.csv")}, {At("gone/x.csv"), "folder not found"}}};
    for (const auto& c : cases) {
        EXPECT_EQ(Run(&RunAnalyse, c.Arguments), 1);
        EXPECT_TRUE(OneLine()) << Error;
        for (const std::string& part : c.Says)
            EXPECT_NE(Error.find(part), std::string::npos) << Error << " lacks " << part;
        EXPECT_EQ(Output, "");
    }
    EXPECT_EQ(Run(&RunResave, {At("cut.hti"), At("out.hti")}), 1);
    EXPECT_TRUE(OneLine() && Error.find("line " + std::to_string(lines + 2)) != std::string::npos) << Error;
    EXPECT_FALSE(std::filesystem::exists(At("out.hti")));
    EXPECT_EQ(Run(&RunResave, {At("good.hti"), Folder}), 1);
    EXPECT_TRUE(OneLine() && Error.find(Folder) != std::string::npos);
}

TEST_F(Commands, ScanGoesOnAfterAFileThatFails) {
    setenv("PULSELARK_HOME", PULSELARK_BUILD, 1);
    const auto scan = [](Arguments words) { return RunScan(words, {}); };
    MakeSession(271);
    ChannelMode = 2;
    ChannelBPresent = Off;
    Write("one \"1\".hti", SessionText());
    const std::string one = At("one \"1\".hti");
    EXPECT_EQ(Run(+scan, {one, At("gone.hti"), At("good.hti"), one}), 1);
    EXPECT_EQ(std::count(Output.begin(), Output.end(), '\n'), 2);
    EXPECT_EQ(std::count(Error.begin(), Error.end(), '\n'), 2);
    EXPECT_NE(
        Output.find("one \\\"1\\\".hti\",\"SessionSeconds\":271,\"ChannelMode\":2,\"A\":{\"ScanPower1\":"),
        std::string::npos);
    EXPECT_EQ(Output.find("\"B\":"), std::string::npos);
    EXPECT_EQ(Run(+scan, {At("good.hti")}), 3); // 20 seconds
    EXPECT_TRUE(OneLine() && Error.find("270 seconds") != std::string::npos) << Error;
    EXPECT_EQ(Output, "");
    EXPECT_EQ(Run(+scan, {one, "--channel", "B"}), 1);
    EXPECT_EQ(Run(+scan, {one, "--plx", At("one.plx")}), 0);
    EXPECT_TRUE(Read("one.plx").starts_with("\"PulseLark Scan\"\r\n271\r\n2\r\n"));
    EXPECT_EQ(Run(+scan, {one, "--training", "--plx", At("one.plx")}), 0);
    EXPECT_TRUE(Read("one.plx").starts_with("\"PulseLark GGZ Scan\"\r\n271\r\n"));
    for (const Words& words : std::initializer_list<Words>{{},
                                                           {one, one, "--plx", At("x.plx")},
                                                           {one, "--channel", "C"},
                                                           {one, "--language", "31"},
                                                           {one, "--smoothing", "17"},
                                                           {one, "--plx"}})
        EXPECT_EQ(Run(+scan, words), 2);
}

TEST_F(Commands, BeatsOfASessionAndOfARecordAreOneLineEach) {
    const auto samples = SignalWithBeats(SteadyBeats(0.5, 0.75, 20), 20);
    std::copy(samples.begin(), samples.end(), EcgA.begin());
    Write("beats.hti", SessionText());
    ASSERT_EQ(Run(&RunBeats, {At("beats.hti"), "--channel", "A"}), 0);
    EXPECT_EQ(std::count(Output.begin(), Output.end(), '\n'), 26);
    EXPECT_NE(Output.find("\n2.0000\t0.7500\t0.7500\tN\n"), std::string::npos) << Output;

    std::string bytes;
    for (const float sample : samples) {
        const auto word = static_cast<std::uint16_t>(static_cast<std::int16_t>(sample));
        bytes += {static_cast<char>(word & 0xFFU), static_cast<char>(word >> 8U)};
    }
    Write("r.dat", bytes);
    Write("r.hea", "r 1 128\nr.dat 16 500\n");
    ASSERT_EQ(Run(&RunBeats, {At("r.hea")}), 0);
    EXPECT_EQ(std::count(Output.begin(), Output.end(), '\n'), 26);
    EXPECT_EQ(Run(&RunBeats, {At("r.hea"), "--channel", "B"}), 1);
    EXPECT_TRUE(OneLine());
    EXPECT_EQ(Run(&RunBeats, {At("none.hti")}), 1);
    EXPECT_EQ(Run(&RunBeats, {At("r.hea"), "--channel", "C"}), 2);
}

} // namespace
} // namespace pulselark
