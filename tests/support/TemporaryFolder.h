#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace pulselark {

/// A folder of its own for one test, gone with everything in it at the end.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "larkXXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr)
            std::abort();
        name_ = pattern;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::remove_all(name_, error);
    }
    const std::string& Name() const { return name_; }

private:
    std::string name_;
};

} // namespace pulselark
