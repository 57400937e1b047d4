#include "analysis/ScaleDrag.h"

#include "analysis/CoherencePanel.h"
#include "analysis/History.h"
#include "analysis/HrvPanel.h"
#include "analysis/SpectrumPanel.h"
#include "session/MainBuffers.h"
#include "session/PanelSurfaces.h"
#include "support/PanelTest.h"
#include "support/Signals.h"

#include <cmath>

namespace pulselark {
namespace {

constexpr double PanelWidth = 400;

struct Dragged {
    const char* Name;
    double& Value;
    double Least, Most, PixelsPerStep;
    void (*Drag)(int button, double y);
    Surface *&A, *&B;
};
const Dragged Panels[] = {
    {"spectrum", SpectrumGain, 80, 160, 1,
     [](int button, double y) { DragSpectrumScale(button, 200, y, PanelWidth); }, picSA, picSB},
    {"coherence", CoherenceGain, 85, 130, 2, [](int button, double y) { DragCoherenceScale(button, y); },
     picGCA, picGCB},
    {"HRV", HrvGain, 100, 160, 1, [](int button, double y) { DragHrvScale(button, y); }, picHRVA, picHRVB},
    {"history", HistoryGain, 85, 130, 2, [](int button, double y) { DragHistoryScale(button, 200, y); },
     picHisA, picHisB}};

class ScaleDrags : public SessionTest {
protected:
    ScaleDrags() {
        MakeSession(100);
        AnalysisSecond = 50;
        std::size_t i = 0;
        for (const Dragged& panel : Panels) {
            panel.A = &Surfaces[i++];
            panel.B = &Surfaces[i++];
        }
        for (RecordingSurface& surface : Surfaces)
            surface.SetPersistent(true);
        ForgetAll();
    }
    void ForgetAll() {
        for (RecordingSurface& surface : Surfaces)
            surface.Forget();
    }

