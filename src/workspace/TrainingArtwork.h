#pragma once

#include <QColor>
#include <QImage>
#include <QRectF>
#include <QSize>

#include <array>

class QPainter;

/// The still picture behind the bars of the training view: one of three backgrounds, the dark wells with
/// their score tracks, and the area of the reference bell.
namespace pulselark {

/// Where the parts of the panel stand, in pixels from its upper left corner.
struct TrainingParts {
    QRectF Bars; ///< room of the bars, and of the bell: ten steps from the base to full height
    QRectF BarWell;
    std::array<QRectF, 2> Tracks; ///< of the score bars: session, index
    std::array<QRectF, 2> ScoreWells;
    QRectF Left; ///< column left of the wells
    double Rule; ///< y of the line above the song
};
TrainingParts TrainingPartsFor(const QSize& panel);

// Below this size the panel drops its legend, below the last width also the bell's heading.
inline constexpr int FullPanelWidth = 900;
inline constexpr int FullPanelHeight = 600;
inline constexpr int HeadedPanelWidth = 480;
/// Height below which the card gives its room to the scenery.
inline constexpr int CardedPanelHeight = 700;

namespace TrainingColour {
inline constexpr QColor Ink(0x2B, 0x36, 0x58);
inline constexpr QColor Hint(0x56, 0x61, 0x82);
inline constexpr QColor Well(0x16, 0x20, 0x3F);
inline constexpr QColor Track(0x2A, 0x37, 0x67);
inline constexpr QColor TrackTick(0x5D, 0x6C, 0xA5);
inline constexpr QColor Bell(0xAE, 0xBE, 0xF5);
inline constexpr QColor BellTop(0x5D, 0x72, 0xC2);
inline constexpr QColor BellBottom(0x33, 0x42, 0x7F);
inline constexpr QColor CardEdge(0xD6, 0xDE, 0xF2);
inline constexpr QColor SessionBar(254, 175, 98);
inline constexpr QColor WindowBar(79, 133, 177);
} // namespace TrainingColour

/// The two ends of background 0 to 2, from the top down.
std::array<QColor, 2> TrainingBackground(int background);

/// Paints background and wells over the whole panel.
void PaintTrainingArtwork(QPainter& painter, const QSize& panel, int background);

/// Area under the bell, in a box whose base is its lower edge.
void PaintBellArea(QPainter& painter, const QRectF& box);

} // namespace pulselark
