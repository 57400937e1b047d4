#include "workspace/TopBar.h"

#include "analysis/ColourSchemes.h"
#include "analysis/InputCD.h"
#include "platform/qt/QtColour.h"
#include "session/Connection.h"
#include "session/Diagnostics.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/SessionButtons.h"
#include "workspace/Look.h"
#include "workspace/ProgramStyle.h"
#include "workspace/QsEntry.h"
#include "workspace/Texts.h"
#include "workspace/TransportButton.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QMenuBar>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace pulselark {

namespace {

constexpr int ProgressWidth = 224;
constexpr int LeastProgress = 112; // for clock and length above it
constexpr int ClockWidth = 72;     // without the line
constexpr int LeastWidthForProgress = 1024;
constexpr int ChipTextLeft = 50;
constexpr int NameLeft = 16 + 28 + 12;
constexpr int PlateHeight = 32; // of menu words, entries and chips
constexpr int MenuRim = 4;      // around the menu words, for their focus ring
constexpr int DividerRoom = 33; // a divider with 16 to each side

// The clock of a session: minutes and seconds, with the hour once there is one.
QString ClockText(Long seconds) {
    const QString minutes =
        QString("%1:%2").arg(seconds / 60 % 60, 2, 10, QChar('0')).arg(seconds % 60, 2, 10, QChar('0'));
    return seconds < 3600 ? minutes : QString("%1:%2").arg(seconds / 3600).arg(minutes);
}

// A channel whose last second does not move at all is lost; one that hardly moves, runs out of the panel, or
// beats as no heart does is weak.
Icon LightOf(const EcgBuffer& ecg, const SecondsBuffer& ibi, Long second) {
    constexpr float LeastRange = 100;
    constexpr float FullScale = 1000;
    constexpr float ShortestInterval = 0.3F;
    constexpr float LongestInterval = 2;
    const float* first = &ecg[(second - 1) * SamplesPerSecond + 1];
    const float* end = first + SamplesPerSecond;
    const auto [least, most] = std::minmax_element(first, end);
    if (*most <= *least)
        return Icon::LightLost;
    const auto outside =
        std::count_if(first, end, [](float sample) { return std::fabs(sample) > FullScale; });
    const bool weak = *most - *least < LeastRange || outside > SamplesPerSecond / 8 ||
                      ibi[second] < ShortestInterval || ibi[second] > LongestInterval;
    return weak ? Icon::LightWeak : Icon::LightGood;
}

// While a recording runs, its own judgement of the signal counts.
Icon LightOf(Integer light) {
    return light >= 2 ? Icon::LightGood : light == 1 ? Icon::LightWeak : Icon::LightLost;
}

int RateOf(const SecondsBuffer& ibi, Long second) {
    const double interval = ibi[second];
    return interval > 0 ? static_cast<int>(Round(60 / interval)) : 0;
}

void PaintDivider(QPainter& painter, double x, int barHeight) {
    const double high = std::min(24, barHeight - 12);
    painter.fillRect(QRectF(std::round(x), (barHeight - high) / 2, 1, high), QColor(255, 255, 255, 61));
}

} // namespace

TopBar::TopBar(QWidget* parent)
    : QWidget(parent), menus_(new QMenuBar(this)),
      record_(new TransportButton("picStartSmp", Icon::Record, this)),
      replay_(new TransportButton("picReplay", Icon::Replay, this)),
      stop_(new TransportButton("picStop", Icon::Stop, this)), qsEntries_{
                                                                   new QsEntry(0, Icon::QuickScan, this),
                                                                   new QsEntry(1, Icon::Print, this)} {
    setObjectName("picTopBarMain");
    setAccessibleName(ProgramTitle);
    menus_->setObjectName("labMainMenu");
    menus_->setAccessibleName(ProgramTitle);
    menus_->setNativeMenuBar(false);
    menus_->setFont(TextFont(13));
    menus_->installEventFilter(this);
    // The ring reaches beyond the word that the toolkit paints anew.
    connect(menus_, &QMenuBar::hovered, menus_, [this] { menus_->update(); });
    for (int i = 0; i < static_cast<int>(qsEntries_.size()); ++i) {
        connect(qsEntries_[static_cast<std::size_t>(i)], &QAbstractButton::clicked, this, [this, i] {
            if (QsClicked)
                QsClicked(i);
        });
        connect(qsEntries_[static_cast<std::size_t>(i)], &QsEntry::Pointed, this,
                [this, i](QsPointer pointer) {
                    if (QsPointed)
                        QsPointed(i, pointer);
                });
    }
    Retranslate();
}

