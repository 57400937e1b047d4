#include "persistence/Configuration.h"

#include "persistence/ConfigFile.h"
#include "platform/ProgramFolder.h"
#include "platform/system/SystemFiles.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/ModulePanels.h"
#include "support/SessionTest.h"
#include "support/TextLines.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace pulselark {
namespace {

// Seven panels and the window, every value another one.
const std::vector<std::string> HtcLines =
    SplitLines(R"(10|20|3000|4000|#TRUE#|1|1|11.5|21|3001|4001|#FALSE#|2|0|12|22|3002|4002|#TRUE#|3|1|-13|)"
               R"(23|3003|4003|#FALSE#|4|0|14|24|3004|4004|#TRUE#|5|1|15|.25|3005|4005|#TRUE#|6|0|16|26|)"
               R"(3006|4006|#FALSE#|7|-1|150|300|9000|12000.5|#FALSE#|80|90)");

class Configurations : public SessionTest {
protected:
    Configurations() {
        PanelPlaces = picModule;
        Canvas = frmCanvas;
    }
    std::string& File(const std::string& name) { return Outside.Disk.Content["config/" + name]; }
    std::string& Previous() { return File("prevConfig.htc"); }
    Integer Told(const std::string& lead) {
        const auto shown = std::exchange(Outside.Boxes.Shown, {});
        if (shown.empty())
            return 0;
        EXPECT_EQ(shown.size(), 1U);
        EXPECT_TRUE(shown[0].Text.starts_with(lead)) << shown[0].Text;
        EXPECT_EQ(labStatus.Caption, "<139>");
        return static_cast<Integer>(std::stoi(shown[0].Text.substr(lead.size())));
    }
    bool BuiltIn() const { return picModule == PanelPlaces && frmCanvas == Canvas; }

