#include "persistence/SettingsFile.h"

#include "persistence/ConfigFolder.h"
#include "persistence/FileMessages.h"
#include "platform/Platform.h"
#include "session/LanguageTable.h"
#include "session/MainControls.h"

namespace pulselark {

namespace {

FileOutcome ReadFile(const SettingsFile& file, const std::string& name) {
    std::string bytes;
    if (const Integer failure = ThePlatform().Files.ReadWhole(name, bytes); failure != 0)
        return {failure, 0};
    return file.Read(bytes);
}

bool ToldBefore(const SettingsFile& file) {
    std::string bytes;
    return file.ReadBefore != nullptr &&
           IsMissing(ThePlatform().Files.ReadWhole(InConfigFolder(file.ReadBefore), bytes));
}

void TellMissing(const SettingsFile& file) {
    if (!ToldBefore(file))
        ThePlatform().Messages.Show(LanguageText(TextAppSettingsNotFound), ButtonOK, WarningManner);
    ShowStatus(LanguageText(TextFileFailure));
}

} // namespace

void LoadSettingsFile(const SettingsFile& file) {
    const std::string name = InConfigFolder(file.Name);
    const FileOutcome outcome = ReadFile(file, name);
    if (outcome.Number == 0)
        return;
    file.SetDefaults();
    if (IsMissing(outcome.Number))
        TellMissing(file);
    else
        ShowFileFailure(LanguageText(file.LoadFailedText), outcome, name, LanguageText(TextBuiltInSettings));
}

void SaveSettingsFile(const SettingsFile& file) {
    const std::string name = InConfigFolder(file.Name);
    const Integer failure = ThePlatform().Files.ReplaceWhole(name, file.Text());
    if (failure != 0) {
        ShowFileFailure(LanguageText(TextSaveFailed) + file.SaveMark, {failure, 0}, name,
                        LanguageText(TextOpenFailedSafe));
    }
}

} // namespace pulselark