    RecordingSurface Surfaces[8] = {{PanelWidth, 200}, {PanelWidth, 200}, {PanelWidth, 200},
                                    {PanelWidth, 200}, {PanelWidth, 200}, {PanelWidth, 200},
                                    {PanelWidth, 200}, {PanelWidth, 200}};
};

TEST_F(ScaleDrags, GainsStopAtTheirLimitsAndComeBackAtOnce) {
    for (const Dragged& panel : Panels) {
        SCOPED_TRACE(panel.Name);
        const auto drag = [&](double y) {
            panel.Drag(1, y);
            return 100 * std::log(panel.Value) / std::log(100.0);
        };
        panel.Drag(0, 60);
        EXPECT_NEAR(drag(60 + 10 * panel.PixelsPerStep), 110, 1e-9);
        EXPECT_NEAR(drag(60 + 3 * panel.PixelsPerStep), 103, 1e-9); // from the same anchor
        EXPECT_NEAR(drag(5000), panel.Most, 1e-9);
        EXPECT_NEAR(drag(5000 - 4 * panel.PixelsPerStep), panel.Most - 4, 1e-9);
        EXPECT_NEAR(drag(-5000), panel.Least, 1e-9);
        EXPECT_NEAR(drag(-5000 + 4 * panel.PixelsPerStep), panel.Least + 4, 1e-9);
        panel.Drag(2, 0); // another button
        panel.Drag(0, 0);
        drag(-5000); // a stored limit is a place to start from
        panel.Drag(0, 0);
        EXPECT_NEAR(drag(2 * panel.PixelsPerStep), panel.Least + 2, 1e-9);
        panel.Value = 5; // no gain of this panel: counts as 100
        panel.Drag(0, 0);
        EXPECT_NEAR(drag(panel.PixelsPerStep), 101, 1e-9);
    }
}

// 400 units are 6000 twips, so a unit is 0.15 Hz.
TEST_F(ScaleDrags, RangeOfTheSpectrum) {
    const auto drag = [](double x) {
        DragSpectrumScale(1, x, 60, PanelWidth);
        return SpectrumMaxHz;
    };
    DragSpectrumScale(0, 200, 60, PanelWidth);
    EXPECT_EQ(drag(300), 49);
    EXPECT_EQ(drag(200), 64);
    EXPECT_EQ(drag(100), 64);
    EXPECT_EQ(drag(120), 61);
    EXPECT_EQ(drag(3000), 10);
    EXPECT_EQ(drag(2980), 13);
    EXPECT_DOUBLE_EQ(SpectrumGain, 100);
}

TEST_F(ScaleDrags, SpanOfTheHistory) {
    const auto drag = [](double x) {
        DragHistoryScale(1, x, 60);
        return HistorySpanSeconds;
    };
    DragHistoryScale(0, 200, 60);
    EXPECT_EQ(drag(250), 90); // 60^1.1
    EXPECT_EQ(drag(5000), 364);
    EXPECT_EQ(drag(4990), 335); // 60^1.42
    EXPECT_EQ(drag(-5000), 10);
    EXPECT_EQ(drag(-4990), 11); // 60^0.58
    HistorySpanSeconds = 400;   // counts as 60
    DragHistoryScale(0, 0, 60);
    EXPECT_EQ(drag(50), 90);
    EXPECT_DOUBLE_EQ(HistoryGain, 100);
}

TEST_F(ScaleDrags, PicturesArePassingUntilTheRelease) {
    for (const Dragged& panel : Panels) {
        SCOPED_TRACE(panel.Name);
        ForgetAll();
        BeginScaleDrag();
        panel.Drag(0, 60);
        EXPECT_TRUE(panel.A->Persistent());
        panel.Drag(1, 60); // nothing has changed
        panel.Drag(1, 65);
        for (Surface* surface : {panel.A, panel.B}) {
            EXPECT_FALSE(surface->Persistent());
            EXPECT_EQ(dynamic_cast<RecordingSurface&>(*surface).Calls, "CpC");
        }
        const auto drawnOnce = dynamic_cast<RecordingSurface&>(*panel.A).Order;
        ForgetAll();
        EndScaleDrag();
        for (const RecordingSurface& surface : Surfaces)
            EXPECT_TRUE(surface.Persistent() && !surface.Order.empty());
        EXPECT_EQ(dynamic_cast<RecordingSurface&>(*panel.A).Order, drawnOnce);
        EXPECT_EQ(ScaleDragging, Off);
    }
}

TEST_F(ScaleDrags, EscapeBringsEverythingBack) {
    CoherenceGain = Gain(90); // a change from before the drag stays
    BeginScaleDrag();
    for (const Dragged& panel : Panels)
        panel.Drag(0, 60);
    for (const Dragged& panel : Panels)
        panel.Drag(1, 75);
    DragSpectrumScale(1, 300, 75, PanelWidth);
    DragHistoryScale(1, 300, 75);
    EXPECT_NE(SpectrumMaxHz, 64);
    EXPECT_NE(HistorySpanSeconds, 60);
    ForgetAll();
    CancelScaleDrag();
    EXPECT_EQ(SpectrumMaxHz, 64);
    EXPECT_EQ(HistorySpanSeconds, 60);
    for (const double gain : {SpectrumGain, HrvGain, HistoryGain})
        EXPECT_DOUBLE_EQ(gain, 100);
    EXPECT_DOUBLE_EQ(CoherenceGain, Gain(90));
    for (const RecordingSurface& surface : Surfaces)
        EXPECT_TRUE(surface.Persistent() && !surface.Order.empty());
    EXPECT_EQ(ScaleDragging, Off);
}

TEST_F(ScaleDrags, ABusySessionAndALockedRecordingStandStill) {
    const auto tryAll = [&] {
        for (const Dragged& panel : Panels) {
            const double before = panel.Value;
            panel.Drag(1, 100);
            EXPECT_EQ(panel.Value, before) << panel.Name;
        }
    };
    for (const Dragged& panel : Panels)
        panel.Drag(0, 60);
    for (Boolean* busy : {&LoadingSession, &SavingSession, &Rescanning, &SeekBusy, &SessionRunning}) {
        *busy = On;
        tryAll();
        *busy = Off;
    }
    EXPECT_EQ(ScaleDragging, Off);
    for (const RecordingSurface& surface : Surfaces)
        EXPECT_TRUE(surface.Untouched());
    LockScreens = Off; // a recording that is not locked shows its newest second
    SessionRunning = On;
    RecordedSeconds = 70;
    SessionTick = 60;
    DragCoherenceScale(1, 70);
    EXPECT_EQ(AnalysisSecond, 70);
    SessionTick = 80;
    DragHistoryScale(1, 200, 70);
    EXPECT_EQ(AnalysisSecond, 80);
}

} // namespace
} // namespace pulselark