    std::array<PanelPlace, ModulePanelCount> PanelPlaces;
    PanelPlace Canvas;
};

TEST_F(Configurations, AForeignFileIsTakenLineByLineAndWrittenBack) {
    Previous() = FileOf(HtcLines, 56);
    LoadConfig(-2);
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
    EXPECT_EQ(picModule[0], (PanelPlace{10, 20, 4000, 3000, On}));
    EXPECT_EQ(picModule[1], (PanelPlace{11.5F, 21, 4001, 3001, Off}));
    EXPECT_EQ(picModule[3], (PanelPlace{-13, 23, 4003, 3003, Off}));
    EXPECT_EQ(picModule[5], (PanelPlace{15, 0.25F, 4005, 3005, On}));
    EXPECT_EQ(picModule[6].Visible, Off);
    EXPECT_EQ(PanelStyle, (std::array<Integer, 11>{1, 2, 3, 4, 5, 6, 7, 0, 0, 0, 80}));
    EXPECT_EQ(PanelOnCanvas, (std::array<Integer, 11>{1, 0, 1, 0, 1, 0, -1, 0, 0, 0, 90}));
    // The window's record places the overlay.
    EXPECT_EQ(frmScale, (PanelPlace{150, 300, 12000.5F, 9000, Off}));
    EXPECT_EQ(frmCanvas, Canvas);

    frmCanvas = {1, 2, 3, 4, On};
    SaveConfig(-2);
    auto expected = HtcLines;
    const std::vector<std::string> window{"1", "2", "4", "3", "#TRUE#", "80", "90"};
    std::copy(window.begin(), window.end(), expected.begin() + 49);
    EXPECT_EQ(LinesOf(Previous()), expected);
    EXPECT_EQ(fileList, std::vector<std::string>{"prevConfig.htc"});
}

TEST_F(Configurations, ThePanelsAreDrawnForTheirNewPlaces) {
    Previous() = FileOf(HtcLines, 56);
    labNoSession.Caption.clear();
    LoadConfig(-2);
    EXPECT_EQ(labNoSession.Caption, "<275>"); // set by the panels' layout
}

TEST_F(Configurations, WithoutItsLastTwoLinesAFileMovesEveryPanelAndFails) {
    const FileOutcome outcome = ReadConfigText(FileOf(HtcLines, 54));
    EXPECT_EQ(outcome.Number, 62);
    EXPECT_EQ(outcome.Line, 55);
    EXPECT_EQ(picModule[6].Left, 16);
    EXPECT_EQ(PanelStyle[6], 7);
    EXPECT_EQ(PanelStyle[10], 0);
    Previous() = FileOf(HtcLines, 54);
    LoadConfig(-2);
    EXPECT_EQ(Outside.Boxes.Shown,
              (std::vector<FakeMessages::Message>{
                  {"<169>62\n\n<289>\nconfig/prevConfig.htc, <273> 55\n\n<299>", ButtonOK}}));
    EXPECT_EQ(labStatus.Caption, "<139>");
    EXPECT_TRUE(BuiltIn());
    EXPECT_EQ(frmScale.Width, 12000.5F); // no part of the built-in layout
}

TEST_F(Configurations, TheWindowsVisibilityMayBeAnything) {
    for (const char* value : {"#TRUE#", "17", "\"text\"", "1e99", "-", ""}) {
        auto lines = HtcLines;
        lines[53] = value;
        PanelStyle[10] = 0;
        EXPECT_EQ(ReadConfigText(FileOf(lines, 56)).Number, 0) << value;
        EXPECT_EQ(PanelStyle[10], 80) << value;
        EXPECT_EQ(frmScale.Visible, Off);
        EXPECT_EQ(ReadConfigPreview(FileOf(lines, 56)).Number, 0) << value;
    }
}

TEST_F(Configurations, AMissingFileHasATextOfItsOwn) {
    picModule[0].Left = 77;
    LoadConfig(-2);
    LoadConfig(-3);
    const FakeMessages::Message told{"<168>", ButtonOK};
    EXPECT_EQ(Outside.Boxes.Shown, (std::vector{told, told}));
    EXPECT_EQ(labStatus.Caption, "<139>");
    EXPECT_TRUE(BuiltIn());
}

TEST_F(Configurations, CutFilesFallBackToTheBuiltInLayout) {
    const std::string whole = FileOf(HtcLines, 56);
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        SCOPED_TRACE(size);
        Previous() = whole.substr(0, size);
        LoadConfig(-2);
        const Integer told = Told("<169>");
        ASSERT_EQ(told == 0, size >= whole.size() - 3); // a digit of the last line
        EXPECT_TRUE(told == 0 || told == 13 || told == 62) << told;
        EXPECT_EQ(BuiltIn(), told != 0);
    }
    for (std::size_t lines = 0; lines < 56; ++lines) {
        const FileOutcome outcome = ReadConfigText(FileOf(HtcLines, lines));
        EXPECT_EQ(outcome.Number, 62);
        EXPECT_EQ(outcome.Line, static_cast<Long>(lines + 1));
    }
}

TEST_F(Configurations, SwappedLinesAreFoundByTheirKindOnly) {
    for (std::size_t i = 0; i < 56; ++i)
        for (std::size_t k = i + 1; k < 56; ++k) {
            auto lines = HtcLines;
            std::swap(lines[i], lines[k]);
            // The window's visibility takes any line, and gives a word that only its own kind takes.
            const bool same = KindOf(lines[i]) == KindOf(lines[k]);
            const FileOutcome outcome = ReadConfigText(FileOf(lines, 56));
            ASSERT_EQ(outcome.Number, same ? 0 : 13) << i << " " << k;
        }
}

