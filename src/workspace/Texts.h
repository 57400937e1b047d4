#pragma once

#include "session/LanguageTable.h"

#include <QString>

namespace pulselark {

/// The program's name as its windows show it.
inline constexpr const char* ProgramTitle = "PulseLark 5 QS";

/// A language text for the toolkit.
inline QString Text(int item) {
    return QString::fromStdString(LanguageText(item));
}

} // namespace pulselark
