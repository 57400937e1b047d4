#include "platform/ProgramFolder.h"

#include <utility>

namespace pulselark {

namespace {

std::string& Folder() {
    static std::string folder;
    return folder;
}

std::string& Shipped() {
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

const std::string& ShippedFolder() {
    return Shipped();
}

void SetShippedFolder(std::string folder) {
    Shipped() = std::move(folder);
}

} // namespace pulselark
