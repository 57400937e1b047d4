#pragma once

#include <string>

namespace pulselark {

/// The progress form `frmProgressBar`.
class Progress {
public:
    virtual ~Progress() = default;
    virtual void Show(const std::string& caption) = 0;
    /// Percent 0 to 100.
    virtual void Draw(double percent) = 0;
    virtual void Hide() = 0;
};

} // namespace pulselark
