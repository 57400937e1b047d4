#include "persistence/AppSettings.h"

#include "analysis/CoherencePanel.h"
#include "analysis/ColourSchemes.h"
#include "analysis/GCoherence.h"
#include "analysis/History.h"
#include "analysis/HrvPanel.h"
#include "analysis/SpectrumPanel.h"
#include "persistence/TrainingSettings.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/Settings.h"
#include "support/SessionTest.h"
#include "support/TextLines.h"

#include <cmath>

namespace pulselark {
namespace {

// As another program writes them; no value is the default, but where a default is all there is.
const std::vector<std::string> AppLines =
    SplitLines(R"("any header"|120|340|0|999|#FALSE#|#FALSE#|#FALSE#|#FALSE#|#TRUE#|#FALSE#|#TRUE#|)"
               R"(#FALSE#|#FALSE#|#FALSE#|#TRUE#|#TRUE#|7|#TRUE#|70000|0|0|0|#TRUE#|0|0|0|1|4|#FALSE#|40|)"
               R"(63.25|398|1500.5|.5E+2|364|#TRUE#|#FALSE#|#FALSE#|#FALSE#|#FALSE#|3|#FALSE#|275|#TRUE#|)"
               R"(4|#TRUE#|#FALSE#|#FALSE#|"Größe ♥ "2""|12|0|0)");
const std::vector<std::string> TrainingLines =
    SplitLines(R"(5.5|61|#TRUE#|#TRUE#|85|0|#TRUE#|#TRUE#|"a.mp3"|"b, c.ogg"|""|"ü"|"e"|"f"|#TRUE#|0|)"
               R"(#TRUE#|2|1.618033988749895|0)");

class OmsFiles : public SessionTest {
protected:
    std::string& App() { return Outside.Disk.Content["config/app.oms"]; }
    std::string& Training() { return Outside.Disk.Content["config/app_ggz.oms"]; }
    FileOutcome ReadApp(std::size_t line, const std::string& value) {
        auto lines = AppLines;
        lines.at(line - 1) = value;
        return ReadAppSettingsText(FileOf(lines, 53));
    }
    FileOutcome ReadTraining(std::size_t line, const std::string& value) {
        auto lines = TrainingLines;
        lines.at(line - 1) = value;
        return ReadTrainingSettingsText(FileOf(lines, 20));
    }
    // What the user was told since the last call: nothing, or the one message that a failure has.
    Integer Told(const std::string& lead) {
        const auto shown = std::exchange(Outside.Boxes.Shown, {});
        if (shown.empty())
            return 0;
        EXPECT_EQ(shown.size(), 1U);
        EXPECT_TRUE(shown[0].Text.starts_with(lead)) << shown[0].Text;
        EXPECT_EQ(shown[0].Buttons, ButtonOK);
        EXPECT_EQ(labStatus.Caption, "<139>");
        return static_cast<Integer>(std::stoi(shown[0].Text.substr(lead.size())));
    }
    static void ExpectDefaults() {
        EXPECT_EQ(SpectrumDepth, 10); // 19 / 2
        EXPECT_EQ(SpectrumStep, 4568);
        EXPECT_EQ(MovingAverageWidth, 14); // 29 / 2, ties to even
        EXPECT_EQ(CoherenceDepthKnob * 10000 + CoherenceStepKnob, 5001000);
        EXPECT_EQ(ChannelMode, 2);
        EXPECT_EQ(LanguageIndex + ColourSchemeIndex, 0);
        EXPECT_EQ(SpectrumGain + CoherenceGain + HrvGain + HistoryGain, 400);
        EXPECT_EQ(SpectrumMaxHz + HistorySpanSeconds + HistoryStyle, 64 + 60 + 3);
        EXPECT_EQ(MonitorName, "Select your ECG monitor");
        EXPECT_EQ(SerialPort, 1);
        EXPECT_EQ(AllowMultiSessions | LockPanels | SolidFillGraph | OctaveInFront | TrainingActive, Off);
        EXPECT_EQ(ShowAboutAtStart & AutoLoadPrevConfig & AutoScaleAll & ShowBackground & InsertSeparator &
                      LockScreens & ShowGoldenRatio & ShowOctaveRatio & AutoEndSession & ShowBpmCoherence &
                      QsShowBpm & SolidGraphs,
                  On);
    }
    static bool InRange(double value, double least, double most) { return value >= least && value <= most; }
    static bool AllInRange() {
        return InRange(SpectrumDepth, 0, 19) && InRange(CoherenceDepth, 0, 19) &&
               InRange(SpectrumStep, 375, 4568) && InRange(CoherenceStep, 0.0012, 0.0147) &&
               InRange(MovingAverageWidth, 0, 29) && InRange(HistoryStyle, 1, 9) &&
               InRange(ChannelMode, 1, 3) && InRange(LanguageIndex, 0, 30) &&
               InRange(SpectrumMaxHz, 10, 64) && InRange(SpectrumGain, 39, 1585) &&
               InRange(CoherenceGain, 50, 399) && InRange(HrvGain, 100, 1585) &&
               InRange(HistoryGain, 50, 399) && InRange(HistorySpanSeconds, 10, 364) &&
               InRange(ColourSchemeIndex, 0, 4) && InRange(BreathingRate, 2, 60) &&
               InRange(DynamicIndexInterval, 4, 61) && InRange(AdjustVolume, 0, 100) &&
               InRange(PanelBackground, 0, 2) && InRange(BreathingBalance, 1, 10);
    }
};

TEST_F(OmsFiles, AForeignFileIsTakenLineByLineAndWrittenBack) {
    App() = FileOf(AppLines, 53);
    LoadAppSettings();
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
    EXPECT_EQ(SpectrumDepthKnob, 120);
    EXPECT_EQ(SpectrumStepKnob, 340);
    EXPECT_EQ(CoherenceDepthKnob, 0);
    EXPECT_EQ(CoherenceStepKnob, 999);
    EXPECT_EQ(SpectrumDepth, 2);  // 19 * 0.12 = 2.28
    EXPECT_EQ(SpectrumStep, 877); // 375 * e^0.85 = 877.4
    EXPECT_EQ(CoherenceDepth, 0);
    EXPECT_NEAR(CoherenceStep, 0.014582, 1e-6); // 0.0012 * e^2.4975
    EXPECT_EQ(MovingAverageWidth, 8);           // 29 * 0.275 = 7.975
    EXPECT_EQ(HistoryStyle, 7);
    EXPECT_EQ(ChannelMode, 1);
    EXPECT_EQ(LanguageIndex, 4);
    EXPECT_EQ(SpectrumMaxHz, 40);
    EXPECT_EQ(SpectrumGain, 63.25);
    EXPECT_EQ(CoherenceGain, 398);
    EXPECT_EQ(HrvGain, 1500.5);
    EXPECT_NEAR(HistoryGain, 50.1187, 1e-4); // 50 is below 100^0.85
    EXPECT_EQ(HistorySpanSeconds, 364);
    EXPECT_EQ(QsSmoothingChannel, 3);
    EXPECT_EQ(ColourSchemeIndex, 4);
    EXPECT_EQ(TrainingActive, On);
    EXPECT_EQ(MonitorName, "Größe ♥ \"2\"");
    EXPECT_EQ(SerialPort, 12);
    SaveAppSettings();
    auto expected = AppLines;
    expected[0] = "\"PulseLark\"";
    expected[19] = "0";
    expected[34] = LinesOf(App()).at(34); // the gain that was held
    EXPECT_EQ(LinesOf(App()), expected);
    EXPECT_NEAR(std::stod(expected[34]), std::pow(100, 0.85), 1e-12);
}

// One flag after the other is on, and no other variable follows it.
TEST_F(OmsFiles, EveryFlagHasItsLine) {
    const std::pair<std::size_t, Boolean*> flags[] = {
        {6, &ShowAboutAtStart},    {7, &AutoLoadPrevConfig}, {8, &AutoScaleAll},     {9, &ShowBackground},
        {10, &AllowMultiSessions}, {11, &InsertSeparator},   {12, &LockPanels},      {13, &LockScreens},
        {14, &ShowGoldenRatio},    {15, &ShowOctaveRatio},   {16, &SolidFillGraph},  {17, &OctaveInFront},
        {19, &SnapPanels},         {24, &ShortcutDone},      {30, &AutoEndSession},  {37, &SpectrumPerHz},
        {38, &QsShowPie},          {39, &QsShowBands},       {40, &QsShowReference}, {41, &ShowBpmCoherence},
        {43, &QsShowBpm},          {45, &MidiInPanels},      {47, &TrainingActive},  {48, &SolidGraphs},
        {49, &ShowHrvPower}};
    for (const auto& flag : flags) {
        auto lines = AppLines;
        for (std::string& line : lines)
            line = line.starts_with('#') ? "#FALSE#" : line;
        lines.at(flag.first - 1) = "#TRUE#";
        ASSERT_EQ(ReadAppSettingsText(FileOf(lines, 53)).Number, 0);
        for (const auto& [line, value] : flags)
            EXPECT_EQ(*value, line == flag.first ? On : Off) << flag.first << " " << line;
        EXPECT_EQ(LinesOf(AppSettingsText()).at(flag.first - 1), "#TRUE#");
    }
    const std::pair<std::size_t, Boolean*> trainingFlags[] = {
        {3, &AutoStartBreathing}, {4, &AutoPlayMusic},      {7, &AlwaysFirstSong},
        {8, &AutoRepeat},         {15, &TrainingPanelOpen}, {17, &MidiInTraining}};
    for (const auto& flag : trainingFlags) {
        ASSERT_EQ(ReadTrainingSettingsText(FileOf(TrainingLines, 20)).Number, 0);
        ASSERT_EQ(ReadTraining(flag.first, "#FALSE#").Number, 0);
        for (const auto& [line, value] : trainingFlags)
            EXPECT_EQ(*value, line == flag.first ? Off : On) << flag.first << " " << line;
    }
}

TEST_F(OmsFiles, TheTrainingsFileIsTakenLineByLineAndWrittenBack) {
    Training() = FileOf(TrainingLines, 20);
    LoadTrainingSettings();
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
    EXPECT_EQ(BreathingRate, 5.5);
    EXPECT_EQ(BreathingBalance, (1 + std::sqrt(5.0)) / 2);
    EXPECT_EQ(DynamicIndexInterval, 61);
    EXPECT_EQ(AdjustVolume, 85);
    EXPECT_EQ(PanelBackground, 2);
    EXPECT_EQ(std::vector<std::string>(PlayList.begin(), PlayList.begin() + 6),
              (std::vector<std::string>{"a.mp3", "b, c.ogg", "", "ü", "e", "f"}));
    const std::string before = Training();
    SaveTrainingSettings();
    EXPECT_EQ(Training(), before);
}

// Every text form that another writer may choose, to the same values.
TEST_F(OmsFiles, LineEndsBlanksAndBareTextsMakeNoDifference) {
    ASSERT_EQ(ReadAppSettingsText(FileOf(AppLines, 53)).Number, 0);
    const std::string settings = AppSettingsText();
    auto loose = AppLines;
    for (std::string& line : loose)
        line.insert(0, "  ").append("\t ");
    loose[5] = "#false#";
    loose[49] = "Größe ♥ \"2\"";
    SetDefaultSettings();
    ASSERT_EQ(ReadAppSettingsText("\xEF\xBB\xBF" + FileOf(loose, 51, "\n")).Number, 0);
    EXPECT_EQ(AppSettingsText(), settings);
}

TEST_F(OmsFiles, GainsComeBackToTheLastDigit) {
    for (const double scale : {100.1, 101.7, 111.3, 123.4567, 130.0}) {
        SpectrumGain = CoherenceGain = HrvGain = HistoryGain = std::pow(100, scale / 100);
        const std::string text = AppSettingsText();
        SetDefaultSettings();
        ASSERT_EQ(ReadAppSettingsText(text).Number, 0);
        for (const double gain : {SpectrumGain, CoherenceGain, HrvGain, HistoryGain})
            EXPECT_EQ(gain, std::pow(100, scale / 100));
    }
}

TEST_F(OmsFiles, AFileThatEndsAtLine30GivesTheDefaults) {
    App() = FileOf(AppLines, 30);
    LoadAppSettings();
    EXPECT_EQ(Outside.Boxes.Shown, (std::vector<FakeMessages::Message>{
                                       {"<177>62\n\n<289>\nconfig/app.oms, <273> 31\n\n<298>", ButtonOK}}));
    EXPECT_EQ(labStatus.Caption, "<139>");
    ExpectDefaults();
    EXPECT_EQ(SnapPanels & ShortcutDone, On); // these two have no default and were read
}

TEST_F(OmsFiles, MissingFilesAreToldOnce) {
    const std::vector<FakeMessages::Message> told{{"<167>", ButtonOK}};
    ASSERT_EQ(ReadAppSettingsText(FileOf(AppLines, 51)).Number, 0);
    ASSERT_EQ(ReadTrainingSettingsText(FileOf(TrainingLines, 20)).Number, 0);
    LoadAppSettings();
    LoadTrainingSettings();
    EXPECT_EQ(Outside.Boxes.Shown, told);
    ExpectDefaults();
    EXPECT_EQ(BreathingRate, 7.5);
    EXPECT_EQ(BreathingBalance, 1);
    EXPECT_EQ(DynamicIndexInterval, 16);

    Outside.Boxes.Shown.clear();
    App() = FileOf(AppLines, 51);
    LoadAppSettings();
    LoadTrainingSettings();
    EXPECT_EQ(Outside.Boxes.Shown, told);
    EXPECT_EQ(SerialPort, 12); // the main program's settings stay
    EXPECT_EQ(labStatus.Caption, "<139>");
}

TEST_F(OmsFiles, AFileThatCannotBeReadIsToldWithItsNumber) {
    App() = FileOf(AppLines, 53);
    for (const Integer failure : {Integer{57}, Integer{70}, Integer{75}}) {
        Outside.Disk.ReadFailure = failure;
        LoadAppSettings();
        EXPECT_EQ(Told("<177>"), failure);
        LoadTrainingSettings();
        EXPECT_EQ(Told("<178>"), failure);
    }
    ExpectDefaults();
}

// Cut after every byte: what is missing is told, and either the whole file counts or the defaults do.
TEST_F(OmsFiles, CutFilesGiveTheDefaults) {
    const std::string whole = FileOf(AppLines, 53);
    const std::size_t enough = FileOf(AppLines, 50).size() + 1; // a digit of line 51
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        SCOPED_TRACE(size);
        App() = whole.substr(0, size);
        LoadAppSettings();
        const Integer told = Told("<177>");
        ASSERT_EQ(told == 0, size >= enough);
        EXPECT_TRUE(AllInRange());
        if (told != 0) {
            EXPECT_TRUE(told == 62 || told == 13) << told;
            ExpectDefaults();
        }
    }
    for (std::size_t lines = 0; lines < 51; ++lines) {
        const FileOutcome outcome = ReadAppSettingsText(FileOf(AppLines, lines));
        EXPECT_EQ(outcome.Number, 62);
        EXPECT_EQ(outcome.Line, static_cast<Long>(lines + 1));
    }
    App() = FileOf(AppLines, 53);
    const std::string training = FileOf(TrainingLines, 20);
    for (std::size_t size = 0; size < training.size() - 2; ++size) {
        SCOPED_TRACE(size);
        Training() = training.substr(0, size);
        LoadTrainingSettings();
        const Integer told = Told("<178>");
        EXPECT_TRUE(told == 62 || told == 13) << told;
        EXPECT_EQ(BreathingRate + DynamicIndexInterval, 23.5);
        EXPECT_TRUE(AllInRange());
    }
}

// There are no keys: lines of one kind change places unseen, others are text where a number belongs.
TEST_F(OmsFiles, SwappedLinesAreFoundByTheirKindOnly) {
    for (std::size_t i = 0; i < 51; ++i)
        for (std::size_t k = i + 1; k < 51; ++k) {
            auto lines = AppLines;
            lines[19] = "0";
            std::swap(lines[i], lines[k]);
            const bool same = KindOf(lines[i]) == KindOf(lines[k]);
            ASSERT_EQ(ReadAppSettingsText(FileOf(lines, 53)).Number, same ? 0 : 13) << i << " " << k;
            ASSERT_TRUE(AllInRange()) << i << " " << k;
        }
    for (std::size_t i = 0; i < 20; ++i)
        for (std::size_t k = i + 1; k < 20; ++k) {
            auto lines = TrainingLines;
            std::swap(lines[i], lines[k]);
            const bool same = KindOf(lines[i]) == KindOf(lines[k]);
            ASSERT_EQ(ReadTrainingSettingsText(FileOf(lines, 20)).Number, same ? 0 : 13) << i << " " << k;
            ASSERT_TRUE(AllInRange()) << i << " " << k;
        }
}

TEST_F(OmsFiles, AnyByteMayBeDamaged) {
    App() = FileOf(AppLines, 53);
    Training() = FileOf(TrainingLines, 20);
    int failures = 0;
    for (const char byte : {'x', '"', '#', '-', '9', '.', 'e', '\n', '\0', '\xFF'})
        for (const auto& [file, load, lead] :
             {std::tuple{&App(), &LoadAppSettings, "<177>"}, {&Training(), &LoadTrainingSettings, "<178>"}})
            for (char& damaged : *file) {
                const char whole = std::exchange(damaged, byte);
                load();
                const Integer told = Told(lead);
                ASSERT_TRUE(told == 0 || told == 6 || told == 13 || told == 62) << told << "\n" << *file;
                ASSERT_TRUE(AllInRange()) << *file;
                if (told != 0 && file == &App())
                    ExpectDefaults();
                failures += told != 0 ? 1 : 0;
                damaged = whole;
            }
    EXPECT_GT(failures, 1000);
    LoadAppSettings();
    LoadTrainingSettings();
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
}

TEST_F(OmsFiles, ValuesAreHeldToTheirRanges) {
    const struct {
        std::size_t Line;
        Integer& Value;
        Integer Least, Most;
    } wholes[] = {
        {2, SpectrumDepthKnob, 0, 1000},   {5, CoherenceStepKnob, 0, 1000},  {18, HistoryStyle, 1, 9},
        {28, ChannelMode, 1, 3},           {29, LanguageIndex, 0, 30},       {31, SpectrumMaxHz, 10, 64},
        {36, HistorySpanSeconds, 10, 364}, {44, MovingAverageKnob, 0, 1000}, {46, ColourSchemeIndex, 0, 4}};
    for (const auto& [line, value, least, most] : wholes) {
        for (const auto& [text, held] : {std::pair{"-32768", least}, {"32767", most}}) {
            EXPECT_EQ(ReadApp(line, text).Number, 0);
            EXPECT_EQ(value, held) << line;
        }
        EXPECT_EQ(ReadApp(line, "32768").Number, 6) << line;
        EXPECT_EQ(ReadApp(line, "-32769").Number, 6) << line;
        EXPECT_EQ(ReadApp(line, "#TRUE#").Number, 13) << line;
        EXPECT_EQ(ReadApp(line, "").Line, static_cast<Long>(line));
    }
    const struct {
        std::size_t Line;
        double& Value;
        double Least, Most;
    } gains[] = {{32, SpectrumGain, 0.8, 1.6},
                 {33, CoherenceGain, 0.85, 1.3},
                 {34, HrvGain, 1, 1.6},
                 {35, HistoryGain, 0.85, 1.3}};
    for (const auto& [line, value, least, most] : gains) {
        EXPECT_EQ(ReadApp(line, "-1e300").Number + ReadApp(line, "0").Number, 0);
        EXPECT_NEAR(value, std::pow(100, least), 1e-9) << line;
        EXPECT_EQ(ReadApp(line, "1e300").Number, 0);
        EXPECT_NEAR(value, std::pow(100, most), 1e-9) << line;
        EXPECT_EQ(ReadApp(line, "1e999").Number, 6);
        EXPECT_EQ(ReadApp(line, "nan").Number, 13);
    }
    EXPECT_EQ(ReadTraining(2, "62").Number, 0);
    EXPECT_EQ(DynamicIndexInterval, 61);
    EXPECT_EQ(ReadTraining(2, "3").Number, 0);
    EXPECT_EQ(DynamicIndexInterval, 4);
    EXPECT_EQ(ReadTraining(5, "101").Number + ReadTraining(18, "3").Number, 0);
    EXPECT_EQ(AdjustVolume * 10 + PanelBackground, 852); // the last reading brought line 5 back
    EXPECT_EQ(ReadTraining(1, "0").Number + ReadTraining(19, "0.5").Number, 0);
    EXPECT_EQ(BreathingBalance, 1);
}

TEST_F(OmsFiles, AFailedSaveIsToldAndTheOldFilesStay) {
    App() = Training() = "old";
    Outside.Disk.DiskSize = 60; // the disk ends within both
    SaveAppSettings();
    EXPECT_EQ(Told("<163>_3 "), 61);
    SaveTrainingSettings();
    EXPECT_EQ(Told("<163>_4 "), 61);
    EXPECT_EQ(App() + Training(), "oldold");
}

TEST_F(OmsFiles, ThePresetChangesItsOwnSettingsOnly) {
    ASSERT_EQ(ReadAppSettingsText(FileOf(AppLines, 53)).Number, 0);
    MovingAverageKnob = 1000;
    AutoEndSession = On;
    SetPresetSettings();
    EXPECT_EQ(SpectrumDepth + CoherenceDepth, 2); // 19 * 0.052 = 0.988
    EXPECT_EQ(MovingAverageWidth, 8);
    EXPECT_EQ(LockPanels & LockScreens & AutoLoadPrevConfig & ShowBackground & InsertSeparator &
                  ShowBpmCoherence & QsShowBpm,
              On);
    EXPECT_EQ(AutoEndSession | AllowMultiSessions | SolidFillGraph, Off);
    EXPECT_EQ(HistoryStyle, 3);
    EXPECT_EQ(ColourSchemeIndex + SerialPort + LanguageIndex, 20);
    EXPECT_EQ(OctaveInFront, On);
}

} // namespace
} // namespace pulselark
