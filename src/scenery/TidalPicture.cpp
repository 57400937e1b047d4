#include "scenery/TidalPicture.h"

#include <QLinearGradient>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace pulselark {

namespace {

struct Look {
    QColor Desk, Well, Rim, Grid, Text, Strong;
    std::array<QColor, 4> Ramp; ///< foot to top of a filled graph
    QColor Curve;
};

// The program's five schemes; the text has at least 4.5 on the well and the desk (WCAG 2).
const Look& LookOf(int scheme) {
    static const std::array<Look, 5> Looks{{
        {{0x11, 0x1A, 0x4A},
         {0x0A, 0x0F, 0x2B},
         {0x57, 0x69, 0xB5},
         {0x23, 0x35, 0x89},
         {0x81, 0xEB, 0xB5},
         {0xFF, 0xFF, 0xFF},
         {{{0x34, 0x40, 0x8C}, {0x8A, 0x68, 0xE0}, {0xCD, 0xB4, 0xFF}, {0xFF, 0xFF, 0xFF}}},
         {0xCD, 0xB4, 0xFF}},
        {{0xE9, 0xE9, 0xE2},
         {0xFF, 0xFF, 0xFF},
         {0xAA, 0xA6, 0xB4},
         {0xE4, 0xE4, 0xDE},
         {0x5C, 0x50, 0x84},
         {0x3A, 0x33, 0x54},
         {{{0xD9, 0xCB, 0xD6}, {0xDE, 0x9A, 0x93}, {0xCE, 0x49, 0x41}, {0xBF, 0x3A, 0x32}}},
         {0xCE, 0x49, 0x41}},
        {{0x2A, 0x18, 0x38},
         {0x18, 0x0D, 0x20},
         {0x89, 0x6D, 0xA8},
         {0x62, 0x41, 0x7A},
         {0x91, 0xD3, 0xDA},
         {0xFF, 0xFF, 0xFF},
         {{{0x55, 0x3A, 0x70}, {0xA8, 0x6B, 0xB8}, {0xE6, 0x97, 0xE1}, {0xFF, 0xFF, 0xFF}}},
         {0xE6, 0x97, 0xE1}},
        {{0xDE, 0xDF, 0xDC},
         {0xFA, 0xFA, 0xF7},
         {0xAB, 0xAB, 0xA6},
         {0xD9, 0xD9, 0xD5},
         {0x50, 0x50, 0x50},
         {0x33, 0x36, 0x3B},
         {{{0xC3, 0xCE, 0xDA}, {0x7F, 0xB0, 0xDF}, {0x1C, 0x77, 0xC7}, {0x00, 0x50, 0xB9}}},
         {0x1C, 0x77, 0xC7}},
        {{0x1B, 0x1B, 0x20},
         {0x12, 0x12, 0x15},
         {0x68, 0x68, 0x6C},
         {0x42, 0x42, 0x42},
         {0xAF, 0xAF, 0xAF},
         {0xFF, 0xAF, 0x46},
         {{{0x4A, 0x3B, 0x2C}, {0x9A, 0x64, 0x30}, {0xE3, 0x88, 0x38}, {0xFF, 0xAF, 0x46}}},
         {0xE3, 0x88, 0x38}},
    }};
    return Looks.at(static_cast<std::size_t>(scheme));
}

QFont Font(double pixels, int weight) {
    QFont font;
    font.setFamilies({"Roboto", "Noto Sans", "DejaVu Sans"});
    font.setPixelSize(std::max(11, static_cast<int>(std::lround(pixels))));
    font.setWeight(static_cast<QFont::Weight>(weight));
    return font;
}

QString ClockTime(const TidalState& state) {
    constexpr int Minute = 60;
    return QString("%1:%2")
        .arg(state.Second / Minute, 2, 10, QChar('0'))
        .arg(state.Second % Minute, 2, 10, QChar('0'));
}

QString Percent(const TidalState& state) {
    return state.Coherence.empty() ? QString::fromUtf8("\u2013")
                                   : QString::number(std::lround(state.Coherence.back()));
}

struct Mark {
    double At; ///< 0 to 1 of the well's width
    QString Text;
};

class TidalPainter {
public:
    TidalPainter(QPainter& painter, QSize size, const TidalState& state)
        : painter_(painter), state_(state), look_(LookOf(state.Scheme)), size_(size),
          gap_(std::clamp(std::min(size.width(), size.height()) / 40.0, 8.0, 24.0)),
          body_(std::clamp(size.height() / 54.0, 11.0, 20.0)) {}

