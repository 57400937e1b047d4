#include "base/Numbers.h"

namespace pulselark {

const char* FailureText(Integer number) {
    switch (number) {
    case FailureOverflow:
        return "a number is too large";
    case FailureOutOfMemory:
        return "out of memory";
    case FailureIndexOutOfRange:
        return "more data than a session can hold";
    case FailureTypeMismatch:
        return "this is not a value of the expected kind";
    case FailureBadFileName:
        return "bad file name";
    case FailureFileNotFound:
        return "file not found";
    case FailureFileAlreadyOpen:
        return "file already open";
    case FailureDeviceIO:
        return "the device reported an error";
    case FailureDiskFull:
        return "disk full";
    case FailureInputPastEnd:
        return "the file ends too early";
    case FailurePermissionDenied:
        return "permission denied";
    case FailurePathFileAccess:
        return "this is not a file that can be read or replaced";
    case FailurePathNotFound:
        return "folder not found";
    case FailureCancelled:
        return "cancelled";
    default:
        return "unknown failure";
    }
}

} // namespace pulselark
