#pragma once

#include "platform/Files.h"

namespace pulselark {

/// Files by the system's own calls.
class SystemFiles final : public Files {
public:
    Integer ReadWhole(const std::string& name, std::string& bytes) override;
    Integer ReplaceWhole(const std::string& name, const std::string& bytes) override;
    Integer TryReplace(const std::string& name) override;
    Integer ListFolder(const std::string& folder, const std::string& extension,
                       std::vector<std::string>& names) override;
    std::unique_ptr<GrowingFile> OpenToGrow(const std::string& name, Integer& failure) override;
    bool HeldToGrow(const std::string& name) override;
    Integer Remove(const std::string& name) override;
};

} // namespace pulselark
