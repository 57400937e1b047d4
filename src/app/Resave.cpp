#include "app/Commands.h"
#include "persistence/SaveSession.h"
#include "persistence/SessionFile.h"
#include "platform/Platform.h"
#include "platform/system/ConsolePlatform.h"
#include "session/MainBuffers.h"

namespace pulselark {

int RunResave(Arguments arguments) {
    if (arguments.size() != 2 || arguments[0].starts_with("--") || arguments[1].starts_with("--"))
        return Complain("usage: pulselark resave IN.hti OUT.hti", ExitUsage);
    const std::string& in = arguments[0];
    const std::string& out = arguments[1];
    const ConsolePlatform platform;
    SetStartValues();
    // Whatever the mode, the lines of channel B are written as they were read. A mode other than 1 and 2 is
    // the third.
    ChannelMode = 3;
    ChannelBPresent = On;
    std::string bytes;
    if (const Integer failure = ThePlatform().Files.ReadWhole(in, bytes); failure != 0)
        return ComplainOfFile(in, failure, 0);
    if (const FileOutcome outcome = ReadSessionText(bytes); outcome.Number != 0)
        return ComplainOfFile(in, outcome.Number, outcome.Line);
    if (const Integer failure = WriteSessionFile(out); failure != 0)
        return ComplainOfFile(out, failure, 0);
    return ExitSuccess;
}

} // namespace pulselark
