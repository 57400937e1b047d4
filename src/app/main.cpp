#include "app/Commands.h"
#include "app/RunWindow.h"

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace pulselark;

std::optional<WindowOptions> ParseWindowOptions(const std::vector<std::string>& arguments) {
    WindowOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--full-speed")
            options.FullSpeed = true;
        else if (arguments[i] == "--picture" && i + 1 < arguments.size())
            options.Picture = arguments[++i];
        else if (!arguments[i].starts_with("-") && options.File.empty())
            options.File = arguments[i];
        else
            return std::nullopt;
    }
    if (!options.Picture.empty() && !options.FullSpeed)
        return std::nullopt;
    return options;
}

bool HasDisplay() {
    const auto set = [](const char* name) {
        const char* value = std::getenv(name);
        return value != nullptr && *value != '\0';
    };
    return set("DISPLAY") || set("WAYLAND_DISPLAY") || set("QT_QPA_PLATFORM");
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const std::string first = arguments.empty() ? "" : arguments.front();
    if (first == "--help" || first == "-h") {
        std::fputs(HelpText().c_str(), stdout);
        return ExitSuccess;
    }
    if (first == "--version") {
        std::puts("PulseLark " PULSELARK_VERSION);
        return ExitSuccess;
    }
    if (first == "analyse")
        return RunAnalyse(Arguments(arguments).subspan(1));
    if (first == "resave")
        return RunResave(Arguments(arguments).subspan(1));

    auto options = ParseWindowOptions(arguments);
    if (!options)
        return Complain("this is not understood; see pulselark --help", ExitUsage);
    if (!HasDisplay()) {
        if (options->File.empty() && !options->FullSpeed)
            return Complain(
                "there is no display; give a session file to replay it into a picture, or see --help",
                ExitFailure);
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        options->FullSpeed = true;
    }
    return RunWindow(argc, argv, *options);
}