void TopBar::Retranslate() {
    record_->setAccessibleName(Text(TextRecordButton));
    replay_->setAccessibleName(Text(TextReplayButton));
    replay_->setToolTip(TipLines(Text(TextReplayButtonTip)));
    stop_->setAccessibleName(Text(TextStopButton));
    stop_->setToolTip(TipLines(Text(TextStopButtonTip)));
}

void TopBar::ApplyLook() {
    LayOut();
    update();
}

QString TopBar::ChipTipAt(int x) const {
    int right = width() - 16;
    for (auto chip = chips_.crbegin(); chip != chips_.crend(); ++chip) {
        const int left = right - ChipWidth(*chip);
        const int word = chip->Light == Icon::LightGood   ? TextSignalGood
                         : chip->Light == Icon::LightWeak ? TextSignalWeak
                                                          : TextSignalLost;
        if (x >= left && x < right)
            return Text(TextChannelLight).arg(chip->Name) + ": " + Text(word);
        right = left - 8;
    }
    return {};
}

bool TopBar::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), ChipTipAt(help->pos().x()), this);
    return true;
}

bool TopBar::eventFilter(QObject* watched, QEvent* event) {
    if (watched == menus_ && (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut))
        menus_->update();
    return QWidget::eventFilter(watched, event);
}

void TopBar::resizeEvent(QResizeEvent* /*event*/) {
    LayOut();
}

void TopBar::LayOut() {
    const QWidget* window = parentWidget();
    const Density& density = DensityFor(window->width(), window->height());
    const int plate = std::min(PlateHeight, height() - 2 * MenuRim);
    if (menus_->property(PlateHeightProperty).toInt() != plate) {
        menus_->setProperty(PlateHeightProperty, plate);
        QEvent changed(QEvent::StyleChange); // the bar measures its words anew
        QCoreApplication::sendEvent(menus_, &changed);
    }
    for (const Room room : {Room::Ample, Room::Tight, Room::Scarce}) {
        room_ = room;
        LayOutLeft(density);
        LayOutRight();
        if (ClockFits())
            break;
    }
}

bool TopBar::ClockFits() const {
    return clockLeft_ + ClockWidth <= qsEntries_[0]->x();
}

void TopBar::LayOutLeft(const Density& density) {
    const int middle = height() / 2;
    const int name =
        room_ != Room::Ample ? 0 : QFontMetrics(TextFont(15, 500)).horizontalAdvance(ProgramTitle) + 16;
    int x = NameLeft + name - MenuRim;
    const QSize menuSize = menus_->sizeHint();
    menus_->setGeometry(x, middle - menuSize.height() / 2, menuSize.width(), menuSize.height());
    dividerLeft_ = x + menuSize.width() - MenuRim + 16;
    x = dividerLeft_ + 17;
    for (TransportButton* button : {record_, replay_, stop_}) {
        button->SetDiameter(density.Transport);
        button->move(x, middle - button->height() / 2);
        x += button->width() + 8;
    }
    clockLeft_ = x + 8;
}

// The clock's progress line goes first, then the words of the entries, of which the icons stay.
void TopBar::LayOutRight() {
    int right = width() - 16;
    for (const Chip& chip : chips_)
        right -= ChipWidth(chip) + 8;
    chipsLeft_ = chips_.isEmpty() ? right : right - DividerRoom + 8;
    const auto entries = [this](bool words) {
        return qsEntries_[0]->WidthWith(words) + qsEntries_[1]->WidthWith(words) + 4;
    };
    const int room = chipsLeft_ - clockLeft_ - 16;
    progressWidth_ = std::min(ProgressWidth, room - entries(ProgressWidth + entries(true) <= room));
    if (width() < LeastWidthForProgress || progressWidth_ < LeastProgress)
        progressWidth_ = 0;
    const bool words = std::max(progressWidth_, ClockWidth) + entries(true) <= room;
    int x = chipsLeft_ - entries(words);
    for (QsEntry* entry : qsEntries_) {
        entry->Place(x, height(), words);
        x += entry->width() + 4;
    }
}

