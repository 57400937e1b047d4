#include "platform/system/FindProgramFolder.h"

#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace pulselark {

namespace {

namespace fs = std::filesystem;

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

fs::path DataHome() {
    if (const std::string home = Environment("XDG_DATA_HOME"); !home.empty())
        return home;
    return fs::path(Environment("HOME")) / ".local" / "share";
}

// What ships lies beside the program in a build tree and in share/ of an installation.
fs::path ShippedBeside(const fs::path& program) {
    std::error_code error;
    for (const fs::path& place : {program, program.parent_path() / "share" / "pulselark"}) {
        if (fs::is_directory(place / "config", error))
            return place;
    }
    return {};
}

void FillFrom(const fs::path& shipped, const fs::path& folder) {
    std::error_code error;
    for (const char* part : {"config", "Sessions", "Music"}) {
        fs::create_directories(folder / part, error);
        if (!shipped.empty() && fs::is_directory(shipped / part, error)) {
            fs::copy(shipped / part, folder / part,
                     fs::copy_options::recursive | fs::copy_options::skip_existing, error);
        }
    }
}

} // namespace

std::string FolderOfProgram() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? std::string(".") : program.parent_path().string();
}

std::string FindShippedFolder() {
    return ShippedBeside(FolderOfProgram()).string();
}

std::string FindProgramFolder() {
    const fs::path program = FolderOfProgram();
    std::error_code error;
    if (std::string home = Environment("PULSELARK_HOME"); !home.empty()) {
        while (home.size() > 1 && home.back() == '/')
            home.pop_back();
        if (!fs::is_directory(fs::path(home) / "config", error))
            FillFrom(ShippedBeside(program), home);
        fs::create_directories(fs::path(home) / "Sessions", error); // without it no recording is safe
        return home;
    }
    if (fs::is_directory(program / "config", error) && ::access(program.c_str(), W_OK) == 0)
        return program.string();
    const fs::path folder = DataHome() / "pulselark";
    FillFrom(ShippedBeside(program), folder);
    return folder.string();
}

} // namespace pulselark
