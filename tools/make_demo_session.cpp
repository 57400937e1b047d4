// make_demo_session OUT.hti: writes the session that ships, so that there is something to replay before the
// first recording.
#include "SyntheticEcg.h"
#include "persistence/SessionFile.h"
#include "platform/system/SystemFiles.h"
#include "session/MainBuffers.h"

#include <cstdio>

using namespace pulselark;

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: make_demo_session OUT.hti\n", stderr);
        return 2;
    }
    constexpr Long DemoSeconds = 300;
    SetStartValues();
    FillWithSyntheticEcg(DemoSeconds);
    SessionInfo[0] = "Demo: breathing at 6 per minute";
    SessionInfo[3] = "05/05/2025";
    SessionInfo[4] = "09:00";
    SessionInfo[19] = "1"; // the first person symbol
    SessionInfo[20] = "1"; // locked, as every saved document
    const Integer failure = SystemFiles().ReplaceWhole(argv[1], SessionText());
    if (failure != 0) {
        std::fprintf(stderr, "make_demo_session: %s: %s (failure %d)\n", argv[1], FailureText(failure),
                     failure);
        return 1;
    }
    return 0;
}
