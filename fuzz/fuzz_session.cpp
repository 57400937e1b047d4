#include "FuzzTarget.h"
#include "persistence/SessionFile.h"
#include "platform/system/ConsolePlatform.h"
#include "session/MainBuffers.h"
#include "session/Rescan.h"

using namespace pulselark;

// Any bytes are one of the told failures or a session; a session that was taken can be analysed, and what is
// written of it comes back the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const ConsolePlatform platform;
    static const bool started = (SetStartValues(), true); // once: it clears megabytes
    Promise(started);
    SessionSeconds = 0;
    SessionInfo.fill({});
    ChannelMode = 3;
    const FileOutcome outcome = ReadSessionText({reinterpret_cast<const char*>(data), size});
    Promise(SessionSeconds >= 0 && SessionSeconds <= LongestSession && ChannelMode >= 1 && ChannelMode <= 3);
    if (outcome.Number != 0) {
        Promise(outcome.Number == 6 || outcome.Number == 9 || outcome.Number == 13 || outcome.Number == 62);
        Promise(outcome.Line >= 1 && static_cast<std::size_t>(outcome.Line) <= size + 1);
        return 0;
    }
    ChannelBPresent = On;
    const std::string text = SessionText();
    Promise(ReadSessionText(text).Number == 0 && SessionText() == text);
    RescanSession(false);
    return 0;
}