void TopBar::Mirror() {
    record_->SetState(TrainingActive == Off || SessionRunning != Off, SessionRunning != Off,
                      RecordButtonLifted());
    record_->SetLamp(timLedBlink.Enabled, ConnectionLost != Off);
    const bool chosen = MonitorName != NoMonitorYet || DryTesting != Off;
    record_->setToolTip(TipLines(Text(chosen ? TextRecordButtonTip : TextRecordButtonOffTip)));
    const bool running = picReplay.Frame == FrameReplayRunning || picReplay.Frame == FrameReplayRunningHover;
    const bool replayLifted =
        picReplay.Frame == FrameReplayHover || picReplay.Frame == FrameReplayRunningHover;
    replay_->SetState(ButtonAvailable(picReplay), running, replayLifted);
    stop_->SetState(ButtonAvailable(picStop), false, picStop.Frame == FrameStopHover);

    const Long second = SessionSeconds > 0 ? std::min(EcgViewState.LastSecondA, SessionSeconds) : 0;
    QList<Chip> chips;
    if (second > 0) {
        chips.append({"A", QString("%1 %2").arg(RateOf(IbiA, second)).arg(Text(TextBpm)),
                      SessionRunning != Off ? LightOf(SignalLightA) : LightOf(EcgA, IbiA, second)});
        if (ChannelBPresent != Off)
            chips.append({"B", QString("%1 %2").arg(RateOf(IbiB, second)).arg(Text(TextBpm)),
                          SessionRunning != Off ? LightOf(SignalLightB) : LightOf(EcgB, IbiB, second)});
        for (Chip& chip : chips) {
            if (chip.Light == Icon::LightLost)
                chip.Value = Text(TextSignalLost);
        }
    }
    const auto caption = [](const Label& label, int text) {
        return label.Caption.empty() ? Text(text) : QString::fromStdString(label.Caption);
    };
    const QStringList entries{caption(labQSMenu[0], TextQuickScan), caption(labQSMenu[1], TextPrint)};
    const bool sameEntries = entries[0] == qsEntries_[0]->text() && entries[1] == qsEntries_[1]->text();
    if (!sameEntries) {
        qsEntries_[0]->SetCaption(entries[0]);
        qsEntries_[1]->SetCaption(entries[1]);
    }
    for (std::size_t i = 0; i < qsEntries_.size(); ++i)
        qsEntries_[i]->SetInk(ToQColor(labQSMenu[i].ForeColour), labQSMenu[i].ForeColour == 0);
    const QString signText = QString::fromStdString(labDryTesting.Caption);
    signInk_ = labDryTesting.ForeColour;
    const QString clock = ClockText(second);
    const QString length =
        SessionSeconds > 0 ? Text(TextClockOf) + " " + ClockText(SessionSeconds) : QString();
    if (clock == clock_ && length == length_ && chips == chips_ && sameEntries && signText == sign_)
        return;
    clock_ = clock;
    length_ = length;
    chips_ = chips;
    sign_ = signText;
    LayOut();
    progress_ = SessionSeconds > 0 ? static_cast<double>(second) / SessionSeconds : 0;
    setAccessibleDescription(Text(TextClockName) + " " + clock_ + " " + length_);
    update();
}

void TopBar::PaintClock(QPainter& painter) const {
    const SchemeLook& look = CurrentLook();
    const double top = height() / 2.0 - (progressWidth_ > 0 ? 14 : 9);
    painter.setPen(look.BarText);
    painter.setFont(TextFont(16, 500));
    painter.drawText(QRectF(clockLeft_, top, ClockWidth, 18), Qt::AlignLeft | Qt::AlignVCenter, clock_);
    if (progressWidth_ == 0)
        return;
    painter.setFont(TextFont(12));
    painter.setOpacity(0.8);
    painter.drawText(QRectF(clockLeft_, top, progressWidth_, 18), Qt::AlignRight | Qt::AlignVCenter, length_);
    painter.setOpacity(1);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 56));
    const QRectF line(clockLeft_, top + 23, progressWidth_, 4);
    painter.drawRoundedRect(line, 2, 2);
    if (progress_ > 0) {
        painter.setBrush(look.Running);
        painter.drawRoundedRect(QRectF(line.left(), line.top(), std::max(4.0, line.width() * progress_), 4),
                                2, 2);
    }
}

