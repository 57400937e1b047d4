#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace pulselark {

/// The parts of a text between its bars.
inline std::vector<std::string> SplitLines(std::string_view text, std::string_view bar = "|") {
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(bar, begin), text.size());
        lines.emplace_back(text.substr(begin, end - begin));
        begin = end + bar.size();
    }
    return lines;
}

/// The lines of a text, each without its carriage return and line feed.
inline std::vector<std::string> LinesOf(const std::string& text) {
    auto lines = SplitLines(text, "\r\n");
    lines.pop_back(); // behind the last line's end
    return lines;
}

/// The first `count` lines as a file.
inline std::string FileOf(const std::vector<std::string>& lines, std::size_t count,
                          std::string_view end = "\r\n") {
    std::string text;
    for (std::size_t i = 0; i < count && i < lines.size(); ++i)
        text.append(lines[i]).append(end);
    return text;
}

/// What a line of a file holds: B a boolean, N a number, T a text, which takes any line.
inline char KindOf(const std::string& line) {
    if (line.starts_with('#'))
        return 'B';
    return line.starts_with('"') ? 'T' : 'N';
}

} // namespace pulselark
