#include "workspace/DefaultPlaces.h"

#include <cmath>
#include <numeric>
#include <span>

namespace pulselark {

namespace {

// Widths of the two columns and heights of their modules in layout units, 15 to the pixel.
constexpr std::array<int, 2> Columns{5100, 9450};
constexpr std::array<int, 3> LeftRows{2250, 3000, 3000};
constexpr std::array<int, 2> RightRows{4200, 4200};
constexpr int Grid = 4;

struct Stretch {
    int From;
    int Size;
};

// Shares out `length` by the weights, with `gap` between the parts. Edges are rounded to the grid, not sizes,
// so that neighbours keep in line.
template <std::size_t N>
std::array<Stretch, N> Share(int from, int length, int gap, const std::array<int, N>& weights) {
    const double whole = std::accumulate(weights.begin(), weights.end(), 0);
    const double room = length - gap * static_cast<double>(N - 1);
    std::array<Stretch, N> parts;
    double done = 0;
    for (std::size_t i = 0; i < N; ++i) {
        const auto edge = [&](double weight) {
            return weight >= whole ? static_cast<int>(room)
                                   : static_cast<int>(std::lround(room * weight / whole / Grid)) * Grid;
        };
        const int start = edge(done);
        done += weights[i];
        parts[i] = {from + start + gap * static_cast<int>(i), edge(done) - start};
    }
    return parts;
}

} // namespace

std::array<QRect, AnalysisModules> DefaultPlaces(const QRect& area, int gap) {
    const auto columns = Share(area.left(), area.width(), gap, Columns);
    const auto left = Share(area.top(), area.height(), gap, LeftRows);
    const auto right = Share(area.top(), area.height(), gap, RightRows);
    const auto place = [&](int column, const Stretch& row) {
        const Stretch& across = columns[static_cast<std::size_t>(column)];
        return QRect(across.From, row.From, across.Size, row.Size);
    };
    return {place(0, left[0]), place(0, left[1]), place(1, right[0]), place(1, right[1]), place(0, left[2])};
}

} // namespace pulselark
