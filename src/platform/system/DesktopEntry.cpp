#include "platform/system/DesktopEntry.h"

#include "platform/system/SystemFiles.h"

#include <cstdlib>
#include <filesystem>
#include <string>

namespace pulselark {

namespace {

namespace fs = std::filesystem;

constexpr const char* IconText =
    "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 64 64\" width=\"64\" height=\"64\">"
    "<rect width=\"64\" height=\"64\" rx=\"18\" fill=\"#5667A4\"/>"
    "<path d=\"M10 34h10l5-15 9 28 7-20 4 7h9\" fill=\"none\" stroke=\"#fff\" stroke-width=\"4\" "
    "stroke-linecap=\"round\" stroke-linejoin=\"round\"/></svg>\n";

fs::path DataHome() {
    if (const char* home = std::getenv("XDG_DATA_HOME"); home != nullptr && *home != '\0')
        return home;
    const char* home = std::getenv("HOME");
    return fs::path(home != nullptr ? home : "") / ".local" / "share";
}

// A path with blanks or signs of the shell stands between quotes, with the backslashes that the format asks
// for.
std::string Quoted(const std::string& path) {
    std::string out = "\"";
    for (const char c : path) {
        if (c == '"' || c == '`' || c == '$' || c == '\\')
            out += "\\\\";
        out += c;
        if (c == '%')
            out += '%';
    }
    return out + "\"";
}

std::string EntryText(const std::string& program) {
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=PulseLark\n"
           "GenericName=Heart-rhythm biofeedback\n"
           "Comment=PulseLark 5 v. 1.6\n"
           "Exec=" +
           Quoted(program) +
           " %f\n"
           "Icon=pulselark\n"
           "Terminal=false\n"
           "Categories=Education;Science;MedicalSoftware;\n";
}

Integer Put(const fs::path& file, const std::string& text) {
    std::error_code error;
    fs::create_directories(file.parent_path(), error);
    return SystemFiles().ReplaceWhole(file.string(), text);
}

} // namespace

Integer CreateDesktopShortcut() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    if (error)
        return FailurePathNotFound;
    const fs::path data = DataHome();
    if (const Integer failure = Put(data / "icons/hicolor/scalable/apps/pulselark.svg", IconText);
        failure != 0)
        return failure;
    return Put(data / "applications/pulselark.desktop", EntryText(program.string()));
}

} // namespace pulselark
