#pragma once

#include "platform/Files.h"

namespace pulselark {

/// Whole files by the system's own calls.
class SystemFiles final : public Files {
public:
    Integer ReadWhole(const std::string& name, std::string& bytes) override;
    Integer ReplaceWhole(const std::string& name, const std::string& bytes) override;
    Integer ListFolder(const std::string& folder, const std::string& extension,
                       std::vector<std::string>& names) override;
};

} // namespace pulselark
