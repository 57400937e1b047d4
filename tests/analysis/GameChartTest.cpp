#include "analysis/GameChart.h"

#include "analysis/History.h"
#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"
#include "session/PanelSurfaces.h"
#include "support/PanelTest.h"

#include <algorithm>

namespace pulselark {
namespace {

class GameChart : public PanelTest {
protected:
    GameChart() { picGame = &Chart; }
    ~GameChart() override { picGame = &NoSurface(); }

    RecordingSurface Chart{640, 345}; // a row of 10 % is 30 high, a tenth of a second 64 wide
};

TEST_F(GameChart, TheMarkerFollowsTheHistoryWhileTheChartIsOpen) {
    AnalysisSecond = 20;
    CoherenceAvgA[21] = 0.055F;
    PeakIndexA = 64; // one beat a second
    RedrawHistory();
    EXPECT_FALSE(imA.Visible);

    OpenGamesFromHistory();
    const auto point = [] { return PanelPoint{imA.Left + 0.6 * imA.Size, imA.Top + 0.72 * imA.Size}; };
    EXPECT_NEAR(point().X, 320, 1e-6);
    EXPECT_NEAR(point().Y, 180, 1e-3); // six rows of the eleven above 0 % lie over it
    EXPECT_EQ(labGame.Caption, "50%");
    CoherenceAvgA[21] = 0.11F;
    PeakIndexA = 32; // 120 beats a minute
    RedrawHistory();
    EXPECT_NEAR(point().X, 0, 1e-6);
    EXPECT_NEAR(point().Y, 30, 1e-3);
    PeakIndexA = 0;
    RedrawHistory();
    EXPECT_FALSE(imA.Visible) << "no peak, no place";
    CloseGames();
    PeakIndexA = 64;
    RedrawHistory();
    EXPECT_FALSE(imA.Visible);
}

TEST_F(GameChart, GridAndLabelsStandWhereTheMarkerIsMeasured) {
    DrawGameChart();
    const auto row = [this](double y) {
        return std::count_if(Chart.Segments.begin(), Chart.Segments.end(),
                             [y](const auto& line) { return line.Y1 == y && line.Y2 == y; });
    };
    for (int percent = 0; percent <= 100; percent += 10)
        EXPECT_EQ(row(345 - 330 + 3 * percent), 1) << percent;
    const auto inkOf = [this](double x) {
        return std::find_if(Chart.Segments.begin(), Chart.Segments.end(),
                            [x](const auto& line) { return line.X1 == x && line.X2 == x; })
            ->Ink;
    };
    EXPECT_EQ(inkOf(640), inkOf(320)) << "0.5, 1.0 and 1.5 s are the main lines";
    EXPECT_NE(inkOf(320), inkOf(256));
    const auto text = [this](const std::string& words) {
        return std::any_of(Chart.Texts.begin(), Chart.Texts.end(),
                           [&](const auto& printed) { return printed.Value == words; });
    };
    for (const char* words : {"100%", "50", "1.0", "60", "0.6", "100"})
        EXPECT_TRUE(text(words)) << words;
    ExpectNoCollision(Chart);
    for (const Size& size : Sizes) {
        Chart.Resize(size.W, size.H);
        Chart.Forget();
        DrawGameChart();
        ExpectNoCollision(Chart);
    }
    Chart.Resize(0, 0);
    DrawGameChart(); // closed windows take every call
}

} // namespace
} // namespace pulselark
