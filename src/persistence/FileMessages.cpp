#include "persistence/FileMessages.h"

#include "platform/Platform.h"
#include "session/LanguageTable.h"
#include "session/MainControls.h"

namespace pulselark {

namespace {

int FailureTextNumber(Integer failure) {
    switch (failure) {
    case FailureOverflow:
        return TextFailureOverflow;
    case FailureOutOfMemory:
        return TextFailureOutOfMemory;
    case FailureIndexOutOfRange:
        return TextFailureOutOfRange;
    case FailureTypeMismatch:
        return TextFailureTypeMismatch;
    case FailureBadFileName:
        return TextFailureBadFileName;
    case FailureFileNotFound:
        return TextFailureFileNotFound;
    case FailureFileAlreadyOpen:
        return TextFailureFileAlreadyOpen;
    case FailureDiskFull:
        return TextFailureDiskFull;
    case FailureInputPastEnd:
        return TextFailureEndOfFile;
    case FailurePermissionDenied:
        return TextFailurePermissionDenied;
    case FailurePathFileAccess:
        return TextFailureFileAccess;
    case FailurePathNotFound:
        return TextFailurePathNotFound;
    default:
        return TextFailureDeviceError;
    }
}

} // namespace

void ShowFileFailure(const std::string& lead, const FileOutcome& outcome, const std::string& name,
                     const std::string& safe) {
    std::string text =
        lead + std::to_string(outcome.Number) + "\n\n" + LanguageText(FailureTextNumber(outcome.Number));
    text += "\n" + name;
    if (outcome.Line > 0)
        text += ", " + LanguageText(TextLine) + " " + std::to_string(outcome.Line);
    text += "\n\n" + safe;
    ThePlatform().Messages.Show(text, ButtonOK, WarningManner);
    ShowStatus(LanguageText(TextFileFailure));
}

} // namespace pulselark
