#include "platform/system/ProcessPriority.h"

#include <algorithm>
#include <cerrno>
#include <sys/resource.h>

namespace pulselark {

namespace {

constexpr int HighNice = -5;

// A nice value may itself be -1, so a failure is told by errno alone. This question is never refused.
int NiceAtStart() {
    errno = 0;
    const int nice = ::getpriority(PRIO_PROCESS, 0);
    return errno == 0 ? nice : 0;
}

} // namespace

int SetProcessPriority(bool high) {
    static const int start = NiceAtStart();
    return ::setpriority(PRIO_PROCESS, 0, high ? std::min(HighNice, start) : start) == 0 ? 0 : errno;
}

} // namespace pulselark
