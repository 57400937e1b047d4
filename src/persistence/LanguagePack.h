#pragma once

#include "persistence/TextRecords.h"

#include <string>
#include <string_view>

/// The language pack `config/langpack.oml`: ten header lines, then for each of the 31 languages its 501 items
/// in order, one quoted string to a line.
namespace pulselark {

/// Fills `LanguageTable` from the text of a pack. After a failure (62, 13) the table keeps what was read so
/// far.
FileOutcome ReadLanguageText(std::string_view text);

/// The text of the pack. The section markers of every language are put into the table first; they help a
/// person who edits the file to find a place.
std::string LanguagePackText();

/// Reads the pack of the program's folder, and what it may lack from the one that ships. Any failure of the
/// first is told once, and the program goes on with what was read.
void LoadLanguagePack();

/// Writes the pack of the program's folder, whole or not at all. Returns 0 or the failure's number.
Integer SaveLanguagePack();

} // namespace pulselark
