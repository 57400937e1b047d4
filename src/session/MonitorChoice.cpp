#include "session/MonitorChoice.h"

#include "base/Text.h"
#include "platform/Platform.h"
#include "session/LanguageTable.h"

#include <array>

namespace pulselark {

std::string TextOfMonitorWord(MonitorWord word) {
    constexpr std::array Texts{TextMonitorConnecting,     TextMonitorLost,        TextMonitorNoFile,
                               TextMonitorFileUnreadable, TextMonitorFileAtEnd,   TextMonitorPortClosed,
                               TextMonitorNotAnEcg,       TextMonitorNoLibrary,   TextMonitorLibraryTooSmall,
                               TextMonitorNoBluetooth,    TextMonitorStrapSought, TextMonitorStrapWithoutEcg,
                               TextMonitorDriverRefused};
    static_assert(Texts.size() == MonitorWordCount);
    return LanguageText(Texts.at(static_cast<std::size_t>(word)));
}

void TellPortRefused(Long code) {
    std::string text = LanguageText(TextMonitorPortCode);
    AppendLong(text, code);
    ThePlatform().Messages.Show(text, ButtonOK, WarningManner);
}

} // namespace pulselark