TEST_F(Configurations, AnyByteMayBeDamaged) {
    Previous() = FileOf(HtcLines, 56);
    RefreshConfigList();
    int failures = 0;
    for (const char byte : {'x', '"', '#', '-', '9', '.', 'e', '\n', '\0', '\xFF'})
        for (char& damaged : Previous()) {
            const char whole = std::exchange(damaged, byte);
            LoadConfig(-2);
            const Integer told = Told("<169>");
            ASSERT_TRUE(told == 0 || told == 6 || told == 13 || told == 62) << told << "\n" << Previous();
            ASSERT_EQ(BuiltIn(), told != 0) << Previous();
            failures += told != 0 ? 1 : 0;
            LoadConfigPreview(0);
            Outside.Boxes.Shown.clear();
            damaged = whole;
        }
    EXPECT_GT(failures, 1000);
}

TEST_F(Configurations, LengthsStayDrawableAndNumbersMustFit) {
    const struct {
        std::size_t Line;
        const char* Value;
        Integer Number;
    } cases[] = {{1, "3e38", 0},  {1, "-3e38", 0},  {4, "-1", 0},      {1, "1e39", 6},
                 {6, "40000", 6}, {7, "-32769", 6}, {5, "1", 13},      {4, "\"4000\"", 13},
                 {53, "1e40", 6}, {55, "32768", 6}, {56, "#TRUE#", 13}};
    for (const auto& [line, value, number] : cases) {
        auto lines = HtcLines;
        lines[line - 1] = value;
        EXPECT_EQ(ReadConfigText(FileOf(lines, 56)).Number, number) << line << " " << value;
        EXPECT_LE(std::abs(picModule[0].Left), 1e6F);
        EXPECT_GE(picModule[0].Width, 0);
    }
}

TEST_F(Configurations, ThePreviewTakesWholeTwips) {
    auto lines = HtcLines;
    lines[21] = "12.5"; // ties to even
    File("b.htc") = FileOf(lines, 56);
    lines[17] = "40000"; // the third panel is wider than 16 bits
    File("a.htc") = FileOf(lines, 56);
    RefreshConfigList();
    EXPECT_EQ(fileList, (std::vector<std::string>{"a.htc", "b.htc"}));
    ConfigPreview = {};
    LoadConfigPreview(0);
    EXPECT_EQ(Outside.Boxes.Shown, (std::vector<FakeMessages::Message>{{"<170>", ButtonOK}}));
    EXPECT_EQ(labStatus.Caption, "<139>");
    EXPECT_EQ(ConfigPreview[1].Width, 4001);
    EXPECT_EQ(ConfigPreview[2].Height, 3002);
    EXPECT_EQ(ConfigPreview[2].Width + ConfigPreview[3].Left, 0);
    Outside.Boxes.Shown.clear();
    LoadConfigPicture(0); // in eighths there is room
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
    EXPECT_EQ(ConfigPreview[2].Width, 5000);
    EXPECT_EQ(ConfigPreview[10].Width, 1500);
    LoadConfigPreview(1);
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
    EXPECT_EQ(ConfigPreview[0], (PreviewPlace{10, 20, 3000, 4000, On, 1, 1}));
    EXPECT_EQ(ConfigPreview[3], (PreviewPlace{12, 23, 3003, 4003, Off, 4, 0}));
    EXPECT_EQ(ConfigPreview[10], (PreviewPlace{150, 300, 9000, 12000, Off, 80, 90}));
    EXPECT_TRUE(BuiltIn()); // a preview moves nothing
    for (const int index : {-1, 2}) {
        Outside.Boxes.Shown.clear();
        LoadConfigPreview(index);
        EXPECT_EQ(Outside.Boxes.Shown.size(), 1U);
    }
}

TEST_F(Configurations, AnEntryOfTheListIsLoaded) {
    SetProgramFolder("home");
    Outside.Disk.Content["home/config/mine.htc"] = FileOf(HtcLines, 56);
    Outside.Disk.Content["home/config/app.oms"] = "";
    Outside.Disk.Content["home/config/deep/other.htc"] = "";
    RefreshConfigList();
    EXPECT_EQ(fileList, std::vector<std::string>{"mine.htc"});
    LoadConfig(0);
    EXPECT_EQ(picModule[0].Left, 10);
    LoadConfig(1);
    EXPECT_EQ(Told("<169>"), 9);
    EXPECT_TRUE(BuiltIn());
}

