#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pulselark {

/// What kind of value an option has, and so how a form asks for it.
enum class OptionKind {
    Number, ///< decimal, from `Least` to `Most`
    Choice, ///< one of `Choices`
    Text,   ///< any line
    File,   ///< the path of a file
    Device, ///< the name of a device; what there is says `EcgMonitors::Devices`
};

/// A setting of a monitor. Values are text, numbers with a decimal point whatever the locale.
struct MonitorOption {
    std::string Key;
    OptionKind Kind = OptionKind::Text;
    std::string Value;
    double Least = 0;
    double Most = 0;
    std::vector<std::string> Choices;
    bool Whole = true; ///< a number without decimals
};

/// The settings of one monitor, each with a value that is good.
class MonitorOptions {
public:
    MonitorOptions() = default;
    explicit MonitorOptions(std::vector<MonitorOption> options) : options_(std::move(options)) {}

    /// False, and nothing changes, if there is no such option or the value is not one for it. A value never
    /// holds a line end.
    bool Set(std::string_view key, std::string_view value);
    /// The value; empty or 0 if there is no such option.
    std::string Text(std::string_view key) const;
    double Number(std::string_view key) const;

    const std::vector<MonitorOption>& All() const { return options_; }

private:
    std::vector<MonitorOption> options_;
};

} // namespace pulselark
