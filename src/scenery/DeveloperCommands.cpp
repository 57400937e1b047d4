#include "scenery/DeveloperCommands.h"

#include "scenery/BreathPhase.h"
#include "scenery/OverlayColour.h"
#include "scenery/PacerDisc.h"
#include "scenery/Scenery.h"
#include "scenery/TidalPicture.h"
#include "scenery/TidalState.h"

#include <QElapsedTimer>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>

namespace pulselark {

namespace {

// A made-up session, for pictures of the tidal view.
TidalState ExampleOfTidal(double seconds, double value) {
    TidalState state;
    LinkMessage message;
    message.Kind = LinkKind::Command;
    message.Command = CmdTick;
    message.Parameter[0] = std::floor(seconds);
    state.Take(message);
    message.Kind = LinkKind::Value;
    for (int second = 0; second < static_cast<int>(seconds); ++second) {
        message.Value = value * (0.55 + 0.3 * std::sin(second * 0.09) + 0.15 * std::sin(second * 0.41));
        state.Take(message);
    }
    message.Kind = LinkKind::Spectrum;
    for (std::size_t i = 0; i < LinkSpectrumItems; ++i) {
        const auto bin = static_cast<double>(i);
        message.Items.at(i) = 40 * std::exp(-bin / 60) * std::pow(std::sin(bin * 0.33), 2) + 1;
    }
    state.Take(message);
    message.Kind = LinkKind::HeartRate;
    for (std::size_t i = 0; i < LinkHeartRateItems; ++i) {
        const double off = (static_cast<double>(i) - 26) / 3;
        message.Items.at(i) = 0.01 * std::exp(-off * off) + 0.0006 * (1 + std::sin(static_cast<double>(i)));
    }
    state.Take(message);
    return state;
}

void PrintCost(const char* name, double milliseconds, double floor) {
    constexpr double Budget = 1000.0 / 30;
    std::printf("%-26s %7.2f ms a picture %6.1f %% of a core at 30 a second %6.2f x the bare copy\n", name,
                milliseconds, 100 * milliseconds / Budget, milliseconds / floor);
}

// Milliseconds of processor time that a picture takes, on average: the dear ones count as well.
template <class Routine>
double CostOf(int pictures, Routine routine) {
    const std::clock_t begin = std::clock();
    for (int i = 0; i < pictures; ++i)
        routine(i);
    return 1000.0 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC / pictures;
}

} // namespace

int RunPictureOfScenery(const PictureOptions& options) {
    const QSize size(options.Width, options.Height);
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    if (options.Tidal) {
        PaintTidal(painter, size, ExampleOfTidal(options.At, options.Value));
    } else {
        const double light = std::clamp(options.Value / 100, 0.0, 1.0);
        const auto scenery = SceneryKinds()[static_cast<std::size_t>(options.Scenery)].Make();
        scenery->Resize(size, light);
        scenery->Draw(painter, {options.Level >= 2 ? options.At : 0.0, light});
        if (options.Level == 0 || options.Level == 1) {
            PacerDisc pacer;
            pacer.Resize(size, OverlayColour(0));
            pacer.Draw(painter, BreathPhase().At(options.At));
        }
    }
    painter.end();
    if (image.save(options.File))
        return 0;
    std::fprintf(stderr, "widefb: %s cannot be written\n", qPrintable(options.File));
    return 1;
}

int RunSceneryBench(double seconds, int width, int height) {
    constexpr double Rate = 30;
    const int pictures = std::max(1, static_cast<int>(seconds * Rate));
    QImage image(width, height, QImage::Format_RGB32);
    QImage bare(width, height, QImage::Format_RGB32);
    bare.fill(0x336699);
    const double floor = CostOf(pictures, [&](int) {
        QPainter painter(&image);
        painter.drawImage(0, 0, bare);
    });
    std::printf("%d x %d, %d pictures each\n", width, height, pictures);
    PrintCost("bare copy", floor, floor);
    PacerDisc pacer;
    pacer.Resize(image.size(), OverlayColour(0));
    for (const SceneryKind& kind : SceneryKinds()) {
        const auto scenery = kind.Make();
        QElapsedTimer timer;
        timer.start();
        scenery->Resize(image.size(), 0.5);
        const auto preparing = timer.elapsed();
        const auto draw = [&](int i, bool withPacer) {
            const double time = i / Rate;
            QPainter painter(&image);
            scenery->Draw(painter, {time, 0.5 + 0.5 * std::sin(time * 0.4)});
            if (withPacer)
                pacer.Draw(painter, BreathPhase().At(time));
        };
        PrintCost(kind.Name, CostOf(pictures, [&](int i) { draw(i, false); }), floor);
        PrintCost("  with the pacer", CostOf(pictures, [&](int i) { draw(i, true); }), floor);
        std::printf("  painted for its size in %lld ms\n", static_cast<long long>(preparing));
    }
    return 0;
}

} // namespace pulselark
