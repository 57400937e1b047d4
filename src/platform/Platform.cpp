#include "platform/Platform.h"

#include <cstdlib>

namespace pulselark {

namespace {

const Platform* installed = nullptr;

} // namespace

void InstallPlatform(const Platform& platform) {
    installed = &platform;
}

const Platform& ThePlatform() {
    if (installed == nullptr)
        std::abort();
    return *installed;
}

} // namespace pulselark
