#include "platform/monitors/DriverLibrary.h"

#include <dlfcn.h>

namespace pulselark {

DriverLibrary::~DriverLibrary() {
    if (library_ != nullptr)
        dlclose(library_);
}

bool DriverLibrary::Open(const std::string& name) {
    if (library_ == nullptr)
        library_ = dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL);
    return library_ != nullptr;
}

void* DriverLibrary::Address(const char* name) const {
    return library_ != nullptr ? dlsym(library_, name) : nullptr;
}

} // namespace pulselark
