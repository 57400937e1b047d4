#include "analysis/HistoryStyles.h"

#include <algorithm>
#include <array>

namespace pulselark {

namespace {

using enum SeriesStyle;
constexpr std::array<HistoryStyleParts, 9> Styles{{{Line, None, true},
                                                   {None, Line, false},
                                                   {Line, Line, false},
                                                   {Filled, None, true},
                                                   {None, Filled, false},
                                                   {Filled, Line, true},
                                                   {Line, Filled, false},
                                                   {Filled, Filled, false},
                                                   {Filled, Filled, true}}};

} // namespace

const HistoryStyleParts& StyleOf(Integer style) {
    return Styles[static_cast<std::size_t>(std::clamp<int>(style, 1, Styles.size()) - 1)];
}

std::string RateLabel(int percent) {
    const std::string whole = std::to_string(percent / 2 + 40);
    return percent % 2 == 0 ? whole : whole + ".5";
}

} // namespace pulselark
