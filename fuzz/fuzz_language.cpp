#include "FuzzTarget.h"
#include "persistence/LanguagePack.h"
#include "session/LanguageTable.h"

#include <string>

using namespace pulselark;

// Any bytes are one of the told failures or a table, and what is written of the table comes back the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LanguageTable.Clear();
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const FileOutcome outcome = ReadLanguageText(bytes);
    if (outcome.Number != 0) {
        Promise(outcome.Number == 13 || outcome.Number == 62);
        Promise(outcome.Line >= 1 && static_cast<std::size_t>(outcome.Line) <= size + 1);
    }
    // A fuzzer hardly makes 15541 lines: the rest of the pack is blank.
    std::string whole(bytes);
    whole.append(10 + LanguageCount * LanguageItems, '\n');
    if (ReadLanguageText(whole).Number != 0)
        return 0;
    const std::string text = LanguagePackText();
    Promise(ReadLanguageText(text).Number == 0 && LanguagePackText() == text);
    return 0;
}
