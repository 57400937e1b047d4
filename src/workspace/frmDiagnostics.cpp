#include "workspace/frmDiagnostics.h"

#include "session/MainBuffers.h"
#include "workspace/Look.h"
#include "workspace/Texts.h"

#include <QHBoxLayout>
#include <QLabel>

namespace pulselark {

namespace {

QString Milliseconds(double value) {
    return QString::number(value, 'f', value < 10 ? 2 : 0) + " ms";
}

std::function<QString()> TimeOf(const MeasuredTime& time) {
    return [&time] {
        return time.Worst == 0
                   ? QString("–")
                   : Milliseconds(time.Last) + "  " + Text(TextAtMost).arg(Milliseconds(time.Worst));
    };
}

std::function<QString()> CountOf(const Long& count) {
    return [&count] { return QString::number(count); };
}

// The monitor's name, and the heart rate by its own reckoning if it has one.
QString MonitorAndItsRate() {
    if (MonitorName == NoMonitorYet)
        return "–";
    QString name = QString::fromStdString(MonitorName);
    if (Diagnostics.MonitorRate <= 0)
        return name;
    return QString("%1  (%2 %3)").arg(name).arg(Round(Diagnostics.MonitorRate)).arg(Text(TextBpm));
}

std::function<QString()> RateOf(const ChannelFigures& figures) {
    return [&figures] {
        return QString("%1 / %2")
            .arg(figures.SamplesPerSecond, 0, 'f', 2)
            .arg(figures.NominalRate, 0, 'f', 0);
    };
}

// Samples put in, and by how much the monitor's clock goes too fast.
std::function<QString()> CorrectionOf(const ChannelFigures& figures) {
    return [&figures] {
        return QString::asprintf("%+.1f  (%+.0f ppm)", figures.Corrected, figures.ClockDrift * 1e6);
    };
}

std::function<QString()> QualityOf(const float& quality, const Integer& light) {
    return [&quality, &light] {
        const int word = light >= 2 ? TextSignalGood : light == 1 ? TextSignalWeak : TextSignalLost;
        return QString("%1  (%2)").arg(static_cast<double>(quality), 0, 'f', 2).arg(Text(word));
    };
}

} // namespace

frmDiagnostics::frmDiagnostics(QWidget* owner) : FormWindow(owner, "frmDiagnostics") {
    QVBoxLayout* left = AddColumn();
    QVBoxLayout* right = AddColumn();
    times_ = AddCard(left);
    AddFigure(times_, TextBeatToLamp, TimeOf(Diagnostics.BeatToLamp));
    AddFigure(times_, TextSecondToChord, TimeOf(Diagnostics.SecondToChord));
    AddFigure(times_, TextTickWork, TimeOf(Diagnostics.Tick));
    AddFigure(times_, TextSecondWork, TimeOf(Diagnostics.Second));
    AddFigure(times_, TextJournalFlush, TimeOf(Diagnostics.JournalFlush));
    recording_ = AddCard(left);
    AddFigure(recording_, TextFieldMonitor, &MonitorAndItsRate);
    AddFigure(recording_, TextRecordedSeconds, CountOf(RecordedSeconds));
    AddFigure(recording_, TextJournalSeconds, CountOf(Diagnostics.JournalSeconds));
    AddFigure(recording_, TextBeatsFound, CountOf(Diagnostics.Beats));
    AddFigure(recording_, TextConnectionLosses, CountOf(Diagnostics.Losses));
    channels_ = {AddChannel(right, Diagnostics.A, SignalQualityA, SignalLightA),
                 AddChannel(right, Diagnostics.B, SignalQualityB, SignalLightB)};
    Retranslate();
}

FormCard* frmDiagnostics::AddChannel(QVBoxLayout* column, const ChannelFigures& channel, const float& quality,
                                     const Integer& light) {
    FormCard* card = AddCard(column);
    AddFigure(card, TextMonitorRate, RateOf(channel));
    AddFigure(card, TextLostSamples, CountOf(channel.LostSamples));
    AddFigure(card, TextClockCorrections, CorrectionOf(channel));
    AddFigure(card, TextNewestSampleAge, [&channel] { return Milliseconds(channel.LagMs); });
    AddFigure(card, TextSignalQuality, QualityOf(quality, light));
    return card;
}

FormCard* frmDiagnostics::AddCard(QVBoxLayout* column) {
    auto* card = new FormCard(Body());
    column->addWidget(card);
    return card;
}

void frmDiagnostics::AddFigure(FormCard* card, int name, std::function<QString()> read) {
    constexpr int RowHeight = 28;
    auto* row = new QWidget(card);
    row->setFixedHeight(RowHeight);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(16);
    auto* caption = new QLabel(row);
    auto* value = new QLabel(row);
    value->setFont(TextFont(13, 500));
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(caption, 1);
    layout->addWidget(value);
    card->Add(row);
    figures_.push_back({name, caption, value, std::move(read)});
}

void frmDiagnostics::Retranslate() {
    SetTitle(Text(TextDiagnostics));
    times_->SetTitle(Text(TextDiagnosticTimes));
    recording_->SetTitle(Text(TextDiagnosticRecording));
    for (std::size_t i = 0; i < channels_.size(); ++i)
        channels_[i]->SetTitle(Text(TextChannelLight).arg(i == 0 ? "A" : "B"));
    for (const Figure& figure : figures_) {
        figure.Caption->setText(Text(figure.Name));
        figure.Value->setAccessibleName(Text(figure.Name));
        if (times_->isAncestorOf(figure.Value)) { // room for what may come
            const QString widest = "0000 ms  " + Text(TextAtMost).arg("0000 ms");
            figure.Value->setMinimumWidth(figure.Value->fontMetrics().horizontalAdvance(widest));
        }
    }
    ReadFigures();
    FitToScreen();
}

void frmDiagnostics::Mirror() {
    if (isVisible())
        ReadFigures();
}

void frmDiagnostics::showEvent(QShowEvent* event) {
    ReadFigures();
    FormWindow::showEvent(event);
}

void frmDiagnostics::ReadFigures() {
    for (const Figure& figure : figures_) {
        const QString value = figure.Read();
        if (value != figure.Value->text())
            figure.Value->setText(value);
    }
    channels_[1]->setVisible(ChannelBPresent != Off);
}

} // namespace pulselark
