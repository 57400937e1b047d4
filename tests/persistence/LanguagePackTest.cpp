#include "persistence/LanguagePack.h"

#include "platform/ProgramFolder.h"
#include "platform/system/SystemFiles.h"
#include "session/LanguageTable.h"
#include "support/SessionTest.h"

#include <regex>

namespace pulselark {
namespace {

class LanguagePack : public SessionTest {
protected:
    static constexpr const char* Name = "config/langpack.oml";
    static constexpr int Markers[] = {1, 14, 29, 80, 90, 110, 115, 125, 160, 180, 250, 300};

    std::string& Pack() { return Outside.Disk.Content[Name]; }
};

TEST_F(LanguagePack, ATableComesBackWithItsMarkers) {
    for (int language = 0; language < 31; ++language)
        for (int item = 0; item < 501; ++item)
            LanguageTable(language, item) = std::to_string(language) + " ♥, " + std::to_string(item);
    EXPECT_EQ(SaveLanguagePack(), 0);
    EXPECT_EQ(std::count(Pack().begin(), Pack().end(), '\n'), 10 + 31 * 501);
    EXPECT_TRUE(Pack().starts_with("\"PulseLark Language pack\"\r\n"));
    LanguageTable.Clear();
    LoadLanguagePack();
    EXPECT_TRUE(Outside.Boxes.Shown.empty());
    for (int language = 0; language < 31; ++language)
        for (int item = 0; item < 501; ++item) {
            if (std::find(std::begin(Markers), std::end(Markers), item) == std::end(Markers)) {
                ASSERT_EQ(LanguageTable(language, item),
                          std::to_string(language) + " ♥, " + std::to_string(item));
            }
        }
    EXPECT_EQ(LanguageTable(0, 1), "LANGUAGE0 - English");
    EXPECT_EQ(LanguageTable(17, 1), "LANGUAGE17 - not used");
    EXPECT_EQ(LanguageTable(30, 14), "--- FILE MENU [ITEM #14] ---");
    EXPECT_EQ(LanguageTable(5, 160), "--- MESSAGES [ITEM #160] ---");
    EXPECT_EQ(LanguageTable(5, 300), "--- REPORT [ITEM #300] ---");
    Outside.Disk.WriteFailure = 70;
    EXPECT_EQ(SaveLanguagePack(), 70);
}

TEST_F(LanguagePack, AMissingOrShortPackIsToldOnce) {
    const std::vector<FakeMessages::Message> told{{"Error while reading language file", ButtonOK}};
    LoadLanguagePack();
    EXPECT_EQ(Outside.Boxes.Shown, told);
    EXPECT_EQ(LanguageText(132), "<132>"); // the table stays
    SetProgramFolder("home");
    const std::string whole = LanguagePackText();
    Outside.Boxes.Shown.clear();
    Outside.Disk.Content["home/config/langpack.oml"] = whole.substr(0, whole.find("<200>") + 3);
    LanguageTable.Clear();
    LoadLanguagePack();
    EXPECT_EQ(Outside.Boxes.Shown, told);
    EXPECT_EQ(LanguageTable(0, 199), "<199>"); // what was read stays
    EXPECT_EQ(LanguageTable(0, 201), "");
    EXPECT_EQ(ReadLanguageText("").Line, 1);
    EXPECT_EQ(ReadLanguageText(whole.substr(0, whole.size() - 6)).Number, 62);
}

TEST_F(LanguagePack, AnEmptyTextFallsBackToEnglish) {
    LanguageIndex = 1;
    LanguageTable(1, 16) = "sixteen";
    EXPECT_EQ(LanguageText(16), "sixteen");
    EXPECT_EQ(LanguageText(17), "<17>");
    EXPECT_THROW(LanguageTable(31, 0), Failure);
    EXPECT_THROW(LanguageTable(0, 501), Failure);
}

// The pack that ships is what the program itself would write, and has every text that the session shows.
TEST_F(LanguagePack, TheShippedPackIsComplete) {
    std::string shipped;
    ASSERT_EQ(SystemFiles().ReadWhole(PULSELARK_SOURCE "/config/langpack.oml", shipped), 0);
    LanguageTable.Clear();
    ASSERT_EQ(ReadLanguageText(shipped).Number, 0);
    EXPECT_TRUE(LanguagePackText() == shipped);
    // Every text that has a name has words; a base is where a row of them begins.
    std::string names, ofRecordings;
    ASSERT_EQ(SystemFiles().ReadWhole(PULSELARK_SOURCE "/src/session/TextNumbers.h", names), 0);
    ASSERT_EQ(SystemFiles().ReadWhole(PULSELARK_SOURCE "/src/session/RecordingTexts.h", ofRecordings), 0);
    names += ofRecordings;
    const std::regex number("Text\\w+?(Base)? = (\\d+),");
    int named = 0;
    for (std::sregex_iterator name(names.begin(), names.end(), number), end; name != end; ++name, ++named)
        EXPECT_EQ(LanguageTable(0, std::stoi((*name)[2])).empty(), (*name)[1] == "Base") << name->str();
    EXPECT_GT(named, 300);
    // The languages that ship are whole; a text that is joined to a name or a number keeps its blanks, and
    // its value.
    constexpr int ShippedLanguages = 8;
    for (int language = 1; language < ShippedLanguages; ++language) {
        for (int item = 0; item < LanguageItems; ++item) {
            const std::string& english = LanguageTable(0, item);
            const std::string& text = LanguageTable(language, item);
            SCOPED_TRACE(testing::Message() << LanguageName(language) << " " << item);
            ASSERT_EQ(english.empty(), text.empty());
            EXPECT_EQ(english.starts_with(" "), text.starts_with(" "));
            EXPECT_EQ(english.ends_with(" "), text.ends_with(" "));
            EXPECT_EQ(english.find("%1") == std::string::npos, text.find("%1") == std::string::npos);
        }
    }
    EXPECT_EQ(LanguageTable(0, 356) + "13" + LanguageTable(0, 357), "Biofeedback starts after 13 seconds");
}

} // namespace
} // namespace pulselark
