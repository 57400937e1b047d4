#include "persistence/LanguagePack.h"

#include "platform/Platform.h"
#include "platform/ProgramFolder.h"
#include "session/LanguageTable.h"

#include <array>

namespace pulselark {

namespace {

constexpr int HeaderLines = 10;
constexpr int LanguageMarker = 1;

struct SectionMarker {
    int Item;
    const char* Text;
};
constexpr std::array<SectionMarker, 11> SectionMarkers{{
    {14, "--- FILE MENU [ITEM #14] ---"},
    {29, "--- SETTINGS MENU [ITEM #29] ---"},
    {80, "--- VIEW MENU [ITEM #80] ---"},
    {90, "--- TOOLS [ITEM #90] ---"},
    {110, "--- ABOUT, HELP [ITEM #110] ---"},
    {115, "--- MODULES [ITEM #115] ---"},
    {125, "--- OTHER [ITEM #125] ---"},
    {160, "--- MESSAGES [ITEM #160] ---"},
    {180, "--- PRINTABLES [ITEM #180] ---"},
    {250, "--- MESSAGES_2 [ITEM #250] ---"},
    {300, "--- REPORT [ITEM #300] ---"},
}};

std::string PackName() {
    const std::string& folder = ProgramFolder();
    return (folder.empty() ? std::string() : folder + "/") + "config/langpack.oml";
}

} // namespace

FileOutcome ReadLanguageText(std::string_view text) {
    TextRecordReader reader(text);
    try {
        for (int i = 0; i < HeaderLines; ++i)
            reader.NextText();
        for (int language = 0; language < LanguageCount; ++language) {
            for (int item = 0; item < LanguageItems; ++item)
                LanguageTable(language, item) = reader.NextText();
        }
    } catch (const Failure& failure) {
        return {failure.Number, reader.Line()};
    }
    return {};
}

std::string LanguagePackText() {
    std::string out;
    for (int i = 0; i < HeaderLines; ++i)
        AppendTextLine(out, "PulseLark Language pack");
    for (int language = 0; language < LanguageCount; ++language) {
        LanguageTable(language, LanguageMarker) =
            "LANGUAGE" + std::to_string(language) + " - " + LanguageName(language);
        for (const SectionMarker& marker : SectionMarkers)
            LanguageTable(language, marker.Item) = marker.Text;
        for (int item = 0; item < LanguageItems; ++item)
            AppendTextLine(out, LanguageTable(language, item));
    }
    return out;
}

void LoadLanguagePack() {
    std::string bytes;
    const Integer failure = ThePlatform().Files.ReadWhole(PackName(), bytes);
    if (failure != 0 || ReadLanguageText(bytes).Number != 0)
        ThePlatform().Messages.Show("Error while reading language file", ButtonOK, WarningManner);
}

Integer SaveLanguagePack() {
    return ThePlatform().Files.ReplaceWhole(PackName(), LanguagePackText());
}

} // namespace pulselark
