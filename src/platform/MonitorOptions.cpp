#include "platform/MonitorOptions.h"

#include "base/Numbers.h"
#include "base/Text.h"

#include <algorithm>
#include <cmath>

namespace pulselark {

namespace {

bool IsGood(const MonitorOption& option, std::string_view value) {
    switch (option.Kind) {
    case OptionKind::Choice:
        return std::find(option.Choices.begin(), option.Choices.end(), value) != option.Choices.end();
    case OptionKind::Number:
        try {
            const double number = ParseDouble(value);
            return number >= option.Least && number <= option.Most &&
                   (!option.Whole || number == std::floor(number));
        } catch (const Failure&) {
            return false;
        }
    default:
        return value.find_first_of("\r\n") == std::string_view::npos;
    }
}

} // namespace

bool MonitorOptions::Set(std::string_view key, std::string_view value) {
    const auto option =
        std::find_if(options_.begin(), options_.end(), [key](const auto& each) { return each.Key == key; });
    const std::string_view bare = Trimmed(value);
    if (option == options_.end() || !IsGood(*option, bare))
        return false;
    option->Value = bare;
    return true;
}

std::string MonitorOptions::Text(std::string_view key) const {
    for (const MonitorOption& option : options_) {
        if (option.Key == key)
            return option.Value;
    }
    return {};
}

double MonitorOptions::Number(std::string_view key) const {
    const std::string text = Text(key);
    return text.empty() ? 0 : ParseDouble(text);
}

} // namespace pulselark
