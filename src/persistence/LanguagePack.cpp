#include "persistence/LanguagePack.h"

#include "persistence/ConfigFolder.h"
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

constexpr const char* PackFile = "langpack.oml";

void ReadLanguage(TextRecordReader& reader, int language) {
    for (int item = 0; item < LanguageItems; ++item)
        LanguageTable(language, item) = reader.NextText();
}

void SkipHeader(TextRecordReader& reader) {
    for (int i = 0; i < HeaderLines; ++i)
        reader.NextText();
}

// Language 0 of the pack that ships, where that is another file than the one in use: an older pack lacks the
// words of newer windows.
void LoadShippedTexts() {
    ShippedTexts.clear();
    if (ShippedFolder().empty() || ShippedFolder() == ProgramFolder())
        return;
    std::string bytes;
    if (ThePlatform().Files.ReadWhole(ShippedFolder() + "/config/" + PackFile, bytes) != 0)
        return;
    TextRecordReader reader(bytes);
    try {
        SkipHeader(reader);
        for (int item = 0; item < LanguageItems; ++item)
            ShippedTexts.emplace_back(reader.NextText());
    } catch (const Failure&) {
        ShippedTexts.clear();
    }
}

} // namespace

FileOutcome ReadLanguageText(std::string_view text) {
    TextRecordReader reader(text);
    try {
        SkipHeader(reader);
        for (int language = 0; language < LanguageCount; ++language)
            ReadLanguage(reader, language);
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
    LoadShippedTexts();
    const Integer failure = ThePlatform().Files.ReadWhole(InConfigFolder(PackFile), bytes);
    if (failure != 0 || ReadLanguageText(bytes).Number != 0)
        ThePlatform().Messages.Show("Error while reading language file", ButtonOK, WarningManner);
}

Integer SaveLanguagePack() {
    return ThePlatform().Files.ReplaceWhole(InConfigFolder(PackFile), LanguagePackText());
}

} // namespace pulselark
