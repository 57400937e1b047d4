#include "analysis/PanelDrawing.h"
#include "app/Commands.h"
#include "persistence/SaveSession.h"
#include "platform/ProgramFolder.h"
#include "platform/system/ConsolePlatform.h"
#include "platform/system/FindProgramFolder.h"
#include "session/JournalKeeper.h"
#include "session/MainBuffers.h"
#include "session/Recovery.h"
#include "session/StartUp.h"

#include <algorithm>
#include <cstdio>

namespace pulselark {

namespace {

std::string WithoutFolder(const std::string& name) {
    return name.substr(name.rfind('/') + 1);
}

void List(const std::vector<LeftRecording>& left) {
    for (const LeftRecording& each : left) {
        std::printf("%s\t%s\t%s\t%d\t%s\t%s\n", WithoutFolder(each.Name).c_str(), each.Date.c_str(),
                    each.Time.c_str(), static_cast<int>(each.Seconds), each.ChannelB ? "A B" : "A",
                    each.Monitor.c_str());
    }
}

int Recover(const LeftRecording& left, const std::string& out) {
    if (const Integer failure = RestoreRecording(left.Name); failure != 0)
        return ComplainOfFile(left.Name, failure, 0);
    if (const Integer failure = WriteSessionFile(out); failure != 0)
        return ComplainOfFile(out, failure, 0,
                              std::string(FailureText(failure)) + "; the recording stays in " + left.Name);
    DiscardJournal();
    std::printf("%s: %d seconds\n", out.c_str(), static_cast<int>(SessionSeconds));
    return ExitSuccess;
}

} // namespace

int RunRecover(Arguments arguments) {
    const bool list = arguments.size() == 1 && arguments[0] == "--list";
    const bool save = (arguments.size() == 2 || arguments.size() == 3) && arguments[0] == "--out";
    if (!list && !save)
        return Complain("usage: pulselark recover --list | --out FILE.hti [JOURNAL]", ExitUsage);
    const ConsolePlatform platform;
    SetProgramFolder(FindProgramFolder());
    InitApplication(false);
    std::vector<std::string> unreadable;
    const auto left = LeftRecordings(&unreadable);
    if (list) {
        for (const std::string& name : unreadable)
            Complain(name + ": this journal cannot be read", ExitFailure);
        List(left);
        return ExitSuccess;
    }
    const auto chosen = arguments.size() == 2
                            ? left.begin()
                            : std::find_if(left.begin(), left.end(), [&](const LeftRecording& each) {
                                  return WithoutFolder(each.Name) == WithoutFolder(arguments[2]);
                              });
    if (chosen == left.end())
        return Complain((arguments.size() == 3 ? arguments[2] + ": " : "") +
                            "there is no recording that was left" +
                            (unreadable.empty() ? "" : ", only journals that cannot be read"),
                        ExitFailure);
    return Recover(*chosen, arguments[1]);
}

} // namespace pulselark
