#include "session/LanguageTable.h"

#include <array>

namespace pulselark {

LanguageTexts LanguageTable;
std::vector<std::string> ShippedTexts;
Integer LanguageIndex = 0;

namespace {

constexpr std::array<const char*, NamedLanguageCount> Names{
    "English",   "German", "French",  "Spanish", "Italian", "Portuguese", "Dutch",   "Japanese", "Swedish",
    "Norwegian", "Danish", "Finnish", "Polish",  "Czech",   "Russian",    "Turkish", "Greek"};

} // namespace

std::string& LanguageTexts::operator()(int language, int item) {
    if (language < 0 || language >= LanguageCount || item < 0 || item >= LanguageItems)
        throw Failure{FailureIndexOutOfRange};
    return texts_[static_cast<std::size_t>(language) * LanguageItems + static_cast<std::size_t>(item)];
}

void LanguageTexts::Clear() {
    for (std::string& text : texts_)
        text.clear();
}

const std::string& LanguageText(int item) {
    const std::string& text = LanguageTable(LanguageIndex, item);
    if (!text.empty())
        return text;
    const std::string& english = LanguageTable(0, item);
    const auto row = static_cast<std::size_t>(item);
    return english.empty() && row < ShippedTexts.size() ? ShippedTexts[row] : english;
}

const char* LanguageName(int language) {
    return language >= 0 && language < NamedLanguageCount ? Names[static_cast<std::size_t>(language)]
                                                          : "not used";
}

} // namespace pulselark