TEST_F(Configurations, TheUserChoosesAFile) {
    Boolean open = Off;
    Outside.Dialogs.WhileOpen = [&] { open = DialogOpen; };
    const std::string before = ConfigText();
    LoadConfig(-1);
    SaveConfig(-1);
    EXPECT_TRUE(Outside.Boxes.Shown.empty()); // both cancelled
    EXPECT_TRUE(Outside.Disk.Content.empty());
    EXPECT_EQ(ConfigText(), before);
    Outside.Dialogs.Answers = {"else/where.htc", "config/new.htc"};
    Outside.Disk.Content["else/where.htc"] = FileOf(HtcLines, 56);
    LoadConfig(-1);
    EXPECT_EQ(open, On);
    EXPECT_EQ(picModule[0].Left, 10);
    SaveConfig(-1);
    EXPECT_EQ(File("new.htc"), ConfigText());
    EXPECT_EQ(fileList, std::vector<std::string>{"new.htc"});
    EXPECT_EQ(DialogOpen, Off);
    EXPECT_EQ(Outside.Dialogs.Starts, std::vector<std::string>(4, "config"));
}

TEST_F(Configurations, AFailedSaveIsToldAndTheOldFileStays) {
    Previous() = "old";
    Outside.Disk.DiskSize = 100;
    SaveConfig(-2);
    EXPECT_EQ(Told("<163>_5 "), 61);
    EXPECT_EQ(Previous(), "old");
}

TEST_F(Configurations, TrainingKeepsItsLayoutUntilTheDefaultEndsIt) {
    File("defConfig.htc") = Previous() = FileOf(HtcLines, 56);
    TrainingActive = On;
    PanelVisible[1] = Off;
    LoadConfig(-2);
    EXPECT_EQ(TrainingActive, On);
    EXPECT_EQ(picModule[0], PanelPlaces[0]);
    EXPECT_EQ(picModule[1].Visible, Off);
    LoadConfig(-3);
    EXPECT_EQ(TrainingActive, Off);
    EXPECT_EQ(picModule[0].Left, 10);
}

TEST_F(Configurations, TheShippedFileIsTheBuiltInLayout) {
    std::string shipped;
    ASSERT_EQ(SystemFiles().ReadWhole(PULSELARK_SOURCE "/config/defConfig.htc", shipped), 0);
    EXPECT_EQ(shipped, ConfigText());
    for (PanelPlace& panel : picModule)
        panel = {};
    File("defConfig.htc") = shipped;
    LoadConfig(-3);
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
    EXPECT_TRUE(BuiltIn());
}

TEST(ListFolder, GivesTheFilesOfATypeInOrder) {
    namespace fs = std::filesystem;
    std::string name = (fs::temp_directory_path() / "pulselark-list-XXXXXX").string();
    const fs::path folder = ::mkdtemp(name.data());
    for (const char* file : {"z.htc", "B.HTC", "a b.htc", "c.htcx", "htc", ".htc", "ü.htc"})
        std::ofstream(folder / file) << "x";
    fs::create_directory(folder / "folder.htc");
    fs::create_symlink("nowhere", folder / "link.htc");
    SystemFiles files;
    std::vector<std::string> names{"before"};
    EXPECT_EQ(files.ListFolder(folder.string(), ".htc", names), 0);
    EXPECT_EQ(names, (std::vector<std::string>{"B.HTC", "a b.htc", "z.htc", "ü.htc"}));
    EXPECT_EQ(files.ListFolder((folder / "gone").string(), ".htc", names), 76);
    EXPECT_TRUE(names.empty());
    EXPECT_EQ(files.ListFolder((folder / "z.htc").string(), ".htc", names), 76);
    EXPECT_EQ(files.ListFolder("", ".htc", names), 52);
    fs::remove_all(folder);
}

} // namespace
} // namespace pulselark
