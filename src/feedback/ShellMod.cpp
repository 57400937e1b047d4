#include "feedback/ShellMod.h"

#include "platform/Platform.h"
#include "session/LanguageTable.h"

#include <algorithm>
#include <array>

namespace pulselark {

namespace {

constexpr int LargestFailure = 32;

struct ShellFailure {
    int Result;
    Integer Number;
    int Text;
};

constexpr std::array ShellFailures{
    ShellFailure{0, 7, TextLaunchOutOfMemory},       ShellFailure{8, 7, TextLaunchOutOfMemory},
    ShellFailure{2, 53, TextLaunchFileNotFound},     ShellFailure{3, 76, TextLaunchPathNotFound},
    ShellFailure{5, 75, TextLaunchAccessError},      ShellFailure{11, 0, TextLaunchInvalidProgram},
    ShellFailure{26, 75, TextLaunchSharing},         ShellFailure{27, 0, TextLaunchBadAssociation},
    ShellFailure{28, 286, TextLaunchTimeOut},        ShellFailure{29, 285, TextLaunchDdeFailed},
    ShellFailure{30, 285, TextLaunchBusy},           ShellFailure{31, 0, TextLaunchNoAssociation},
    ShellFailure{32, 48, TextLaunchLibraryNotFound},
};

ShellOutcome OutcomeOf(int result) {
    if (result > LargestFailure)
        return {};
    const auto row = std::find_if(ShellFailures.begin(), ShellFailures.end(),
                                  [result](const ShellFailure& failure) { return failure.Result == result; });
    const bool known = row != ShellFailures.end();
    return {true, known ? row->Number : Integer{0}, "PulseLark.GShell",
            LanguageText(known ? row->Text : int{TextLaunchFailed})};
}

bool IsProgram(std::string file) {
    std::transform(file.begin(), file.end(), file.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return file.find(".EXE") != std::string::npos;
}

} // namespace

ShellOutcome ShellExecuteChecked(const std::string& file, int showCommand, const std::string& parameters,
                                 const std::string& directory, const std::string& verb) {
    LaunchRequest request{file, verb, parameters, directory, IsProgram(file) ? 0 : showCommand};
    if (parameters.empty() && directory.empty())
        request.ShowCommand = 1;
    return OutcomeOf(ThePlatform().ProgramLauncher.Execute(request));
}

} // namespace pulselark