QString TopBar::ValueOf(const Chip& chip) const {
    if (room_ == Room::Scarce)
        return {};
    return room_ == Room::Tight && chip.Light != Icon::LightLost ? chip.Value.section(' ', 0, 0) : chip.Value;
}

// As wide as its words, but not narrower for two digits than for three, so that it stands still.
int TopBar::ChipWidth(const Chip& chip) const {
    if (room_ == Room::Scarce)
        return ChipTextLeft + 4;
    const QFontMetrics metrics(TextFont(12));
    const QString widest = room_ == Room::Tight ? QString("000") : "000 " + Text(TextBpm);
    return ChipTextLeft + 14 +
           std::max(metrics.horizontalAdvance(ValueOf(chip)), metrics.horizontalAdvance(widest));
}

void TopBar::PaintChips(QPainter& painter) const {
    const SchemeLook& look = CurrentLook();
    const double high = std::min(PlateHeight, height() - 8);
    double right = width() - 16;
    for (auto chip = chips_.crbegin(); chip != chips_.crend(); ++chip) {
        const double wide = ChipWidth(*chip);
        const QRectF plate(right - wide, height() / 2.0 - high / 2, wide, high);
        right = plate.left() - 8;
        painter.setPen(Qt::NoPen);
        painter.setBrush(look.RaisedHover);
        painter.drawRoundedRect(plate, high / 2, high / 2);
        PaintIcon(painter, chip->Light, QRectF(plate.left() + 28, plate.center().y() - 7, 14, 14),
                  look.BarText);
        painter.setPen(look.BarText);
        painter.setFont(TextFont(12, 700));
        painter.drawText(plate.adjusted(13, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, chip->Name);
        painter.setFont(TextFont(12));
        painter.drawText(plate.adjusted(ChipTextLeft, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                         ValueOf(*chip));
    }
    if (!chips_.isEmpty())
        PaintDivider(painter, right - DividerRoom / 2.0 + 8, height());
}

// That nobody is connected on purpose. The colours are pure ones, which no bar carries: the sign stands on
// black.
void TopBar::PaintSign(QPainter& painter) const {
    const double left = clockLeft_ + std::max(progressWidth_, ClockWidth) + 16;
    painter.setFont(TextFont(12, 500));
    const int wide = painter.fontMetrics().horizontalAdvance(sign_);
    const QRectF plate(left, height() / 2.0 - 12, wide + 16, 24);
    if (sign_.isEmpty() || plate.right() + 8 > qsEntries_[0]->x())
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(plate, 4, 4);
    painter.setPen(ToQColor(signInk_));
    painter.drawText(plate, Qt::AlignCenter, sign_);
}

void TopBar::paintEvent(QPaintEvent* /*event*/) {
    const SchemeLook& look = CurrentLook();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), look.Bar);
    const double side = std::min(28, height() - 6);
    const QRectF mark(16, (height() - side) / 2.0, side, side);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ToQColor(CurrentScheme().Button));
    painter.drawRoundedRect(mark, 8 * side / 28, 8 * side / 28);
    PaintIcon(painter, Icon::Mark, mark.adjusted(4, 4, -4, -4), Qt::white);
    painter.setPen(look.BarText);
    painter.setFont(TextFont(15, 500));
    if (room_ == Room::Ample)
        painter.drawText(QRectF(NameLeft, 0, 200, height()), Qt::AlignLeft | Qt::AlignVCenter, ProgramTitle);
    PaintDivider(painter, dividerLeft_, height());
    if (ClockFits())
        PaintClock(painter);
    PaintSign(painter);
    PaintChips(painter);
}

} // namespace pulselark
