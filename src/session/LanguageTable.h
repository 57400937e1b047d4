#pragma once

#include "base/Numbers.h"
#include "session/TextNumbers.h"

#include <string>
#include <vector>

/// All texts of the user by number: 31 languages of 501 items. Read and written by the language pack.
namespace pulselark {

inline constexpr int LanguageCount = 31;      ///< languages 0 to 30
inline constexpr int NamedLanguageCount = 17; ///< languages 0 to 16 have a name, the rest are spare
inline constexpr int LanguageItems = 501;     ///< items 0 to 500

class LanguageTexts {
public:
    LanguageTexts() : texts_(static_cast<std::size_t>(LanguageCount) * LanguageItems) {}

    /// Language 0 to 30, item 0 to 500; anything else is failure 9.
    std::string& operator()(int language, int item);

    void Clear();

private:
    std::vector<std::string> texts_;
};

extern LanguageTexts LanguageTable;
extern Integer LanguageIndex; ///< the language in use, 0 to 30; start 0

/// Language 0 of the pack that ships, item for item; empty while that is the pack in use.
extern std::vector<std::string> ShippedTexts;

/// Text `item` in the language in use; where that one is empty in language 0, and where that is empty, too,
/// as it ships.
const std::string& LanguageText(int item);

/// Name of a language as the settings list it; "not used" from language 17 on.
const char* LanguageName(int language);

} // namespace pulselark
