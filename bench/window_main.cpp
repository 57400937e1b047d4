// pulselark_window_bench: what a tick of the window costs: analyses, drawing of the panels, painting of the
// window, on a workspace of 1600 x 1000 with two channels and waterfalls of seven layers; beside the same
// curves as bare polylines.
#include "BenchSession.h"
#include "PageBench.h"
#include "analysis/CoherencePanel.h"
#include "analysis/ColourSchemes.h"
#include "analysis/History.h"
#include "analysis/HrvPanel.h"
#include "analysis/InputCD.h"
#include "analysis/ScaleDrag.h"
#include "analysis/SpectrumPanel.h"
#include "persistence/OpenSession.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "session/Seek.h"
#include "session/SessionTick.h"
#include "session/StartUp.h"
#include "workspace/WindowPlatform.h"
#include "workspace/frmMain.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

using namespace pulselark;

namespace {

constexpr Long FirstSecond = 600;
constexpr Long Ticks = 200;

double Median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2),
                     values.end());
    return values[values.size() / 2];
}

template <class Routine>
void Time(std::vector<double>& milliseconds, Routine routine) {
    QElapsedTimer timer;
    timer.start();
    routine();
    milliseconds.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
}

// The curves of a tick without anything around them: per channel one of 513 points, seven of 512, seven of
// 107, two of 59 and three of 126 in all, one line of width 1 each, on pictures of the panels' sizes.
class BareCurves {
public:
    BareCurves() {
        Add(*picIA, 513, 1);
        Add(*picSA, 512, 7);
        Add(*picGCA, 107, 7);
        Add(*picHisA, 59, 2);
        Add(*picHRVA, 126, 1);
    }
    void Draw() {
        constexpr int Channels = 2;
        for (int channel = 0; channel < Channels; ++channel) {
            for (Panel& panel : panels_) {
                QPainter painter(&panel.Picture);
                painter.setRenderHint(QPainter::Antialiasing);
                painter.setPen(Qt::white);
                for (int i = 0; i < panel.Count; ++i)
                    painter.drawPolyline(panel.Curve);
            }
        }
    }

private:
    struct Panel {
        QImage Picture;
        QPolygonF Curve;
        int Count;
    };
    void Add(const Surface& surface, int points, int count) {
        const QSize size(static_cast<int>(surface.Width()), static_cast<int>(surface.Height()));
        Panel panel{QImage(size, QImage::Format_RGB32), {}, count};
        for (int i = 0; i < points; ++i) {
            const double x = size.width() * static_cast<double>(i) / points;
            panel.Curve << QPointF(x, size.height() * (0.5 + 0.3 * std::sin(i * 0.9) * std::cos(i * 0.07)));
        }
        panels_.push_back(std::move(panel));
    }
    std::vector<Panel> panels_;
};

struct Shares {
    std::vector<double> Analysis, Drawing, Painting, Whole, Seek, Bare;
};

Shares MeasureTicks(frmMain& window, BareCurves& bare) {
    Shares shares;
    const auto paint = [&window] {
        window.Mirror();
        QCoreApplication::processEvents();
    };
    for (Long i = 0; i < Ticks; ++i) {
        SessionTick = AnalysisSecond = FirstSecond + i;
        Time(shares.Analysis, &RunAnalyses);
        Time(shares.Drawing, [] {
            DrawEcgA(*picIAP, SessionTick);
            DrawEcgB(*picIBP, SessionTick);
            DrawAnalysisPanels();
        });
        Time(shares.Painting, paint);
        shares.Whole.push_back(shares.Analysis.back() + shares.Drawing.back() + shares.Painting.back());
        Time(shares.Bare, [&bare] { bare.Draw(); });
    }
    for (Long i = 0; i < Ticks; ++i) {
        const Long second = FirstSecond + i * 7 % 2000;
        Time(shares.Seek, [second, &paint] {
            SeekToSecond(second);
            paint();
        });
    }
    return shares;
}

// Median milliseconds of one movement of the mouse while a scale is dragged, the picture it leads to
// included.
double MeasureDrag(frmMain& window, void (*drag)(int button, double x, double y)) {
    constexpr int Moves = 200;
    std::vector<double> milliseconds;
    BeginScaleDrag();
    drag(0, 100, 50);
    for (int i = 1; i <= Moves; ++i) {
        Time(milliseconds, [&] {
            drag(1, 100 + i % 40, 50 + i % 30);
            window.Mirror();
            QCoreApplication::processEvents();
        });
    }
    CancelScaleDrag();
    return Median(milliseconds);
}

void PrintDrags(frmMain& window) {
    struct Panel {
        const char* Name;
        void (*Drag)(int, double, double);
    };
    const Panel panels[] = {{"spectrum", [](int b, double x, double y) { DragSpectrumScale(b, x, y, 530); }},
                            {"coherence", [](int b, double, double y) { DragCoherenceScale(b, y); }},
                            {"history", &DragHistoryScale},
                            {"HRV", [](int b, double, double y) { DragHrvScale(b, y); }}};
    std::printf("dragging a scale, pictures a second:");
    for (const Panel& panel : panels)
        std::printf("  %s %.0f", panel.Name, 1000 / MeasureDrag(window, panel.Drag));
    std::printf("\n");
}

void Print(const char* title, const Shares& shares) {
    const double bare = Median(shares.Bare);
    std::printf("%-10s tick %6.2f ms = analysis %5.2f + drawing %5.2f + painting %5.2f   seek %6.2f ms   "
                "bare polylines %5.2f ms"
                "   drawing / bare %4.2f\n",
                title, Median(shares.Whole), Median(shares.Analysis), Median(shares.Drawing),
                Median(shares.Painting), Median(shares.Seek), bare, Median(shares.Drawing) / bare);
}

} // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QApplication application(argc, argv);
    WindowPlatform platform;
    platform.SetUnattended();
    InitApplication(false);
    FinishStartUp();
    const BenchSession session;
    OpenSessionFile(session.FileName());
    timReplay.Enabled = false;
    frmMain window(platform);
    window.resize(1600, 1000);
    window.show();
    window.Mirror();
    QCoreApplication::processEvents();
    std::printf("%s, medians of %d ticks\n", session.FileName().c_str(), static_cast<int>(Ticks));
    BareCurves bare;
    for (const Boolean solid : {Off, On}) {
        SolidGraphs = solid;
        window.ApplyLook();
        Print(solid != Off ? "filled" : "unfilled", MeasureTicks(window, bare));
        PrintDrags(window);
    }
    PrintPageFigures();
    return 0;
}
