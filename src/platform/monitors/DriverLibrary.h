#pragma once

#include <string>

namespace pulselark {

/// A library of the system, opened when it is needed.
class DriverLibrary {
public:
    DriverLibrary() = default;
    DriverLibrary(const DriverLibrary&) = delete;
    DriverLibrary& operator=(const DriverLibrary&) = delete;
    ~DriverLibrary();

    /// False if there is none of that name. One that is open stays open.
    bool Open(const std::string& name);

    /// Sets `operation` to the library's operation of that name, or to nothing if it has none.
    template <class Operation>
    bool Find(const char* name, Operation& operation) const {
        operation = reinterpret_cast<Operation>(Address(name));
        return operation != nullptr;
    }

private:
    void* Address(const char* name) const;

    void* library_ = nullptr;
};

} // namespace pulselark
