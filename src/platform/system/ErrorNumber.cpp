#include "platform/system/ErrorNumber.h"

#include <cerrno>
#include <unistd.h>

namespace pulselark {

Integer NumberOfError(int error, Integer notThere) {
    switch (error) {
    case ENOENT:
        return notThere;
    case ENOTDIR:
        return FailurePathNotFound;
    case ENAMETOOLONG:
    case EINVAL:
    case EILSEQ:
        return FailureBadFileName;
    case EACCES:
    case EPERM:
        return FailurePermissionDenied;
    case EISDIR:
    case EROFS:
    case ELOOP:
    case ETXTBSY:
    case ENXIO:
        return FailurePathFileAccess;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return FailureDiskFull;
    case ENOMEM:
        return FailureOutOfMemory;
    default:
        return FailureDeviceIO;
    }
}

int WriteWhole(int file, const char* bytes, std::size_t size) {
    std::size_t done = 0;
    while (done < size) {
        const ssize_t count = ::write(file, bytes + done, size - done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return errno;
        done += static_cast<std::size_t>(count);
    }
    return 0;
}

} // namespace pulselark
