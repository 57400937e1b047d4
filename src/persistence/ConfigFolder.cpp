#include "persistence/ConfigFolder.h"

#include "platform/ProgramFolder.h"

namespace pulselark {

std::string ConfigFolder() {
    const std::string& folder = ProgramFolder();
    return (folder.empty() ? std::string() : folder + "/") + "config";
}

std::string InConfigFolder(const std::string& name) {
    return ConfigFolder() + "/" + name;
}

} // namespace pulselark
