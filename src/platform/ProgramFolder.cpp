#include "platform/ProgramFolder.h"

#include <utility>

namespace pulselark {

namespace {

std::string& Folder() {
    static std::string folder;
    return folder;
}

} // namespace

const std::string& ProgramFolder() {
    return Folder();
}

void SetProgramFolder(std::string folder) {
    Folder() = std::move(folder);
}

} // namespace pulselark