    void Paint();

private:
    QRectF Well(const QRectF& frame, const QString& title, std::span<const Mark> marks);
    void FillUnder(const QRectF& well, const QPolygonF& curve);
    void PaintHead(const QRectF& frame);
    void PaintCoherence(const QRectF& frame);
    void PaintSpectrum(const QRectF& frame, const QString& title, std::span<const float> items, double scale,
                       std::span<const Mark> marks, bool bars);

    QPainter& painter_;
    const TidalState& state_;
    const Look& look_;
    QSizeF size_;
    double gap_, body_;
};

// Title above, marks below, grid lines through the marks. Returns the rectangle of the graph.
QRectF TidalPainter::Well(const QRectF& frame, const QString& title, std::span<const Mark> marks) {
    const double line = body_ * 1.5;
    const QRectF well = frame.adjusted(0, line + 2, 0, -line);
    painter_.setFont(Font(body_, QFont::Medium));
    painter_.setPen(look_.Strong);
    painter_.drawText(QRectF(frame.left(), frame.top(), frame.width(), line),
                      Qt::AlignLeft | Qt::AlignVCenter, title);
    painter_.setPen(QPen(look_.Rim, 1));
    painter_.setBrush(look_.Well);
    painter_.drawRoundedRect(well.adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
    const QRectF graph = well.adjusted(8, 8, -8, -6);
    painter_.setFont(Font(body_ * 0.86, QFont::Normal));
    for (const Mark& mark : marks) {
        const double x = std::floor(graph.left() + graph.width() * mark.At) + 0.5;
        painter_.setPen(QPen(look_.Grid, 1));
        painter_.drawLine(QPointF(x, graph.top()), QPointF(x, graph.bottom()));
        painter_.setPen(look_.Text);
        const double wide = body_ * 6;
        const double left = std::clamp(x - wide / 2, frame.left(), frame.right() - wide);
        const auto side = left > x - wide / 2   ? Qt::AlignLeft
                          : left < x - wide / 2 ? Qt::AlignRight
                                                : Qt::AlignHCenter;
        painter_.drawText(QRectF(left, well.bottom(), wide, line), side | Qt::AlignVCenter, mark.Text);
    }
    return graph;
}

void TidalPainter::FillUnder(const QRectF& well, const QPolygonF& curve) {
    if (curve.size() < 2)
        return;
    QLinearGradient gradient(0, well.bottom(), 0, well.top());
    constexpr std::array Places{0.0, 0.5, 0.8, 1.0};
    for (std::size_t i = 0; i < Places.size(); ++i) {
        QColor colour = look_.Ramp.at(i);
        colour.setAlpha(150);
        gradient.setColorAt(Places.at(i), colour);
    }
    QPolygonF area = curve;
    area << QPointF(curve.last().x(), well.bottom()) << QPointF(curve.first().x(), well.bottom());
    QPainterPath path;
    path.addPolygon(area);
    painter_.fillPath(path, gradient);
    painter_.setPen(QPen(look_.Curve, 1.5));
    painter_.drawPolyline(curve);
}

void TidalPainter::PaintHead(const QRectF& frame) {
    const QString time = ClockTime(state_);
    painter_.setFont(Font(frame.height() * 0.5, QFont::Medium));
    painter_.setPen(look_.Strong);
    painter_.drawText(frame, Qt::AlignLeft | Qt::AlignVCenter, time);
    const QString percent = Percent(state_);
    painter_.setFont(Font(frame.height() * 0.92, QFont::Bold));
    painter_.drawText(frame.adjusted(0, 0, -frame.height() * 0.42, 0), Qt::AlignRight | Qt::AlignVCenter,
                      percent);
    painter_.setFont(Font(frame.height() * 0.42, QFont::Medium));
    painter_.setPen(look_.Text);
    painter_.drawText(frame.adjusted(0, 0, 0, -frame.height() * 0.14), Qt::AlignRight | Qt::AlignBottom, "%");
}

void TidalPainter::PaintCoherence(const QRectF& frame) {
    constexpr auto Seconds = static_cast<double>(TidalState::HistorySeconds);
    const std::array marks{Mark{0, "-5 min"}, Mark{0.2, "-4"}, Mark{0.4, "-3"},
                           Mark{0.6, "-2"},   Mark{0.8, "-1"}, Mark{1, "0"}};
    const QRectF graph = Well(frame, "Coherence %", marks);
    const auto height = [&graph](double percent) {
        return graph.bottom() - graph.height() * std::min(percent, 100.0) / 100;
    };
    painter_.setPen(QPen(look_.Grid, 1));
    for (const double percent : {0.0, 25.0, 50.0, 75.0, 100.0})
        painter_.drawLine(QPointF(graph.left(), std::floor(height(percent)) + 0.5),
                          QPointF(graph.right(), std::floor(height(percent)) + 0.5));
    QPolygonF curve;
    const auto count = static_cast<double>(state_.Coherence.size());
    for (std::size_t i = 0; i < state_.Coherence.size(); ++i) {
        const double ago = count - 1 - static_cast<double>(i);
        curve << QPointF(graph.right() - graph.width() * ago / Seconds,
                         height(static_cast<double>(state_.Coherence[i])));
    }
    FillUnder(graph, curve);
}

void TidalPainter::PaintSpectrum(const QRectF& frame, const QString& title, std::span<const float> items,
                                 double scale, std::span<const Mark> marks, bool bars) {
    const QRectF graph = Well(frame, title, marks);
    const auto count = static_cast<double>(items.size());
    QPolygonF curve;
    for (std::size_t i = 1; i < items.size(); ++i) {
        const double height = std::min(1.0, static_cast<double>(items[i]) / scale) * graph.height();
        const double x = graph.left() + graph.width() * static_cast<double>(i) / count;
        if (bars) {
            curve << QPointF(x, graph.bottom() - height);
            curve << QPointF(x + graph.width() / count, graph.bottom() - height);
        } else {
            curve << QPointF(x, graph.bottom() - height);
        }
    }
    FillUnder(graph, curve);
}

void TidalPainter::Paint() {
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.fillRect(QRectF(QPointF(0, 0), size_), look_.Desk);
    const QRectF inner = QRectF(QPointF(0, 0), size_).adjusted(gap_, gap_, -gap_, -gap_);
    const double head = std::clamp(inner.height() * 0.16, 40.0, 150.0);
    PaintHead(QRectF(inner.left(), inner.top(), inner.width(), head));
    const double top = inner.top() + head + gap_ / 2;
    const double rest = inner.bottom() - top;
    const bool wide = inner.width() > rest * 1.1;
    const double upper = wide ? rest * 0.48 : rest * 0.34;
    PaintCoherence(QRectF(inner.left(), top, inner.width(), upper - gap_ / 2));
    const QRectF lower(inner.left(), top + upper + gap_ / 2, inner.width(), rest - upper - gap_ / 2);
    const QRectF left = wide ? QRectF(lower.left(), lower.top(), (lower.width() - gap_) / 2, lower.height())
                             : QRectF(lower.left(), lower.top(), lower.width(), (lower.height() - gap_) / 2);
    const QRectF right =
        wide ? left.translated(left.width() + gap_, 0) : left.translated(0, left.height() + gap_);
    constexpr double EcgWidth = 255 * 0.125, RateWidth = 127 / 256.0;
    const std::array ecg{Mark{0, "0"},
                         Mark{5 / EcgWidth, "5"},
                         Mark{10 / EcgWidth, "10"},
                         Mark{15 / EcgWidth, "15"},
                         Mark{20 / EcgWidth, "20"},
                         Mark{25 / EcgWidth, "25"},
                         Mark{30 / EcgWidth, "30 Hz"}};
    PaintSpectrum(left, "ECG spectrum", state_.Spectrum, state_.SpectrumScale, ecg, false);
    const std::array rate{Mark{0, "0"}, Mark{0.1 / RateWidth, "0.1"}, Mark{0.2 / RateWidth, "0.2"},
                          Mark{0.3 / RateWidth, "0.3"}, Mark{0.4 / RateWidth, "0.4 Hz"}};
    PaintSpectrum(right, "Heart rate spectrum", state_.HeartRate, state_.HeartRateScale, rate, true);
}

} // namespace

void PaintTidal(QPainter& painter, QSize size, const TidalState& state) {
    TidalPainter(painter, size, state).Paint();
}

QString DescribeTidal(const TidalState& state) {
    return ClockTime(state) + ", " + Percent(state) + " %";
}

} // namespace pulselark
