#pragma once

#include "persistence/TextRecords.h"

#include <string>
#include <string_view>

/// How a settings file of the config folder is read and written, and what the user is told when it fails.
namespace pulselark {

struct SettingsFile {
    const char* Name;
    FileOutcome (*Read)(std::string_view);
    std::string (*Text)();
    void (*SetDefaults)();
    int LoadFailedText;     ///< the failure's number follows
    const char* SaveMark;   ///< follows the text of a failed save
    const char* ReadBefore; ///< the file that is read before this one, or nothing
};

/// Reads the file. After a failure the defaults are set and the user is told; a missing file has a text of
/// its own, told once when the file before it is missing, too.
void LoadSettingsFile(const SettingsFile& file);

/// Writes the file, whole or not at all. A failure is told.
void SaveSettingsFile(const SettingsFile& file);

} // namespace pulselark
