#include "workspace/NumbersView.h"

#include "analysis/ColourSchemes.h"
#include "analysis/GCoherence.h"
#include "analysis/HRV.h"
#include "analysis/PanelDrawing.h"
#include "platform/qt/QtColour.h"
#include "session/AnalysisBuffers.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "workspace/Look.h"

#include <QPainter>

#include <cmath>

namespace pulselark {

namespace {

QString Text(int item) {
    return QString::fromStdString(LanguageText(item));
}

struct ChannelNumbers {
    int SpectrumText, CoherenceText, HrvText;
    const double &Norm, &Lf, &Hf;
    const Integer& PeakIndex;
    const SecondsBuffer &Coherence, &CoherenceAvg, &IbiAvg;
};

const ChannelNumbers channelA{TextSpectrumA, TextCoherenceA, TextHrvPowerA, SpectrumNormA, HrvLfA,
                              HrvHfA,        PeakIndexA,     CoherenceA,    CoherenceAvgA, IbiAvgA};
const ChannelNumbers channelB{TextSpectrumB, TextCoherenceB, TextHrvPowerB, SpectrumNormB, HrvLfB,
                              HrvHfB,        PeakIndexB,     CoherenceB,    CoherenceAvgB, IbiAvgB};

QString Percent(float coherence) {
    return QString::number(coherence * PercentScale, 'f', 1) + " %";
}

QString LineOf(Module module, const ChannelNumbers& channel) {
    const Long second = AnalysisSecond;
    switch (module) {
    case Module::Spectrum:
        return Text(channel.SpectrumText) + QString("   %1").arg(channel.Norm, 0, 'g', 6);
    case Module::Coherence: {
        const QString rate =
            channel.PeakIndex > 0 ? QString("   %1 BPMc").arg(Round(3840.0 / channel.PeakIndex)) : QString();
        return Text(channel.CoherenceText) + "   " + Percent(channel.Coherence.at(second + 1)) + rate;
    }
    case Module::History: {
        const float interval = second > 0 ? channel.IbiAvg.at(second) : 0;
        const auto rate = interval > 0 ? Round(60 / static_cast<double>(interval)) : 0;
        return Text(TextHistoryCoherence) + " " + Percent(channel.CoherenceAvg.at(second + 1)) + "   " +
               Text(TextHistoryHeartRate) + QString(" %1 %2").arg(rate).arg(Text(TextBpm));
    }
    case Module::Hrv:
        return Text(channel.HrvText) +
               QString("   LF %1   HF %2").arg(channel.Lf, 0, 'f', 3).arg(channel.Hf, 0, 'f', 3);
    case Module::EcgInput:
        break;
    }
    return {};
}

} // namespace

NumbersView::NumbersView(Module module, QWidget* parent) : QWidget(parent), module_(module) {
    setObjectName(QString("labNumbers%1").arg(static_cast<int>(module)));
}

void NumbersView::Mirror() {
    QStringList lines;
    if (SessionSeconds > 0) {
        lines << LineOf(module_, channelA);
        if (ChannelBPresent != Off)
            lines << LineOf(module_, channelB);
        if (module_ == Module::Hrv && AnalysisSecond < HrvMinimumSeconds)
            lines << Text(TextHrvNeedsData) +
                         QString::fromStdString(FormatMinSec(HrvMinimumSeconds - AnalysisSecond));
    }
    if (lines == lines_)
        return;
    lines_ = lines;
    setAccessibleName(lines_.join("; "));
    update();
}

void NumbersView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setFont(TextFont(13));
    painter.setPen(ToQColor(CurrentScheme().Text));
    painter.drawText(rect(), Qt::AlignCenter, lines_.join("\n"));
}

} // namespace pulselark
