#include "analysis/CoherencePanel.h"
#include "analysis/ColourSchemes.h"
#include "analysis/History.h"
#include "analysis/SpectrumPanel.h"
#include "platform/qt/QtSurface.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "session/Replay.h"
#include "session/SessionTick.h"
#include "workspace/WindowTest.h"

#include <QFontInfo>

#include <cstdlib>

namespace pulselark {
namespace {

constexpr int Coarse = 8;     // the kept pictures know every eighth shade, so that their files stay small
constexpr int Tolerance = 12; // per channel
constexpr double MostDifferent = 0.0005; // of the pixels

// Every channel at its nearest multiple of eight.
QImage Coarsened(const QImage& picture) {
    QImage coarse = picture.convertToFormat(QImage::Format_RGB888);
    coarse.setDevicePixelRatio(1);
    for (int y = 0; y < coarse.height(); ++y) {
        uchar* line = coarse.scanLine(y);
        for (int x = 0; x < 3 * coarse.width(); ++x)
            line[x] = static_cast<uchar>(std::min(255, (line[x] + Coarse / 2) / Coarse * Coarse));
    }
    return coarse;
}

// The pixels that differ, white on black.
QImage Difference(const QImage& a, const QImage& b, int& different) {
    QImage marks(a.size(), QImage::Format_Mono);
    marks.fill(0);
    different = 0;
    for (int y = 0; y < a.height(); ++y) {
        const uchar* left = a.constScanLine(y);
        const uchar* right = b.constScanLine(y);
        for (int x = 0; x < a.width(); ++x) {
            int most = 0;
            for (int i = 3 * x; i < 3 * x + 3; ++i)
                most = std::max(most, std::abs(left[i] - right[i]));
            if (most > Tolerance) {
                marks.setPixel(x, y, 1);
                ++different;
            }
        }
    }
    return marks;
}

void Compare(const QString& name, const QImage& picture) {
    const QImage actual = Coarsened(picture);
    const QString golden = QString(PULSELARK_SOURCE "/tests/golden/%1.png").arg(name);
    if (qEnvironmentVariableIsSet("PULSELARK_UPDATE_GOLDEN")) {
        ASSERT_TRUE(actual.save(golden, "PNG", 0)) << golden.toStdString();
        return;
    }
    const QImage expected = QImage(golden).convertToFormat(QImage::Format_RGB888);
    const QString left = QString(PULSELARK_BUILD "/%1_%2.png").arg(name);
    if (expected.size() != actual.size()) {
        actual.save(left.arg("actual"));
        FAIL() << golden.toStdString() << " is missing or of another size; see "
               << left.arg("actual").toStdString() << ". PULSELARK_UPDATE_GOLDEN=1 writes it anew.";
    }
    int different = 0;
    const QImage marks = Difference(actual, expected, different);
    if (different <= MostDifferent * actual.width() * actual.height())
        return;
    actual.save(left.arg("actual"));
    expected.save(left.arg("expected"));
    marks.save(left.arg("diff"));
    ADD_FAILURE() << different << " pixels differ: " << left.arg("actual").toStdString() << ", "
                  << left.arg("expected").toStdString() << ", " << left.arg("diff").toStdString()
                  << ". PULSELARK_UPDATE_GOLDEN=1 takes the new picture.";
}

// The demo session, replayed to second 200.
class Golden : public WindowTest {
protected:
    void SetUp() override {
        if (QFontInfo(PanelFont("Arial", 8, false)).family() != "Roboto")
            GTEST_SKIP() << "the pictures are made with the font Roboto, which is not installed";
        Outside->SetUnattended();
        OpenSessionFile(Demo());
        ASSERT_EQ(LastFileResult, FileSuccess);
        while (SessionTick <= 200)
            ReplayTick();
        Panel.Resize(480, 240, 1);
    }

    QtSurface Panel;
};

TEST_F(Golden, CoherenceMidnight) {
    picGCA = &Panel;
    OpenCoherencePanel(true);
    Compare("coherence_midnight", Panel.Picture());
}

TEST_F(Golden, CoherenceFilledAtTwiceTheDensity) {
    ColourSchemeIndex = 2;
    SolidGraphs = On;
    Panel.Resize(320, 160, 2);
    picGCA = &Panel;
    OpenCoherencePanel(true);
    Compare("coherence_filled_dense", Panel.Picture());
}

TEST_F(Golden, HistoryLinenFilled) {
    ColourSchemeIndex = 1;
    HistoryStyle = 8;
    picHisA = &Panel;
    OpenHistoryPanel(200);
    Compare("history_linen_filled", Panel.Picture());
}

TEST_F(Golden, SpectrumEmber) {
    ColourSchemeIndex = 4;
    picSA = &Panel;
    OpenSpectrumPanel(true);
    Compare("spectrum_ember", Panel.Picture());
}

TEST_F(Golden, WorkspaceMist) {
    ColourSchemeIndex = 3;
    SessionTick = 200; // with the cursor on the second that the panels show
    OpenWindow(1280, 800);
    Compare("workspace_mist", Main->grab().toImage());
}

} // namespace
} // namespace pulselark
