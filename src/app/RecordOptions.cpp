#include "app/RecordOptions.h"

#include "persistence/SessionFile.h"

#include <algorithm>
#include <charconv>

namespace pulselark {

namespace {

constexpr const char* Usage = "usage: pulselark record --monitor NAME [--option K=V ...] --seconds N --out "
                              "FILE.hti [--fast]";

bool ReadSeconds(const std::string& value, Long& seconds) {
    const char* end = value.data() + value.size();
    const auto [rest, error] = std::from_chars(value.data(), end, seconds);
    return error == std::errc() && rest == end && seconds >= 1 && seconds <= LongestSession;
}

// Empty, or what is wrong.
std::string TakeOption(const std::string& name, const std::string& value, RecordOptions& options) {
    if (name == "--monitor")
        options.Monitor = value;
    else if (name == "--out")
        options.Out = value;
    else if (name == "--seconds" && !ReadSeconds(value, options.Seconds))
        return "--seconds " + value + ": this is no whole number from 1 to " + std::to_string(LongestSession);
    else if (name == "--option") {
        const std::size_t equals = value.find('=');
        if (equals == 0 || equals == std::string::npos)
            return "--option " + value + ": this is not of the form NAME=VALUE";
        options.Settings.emplace_back(value.substr(0, equals), value.substr(equals + 1));
    }
    return {};
}

bool IsOption(const std::string& name) {
    return name == "--monitor" || name == "--out" || name == "--seconds" || name == "--option";
}

std::string Missing(const RecordOptions& options) {
    if (options.Monitor.empty())
        return "--monitor is missing";
    if (options.Seconds == 0)
        return "--seconds is missing";
    return options.Out.empty() ? "--out is missing" : "";
}

template <class List, class NameOf>
std::string Joined(const List& list, NameOf nameOf) {
    std::string text;
    for (const auto& each : list)
        text += (text.empty() ? "" : ", ") + nameOf(each);
    return text;
}

std::string Shortest(double value) {
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed).ptr};
}

std::string ValuesOf(const MonitorOption& option) {
    if (option.Kind == OptionKind::Choice)
        return "one of " + Joined(option.Choices, [](const std::string& choice) { return choice; });
    if (option.Kind == OptionKind::Number)
        return (option.Whole ? "a whole number from " : "a number from ") + Shortest(option.Least) + " to " +
               Shortest(option.Most);
    return "one line of text";
}

std::string WhyRefused(const std::string& monitor, const std::string& key, const std::string& value,
                       const std::vector<MonitorOption>& known) {
    const std::string start = "--option " + std::string(key).append("=").append(value) + ": ";
    const auto option =
        std::find_if(known.begin(), known.end(), [&key](const auto& each) { return each.Key == key; });
    if (option != known.end())
        return start + key + " is " + ValuesOf(*option);
    if (known.empty())
        return start + monitor + " has no options";
    return start + monitor + " has no option of that name, but " +
           Joined(known, [](const MonitorOption& each) { return each.Key; });
}

} // namespace

std::optional<RecordOptions> ParseRecordOptions(Arguments arguments, std::string& problem) {
    RecordOptions options;
    problem.clear();
    for (std::size_t i = 0; i < arguments.size() && problem.empty(); ++i) {
        if (arguments[i] == "--fast")
            options.Fast = true;
        else if (!IsOption(arguments[i]))
            problem = arguments[i] + " is not understood";
        else if (i + 1 == arguments.size())
            problem = arguments[i] + ": its value is missing";
        else {
            problem = TakeOption(arguments[i], arguments[i + 1], options);
            ++i;
        }
    }
    if (problem.empty())
        problem = Missing(options);
    if (problem.empty())
        return options;
    problem += std::string("; ") + Usage;
    return std::nullopt;
}

std::string ApplyRecordOptions(const RecordOptions& options, SystemMonitors& monitors) {
    const auto quoted = [](const std::string& name) { return std::string("\"").append(name).append("\""); };
    std::vector<std::string> names = monitors.Names();
    const EcgMonitor* monitor = monitors.Find(options.Monitor);
    if (monitor == nullptr)
        return "--monitor " + options.Monitor + ": there is no such monitor; there are " +
               Joined(names, quoted);
    for (const auto& [key, value] : options.Settings) {
        if (!monitors.SetOption(options.Monitor, key, value))
            return WhyRefused(options.Monitor, key, value, monitors.Options(options.Monitor));
    }
    if (!options.Fast || monitor->ByProgramClock())
        return {};
    std::erase_if(names,
                  [&monitors](const std::string& name) { return !monitors.Find(name)->ByProgramClock(); });
    return "--fast: " + options.Monitor + " gives its samples in its own time; only " +
           Joined(names, quoted) + " can go faster";
}

} // namespace pulselark
