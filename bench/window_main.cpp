// pulselark_window_bench: what a tick of the window costs: analyses, drawing of the panels, painting of the
// window, on a workspace of 1600 x 1000 with two channels and waterfalls of seven layers; beside the same
// curves as bare polylines. Processor time is measured, so that other programs count for little.
#include "BenchSession.h"
#include "CurveRecorder.h"
#include "PageBench.h"
#include "analysis/CoherencePanel.h"
#include "analysis/ColourSchemes.h"
#include "analysis/History.h"
#include "analysis/HrvPanel.h"
#include "analysis/InputCD.h"
#include "analysis/ScaleDrag.h"
#include "analysis/SpectrumPanel.h"
#include "persistence/OpenSession.h"
#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "session/Seek.h"
#include "session/SessionTick.h"
#include "session/StartUp.h"
#include "workspace/WindowPlatform.h"
#include "workspace/frmMain.h"

#include <QApplication>
#include <QPainter>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <list>
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

double ProcessorMilliseconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

template <class Routine>
void Time(std::vector<double>& milliseconds, Routine routine) {
    const double start = ProcessorMilliseconds();
    routine();
    milliseconds.push_back(ProcessorMilliseconds() - start);
}

void DrawTick() {
    DrawEcgA(*picIAP, SessionTick);
    DrawEcgB(*picIBP, SessionTick);
    DrawAnalysisPanels();
}

// The curves of a tick without anything around them: each a polyline of the toolkit, of width 1 and drawn
// once, on pictures of the panels' sizes.
class BareCurves {
public:
    // Takes the curves from a tick that is drawn for the purpose.
    BareCurves() {
        Surface** const panels[] = {&picIAP, &picIBP,  &picSA,   &picSB,   &picGCA,
                                    &picGCB, &picHisA, &picHisB, &picHRVA, &picHRVB};
        std::list<CurveRecorder> recorders;
        for (Surface** panel : panels)
            *panel = &recorders.emplace_back(**panel);
        DrawTick();
        std::size_t i = 0;
        for (const CurveRecorder& recorder : recorders) {
            *panels[i++] = &recorder.Panel();
            Keep(recorder);
        }
    }
    void Draw() {
        for (Panel& panel : panels_) {
            QPainter painter(&panel.Picture);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(Qt::white);
            for (const QPolygonF& curve : panel.Curves)
                painter.drawPolyline(curve);
        }
    }

private:
    struct Panel {
        QImage Picture;
        std::vector<QPolygonF> Curves;
    };
    // A curve that is drawn twice, over its own shadow, counts once.
    void Keep(const CurveRecorder& recorder) {
        const QSize size(static_cast<int>(recorder.Width()), static_cast<int>(recorder.Height()));
        Panel panel{QImage(size, QImage::Format_RGB32), {}};
        for (const CurveRecorder::Points& points : recorder.Curves()) {
            QPolygonF curve;
            for (const PanelPoint& point : points)
                curve << QPointF(point.X, size.height() - point.Y);
            if (panel.Curves.empty() || curve != panel.Curves.back())
                panel.Curves.push_back(curve);
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
        Time(shares.Drawing, &DrawTick);
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
    const double whole = Median(shares.Whole);
    const double bare = Median(shares.Bare);
    const auto part = [whole](const char* name, const std::vector<double>& times) {
        std::printf("  %s %.2f (%.0f %%)", name, Median(times), 100 * Median(times) / whole);
    };
    std::printf("%-9s tick %5.2f ms:", title, whole);
    part("analysis", shares.Analysis);
    part("drawing", shares.Drawing);
    part("painting", shares.Painting);
    std::printf("   seek %5.2f ms   bare polylines %5.2f ms: tick / bare %.2f, drawing / bare %.2f\n",
                Median(shares.Seek), bare, whole / bare, Median(shares.Drawing) / bare);
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
    for (SessionTick = FirstSecond - RingSlots; SessionTick < FirstSecond; ++SessionTick) {
        AnalysisSecond = SessionTick;
        RunAnalyses();
    }
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
