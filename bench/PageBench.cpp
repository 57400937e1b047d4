#include "PageBench.h"

#include "platform/qt/PagePdf.h"
#include "quickscan/QsPrint.h"
#include "quickscan/QuickScan.h"
#include "session/MainBuffers.h"
#include "session/Replay.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

using namespace pulselark;

namespace {

constexpr Long ScanSeconds = 300;
constexpr int Rounds = 15;

// Milliseconds of processor time.
double TimeOf(const PaperPage& page) {
    std::string bytes;
    const std::clock_t begin = std::clock();
    PagePdf("Quick scan", PaperA4, page, bytes);
    return 1000.0 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

} // namespace

void PrintPageFigures() {
    const Long whole = SessionSeconds;
    if (whole < ScanSeconds)
        return;
    EndReplay();
    SessionSeconds = ScanSeconds;
    FinishQuickScan();
    const PaperPage empty{PaperA4, [](Surface& /*page*/) {}};
    const double firstEmpty = TimeOf(empty);
    const double first = TimeOf(QsPaperPage(PaperA4)); // with everything that is made once: fonts, tables
    std::vector<double> emptyTimes, pageTimes;
    for (int i = 0; i < Rounds; ++i) { // interleaved, so that both meet the same machine
        emptyTimes.push_back(TimeOf(empty));
        pageTimes.push_back(TimeOf(QsPaperPage(PaperA4)));
    }
    const auto median = [](std::vector<double>& times) {
        std::sort(times.begin(), times.end());
        return times[times.size() / 2];
    };
    const double floor = median(emptyTimes);
    const double page = median(pageTimes);
    std::printf("PDF of a page, processor time: first %.1f ms (empty %.1f), then %.1f ms (empty %.1f)   "
                "page / empty %.1f   more than empty: first %.1f ms, then %.1f ms (bound 200)\n",
                first, firstEmpty, page, floor, page / floor, first - firstEmpty, page - floor);
    ResetQuickScan();
    SessionSeconds = whole;
}
