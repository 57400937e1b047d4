#include "workspace/TrainingPanel.h"

#include "analysis/ColourSchemes.h"
#include "feedback/ModeSelector.h"
#include "feedback/Scenery.h"
#include "feedback/WMPPlay.h"
#include "feedback/ggz.h"
#include "platform/qt/QtColour.h"
#include "session/Layout.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/ModulePanels.h"
#include "session/PanelSurfaces.h"
#include "session/Settings.h"
#include "session/Training.h"
#include "workspace/FormControls.h"
#include "workspace/Icons.h"
#include "workspace/Look.h"
#include "workspace/SceneCover.h"
#include "workspace/Texts.h"
#include "workspace/TrainingArtwork.h"
#include "workspace/TrainingControls.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <utility>

namespace pulselark {

namespace {

constexpr double Corner = 8;
constexpr int CardHeight = 92;
constexpr int LegendRow = 32;
constexpr int Gap = 20;

bool Large(const QWidget& panel) {
    return panel.width() >= FullPanelWidth && panel.height() >= FullPanelHeight;
}

bool HasCard(const QWidget& panel) {
    return Large(panel) && panel.height() >= CardedPanelHeight;
}

void PaintLine(QPainter& painter, const QRectF& place, const QFont& font, const QColor& ink,
               const QString& text, Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter) {
    painter.setFont(font);
    painter.setPen(ink);
    const QString shown =
        painter.fontMetrics().elidedText(text, Qt::ElideRight, static_cast<int>(place.width()));
    painter.drawText(place, alignment, shown);
}

QColor BrandInk() {
    return ToQColor(MakeColour(54, 72, 115));
}

int ChosenMode() {
    return FeedbackMode >= 0 ? static_cast<int>(FeedbackMode) : -1;
}

Icon ModeIcon(int mode) {
    constexpr std::array Pictures{Icon::BreathingWave, Icon::Heart, Icon::Coherence, Icon::Training};
    return Pictures[static_cast<std::size_t>(std::clamp(mode, 0, ModeCount - 1))];
}

QString CardTitle() {
    return ChosenMode() < 0 ? Text(TextModuleTraining) : Text(TextModePacer + ChosenMode());
}

QString CardText() {
    if (ModeShown >= 0)
        return Text(TextModeRunningHint).arg(ModeShown + 1);
    return ChosenMode() < 0 ? Text(TextChooseLevel) : Text(TextModeChosenHint).arg(ChosenMode() + 1);
}

// The seconds of the histograms, in words; nothing before they have any.
QString SessionSpan() {
    return AnalysisSecond >= 15 ? Text(TextWholeSessionHint).arg(AnalysisSecond) : QString();
}

QString WindowSpan() {
    return DynamicIndexInterval >= 61 ? Text(TextEntireSession)
                                      : Text(TextSlidingWindowHint).arg(DynamicIndexInterval);
}

} // namespace

TrainingPanel::TrainingPanel(QWidget* parent, std::function<void(const std::function<void()>&)> run)
    : QWidget(parent), run_(std::move(run)), labBFStart_(new StartNotice(this)),
      source_(new SourceSwitch(this)),
      labBFSettings_(new ActionButton("labBFSettings", ActionButton::Sign::None, this)),
      cover_(new SceneCover(this)) {
    setObjectName("picGGZ");
    picGGZ = &surface_;
    picSD = &bell_;
    surface_.OnDrawn = [this] { update(); };
    connect(source_, &SourceSwitch::Chosen, this,
            [this](bool stored) { run_([stored] { ChooseTrainingSource(stored); }); });
    connect(cover_, &QAbstractButton::clicked, this, [this] { run_(&ClickRestoreGame); });
    Retranslate();
}

TrainingPanel::~TrainingPanel() {
    picGGZ = picSD = &NoSurface();
}

void TrainingPanel::Retranslate() {
    source_->SetWords(Text(TextSourceStored), Text(TextSourceLive));
    source_->setToolTip(Text(TextSourceTip));
    labBFSettings_->SetCaption(Text(TextBiofeedbackSettings));
    setAccessibleName(Text(TextModuleTraining));
    words_.clear();
    PlaceControls();
    update();
}

bool TrainingPanel::ArtworkIsStale() const {
    return backgroundShown_ != PanelBackground || schemeShown_ != ColourSchemeIndex ||
           modeShown_ != FeedbackMode;
}

void TrainingPanel::Rebuild() {
    const bool shown = isVisibleTo(parentWidget()) && width() > 0 && height() > 0;
    const QSize panel = shown ? size() : QSize(0, 0);
    const double density = devicePixelRatioF();
    surface_.Resize(panel.width(), panel.height(), density);
    backgroundShown_ = PanelBackground;
    schemeShown_ = ColourSchemeIndex;
    modeShown_ = FeedbackMode;
    if (!shown) {
        bell_.Resize(0, 0, density);
        return;
    }
    QImage artwork((QSizeF(panel) * density).toSize(), QImage::Format_RGB32);
    artwork.setDevicePixelRatio(density);
    QPainter painter(&artwork);
    PaintTrainingArtwork(painter, panel, PanelBackground);
    // The bell is drawn on its own surface, over its part of the artwork, and goes back into it.
    const QRect bars = TrainingPartsFor(panel).Bars.toRect();
    bell_.Resize(bars.width(), bars.height(), density);
    const QRect devicePart((QPointF(bars.topLeft()) * density).toPoint(),
                           (QSizeF(bars.size()) * density).toSize());
    painter.end();
    bell_.StoreImage(artwork.copy(devicePart));
    DrawBellCurve();
    painter.begin(&artwork);
    painter.drawImage(bars.topLeft(), bell_.Picture());
    painter.end();
    surface_.StoreImage(artwork);
    RedrawTraining();
    PlaceControls();
    update();
}

double TrainingPanel::HeadBottom() const {
    return Large(*this) ? 132 : 72;
}

double TrainingPanel::LegendTop() const {
    return HeadBottom() + Gap + (HasCard(*this) ? CardHeight + Gap : 0);
}

double TrainingPanel::LegendBottom() const {
    return Large(*this) ? LegendTop() + 3 * LegendRow + 8 : HeadBottom();
}

// What stands there gives way to the notice for its seconds: the card, else the legend, else the heading.
QRect TrainingPanel::NoticeRoom() const {
    const QRectF left = TrainingPartsFor(size()).Left;
    const double top = Large(*this) ? HeadBottom() + Gap : 6;
    const int high = HasCard(*this) ? CardHeight : labBFStart_->WantedHeight();
    return {static_cast<int>(left.left()), static_cast<int>(top), static_cast<int>(left.width()), high};
}

void TrainingPanel::PlaceControls() {
    const QRectF left = TrainingPartsFor(size()).Left;
    const int x = static_cast<int>(left.left());
    const int wide = static_cast<int>(left.width());
    int y = static_cast<int>(LegendBottom()) + 16;
    const QSize source(std::min(source_->sizeHint().width(), wide), source_->sizeHint().height());
    source_->setGeometry(QRect(QPoint(x, y), source));
    const QSize settings = labBFSettings_->sizeHint();
    const bool beside = x + source.width() + 12 + settings.width() <= x + wide;
    if (!beside)
        y += source.height() + 12;
    labBFSettings_->setGeometry(beside ? x + source.width() + 12 : x, y, std::min(settings.width(), wide),
                                settings.height());
    y += settings.height() + 20;
    labBFStart_->setGeometry(NoticeRoom());
    labBFStart_->raise();
    PlaceScenery(y);
}

// The scenery's room is what is left of the left column. Where that is too small, the scenery takes the whole
// view, and there is no cover.
void TrainingPanel::PlaceScenery(int top) {
    constexpr int LeastWidth = 200, LeastHeight = 110;
    const TrainingParts parts = TrainingPartsFor(size());
    const QRect room(static_cast<int>(parts.Left.left()), top, static_cast<int>(parts.Left.width()),
                     static_cast<int>(parts.Rule) - 20 - top);
    const bool fits = room.width() >= LeastWidth && room.height() >= LeastHeight;
    cover_->setGeometry(fits ? room : QRect());
    const QPoint corner = mapTo(window(), room.topLeft());
    const auto twips = [](int pixels) { return static_cast<float>(pixels * 15); };
    picGamePlace =
        fits ? PanelPlace{twips(corner.x()), twips(corner.y()), twips(room.width()), twips(room.height()), On}
             : PanelPlace{};
    LayoutCanvas();
}

void TrainingPanel::resizeEvent(QResizeEvent* /*event*/) {
    PlaceControls();
}

void TrainingPanel::Mirror() {
    if (!isVisibleTo(parentWidget()))
        return;
    if (ArtworkIsStale())
        Rebuild();
    source_->SetStored(FeedbackEnabled != Off);
    source_->setEnabled(SessionRunning == Off);
    labBFStart_->Mirror();
    cover_->Mirror();
    const QStringList all{CardTitle(),
                          CardText(),
                          Text(TextSessionScore) + " " + QString::fromStdString(labDI[0].Caption),
                          Text(TextDynamicIndex) + " " + QString::fromStdString(labDI[1].Caption),
                          QString::fromStdString(labCurrentSong.Caption),
                          SessionSpan(),
                          WindowSpan(),
                          labBFStart.Visible ? QString::fromStdString(labBFStart.Caption) : QString()};
    const QString words = all.join("\n");
    if (words == words_)
        return;
    words_ = words;
    setAccessibleDescription(words_);
    update();
}

void TrainingPanel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), CurrentLook().Desk);
    QPainterPath plate;
    plate.addRoundedRect(QRectF(rect()), Corner, Corner);
    painter.setClipPath(plate);
    painter.drawImage(QPointF(0, 0), surface_.Picture());
    if (Large(*this) || !labBFStart_->isVisible())
        PaintHead(painter);
    if (HasCard(*this))
        PaintCard(painter);
    // A notice in its place has round corners, through which the legend would be seen.
    const bool covered = labBFStart_->isVisible() && !HasCard(*this);
    if (Large(*this) && !covered)
        PaintLegend(painter);
    PaintBarWords(painter);
    PaintScoreWords(painter);
    PaintSong(painter);
}

void TrainingPanel::PaintHead(QPainter& painter) const {
    const QRectF left = TrainingPartsFor(size()).Left;
    const bool large = Large(*this);
    const double top = large ? 50 : 20;
    const double brand = large ? 48 : 26;
    PaintLine(painter, {left.left(), top, left.width(), brand}, TextFont(large ? 40 : 20, 500), BrandInk(),
              "PulseLark");
    PaintLine(painter, {left.left(), top + brand, left.width(), large ? 32.0 : 22.0},
              TextFont(large ? 18 : 13), TrainingColour::Hint, Text(TextTrainingMotto));
}

void TrainingPanel::PaintCard(QPainter& painter) const {
    const QRectF left = TrainingPartsFor(size()).Left;
    const QRectF card(left.left(), HeadBottom() + Gap, left.width(), CardHeight);
    painter.setPen(QPen(TrainingColour::CardEdge, 1));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(card.adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
    PaintIcon(painter, ModeIcon(ChosenMode() < 0 ? 3 : ChosenMode()),
              {card.left() + 28, card.center().y() - 16, 32, 32}, BrandInk());
    const double x = card.left() + 84;
    const double wide = card.right() - 20 - x;
    PaintLine(painter, {x, card.top() + 18, wide, 28}, TextFont(18, 500), TrainingColour::Ink, CardTitle());
    PaintLine(painter, {x, card.top() + 48, wide, 22}, TextFont(14), TrainingColour::Hint, CardText());
}

void TrainingPanel::PaintLegend(QPainter& painter) const {
    const QRectF left = TrainingPartsFor(size()).Left;
    const QStringList names{Text(TextWholeSession), Text(TextSlidingWindow), Text(TextReferenceBell)};
    const QStringList hints{SessionSpan(), WindowSpan(), Text(TextReferenceBellHint)};
    double widest = 0;
    for (const QString& name : names)
        widest = std::max<double>(widest, QFontMetrics(TextFont(14, 500)).horizontalAdvance(name));
    double y = LegendTop();
    for (int row = 0; row < 3; ++row, y += LegendRow) {
        const QRectF swatch(left.left(), y, 24, 24);
        painter.setPen(Qt::NoPen);
        painter.setBrush(TrainingColour::Well);
        painter.drawRoundedRect(swatch, 4, 4);
        if (row == 2)
            PaintIcon(painter, Icon::Coherence, swatch.adjusted(4, 4, -4, -4), TrainingColour::Bell);
        else
            painter.fillRect(QRectF(swatch.center().x() - (row == 0 ? 4 : 2), y + 4, row == 0 ? 8 : 4, 16),
                             row == 0 ? TrainingColour::SessionBar : TrainingColour::WindowBar);
        const double x = swatch.right() + 16;
        PaintLine(painter, {x, y, widest + 2, 24}, TextFont(14, 500), TrainingColour::Ink, names[row]);
        PaintLine(painter, {x + widest + 24, y, left.right() - x - widest - 24, 24}, TextFont(14),
                  TrainingColour::Hint, hints[row]);
    }
}

void TrainingPanel::PaintBarWords(QPainter& painter) const {
    const TrainingParts parts = TrainingPartsFor(size());
    const QRectF& well = parts.BarWell;
    const bool large = Large(*this);
    const double room = parts.ScoreWells[0].left() - well.left() - 8;
    if (width() >= HeadedPanelWidth) {
        const double top = std::max(4.0, well.top() - (large ? 62 : 26));
        PaintLine(painter, {well.left(), top, room, 26}, TextFont(large ? 20 : 14, 500), TrainingColour::Ink,
                  Text(TextGroupCoherence));
        if (large)
            PaintLine(painter, {well.left(), top + 28, room, 22}, TextFont(14), TrainingColour::Hint,
                      Text(TextTrainingBarsHint));
    }
    for (const int step : {1, 5, 10}) {
        const double x = parts.Bars.center().x() + parts.Bars.width() * (step - 5) / 10;
        const QString text = QString::number(step * 10) + (step == 10 ? " %" : "");
        PaintLine(painter, {x - 30, well.bottom() + 6, 60, 18}, TextFont(large ? 12 : 11),
                  TrainingColour::Hint, text, Qt::AlignCenter);
    }
}

void TrainingPanel::PaintScoreWords(QPainter& painter) const {
    const TrainingParts parts = TrainingPartsFor(size());
    const bool large = Large(*this);
    const QStringList names{Text(TextSessionScore), Text(TextDynamicIndex)};
    for (int score = 0; score < 2; ++score) {
        const auto which = static_cast<std::size_t>(score);
        const QRectF& well = parts.ScoreWells[which];
        const QRectF& track = parts.Tracks[which];
        const double name = well.top() - (large ? 34 : 22);
        const double half =
            std::min(90.0, (parts.Tracks[1].center().x() - parts.Tracks[0].center().x()) / 2 - 2);
        PaintLine(painter, {track.center().x() - half, name, 2 * half, 20}, TextFont(large ? 14 : 12),
                  TrainingColour::Hint, names[score], Qt::AlignCenter);
        const double high = large ? 48 : 30;
        PaintLine(painter, {track.center().x() - 50, std::max(2.0, name - high), 100, high},
                  TextFont(large ? 40 : 24, 500), ToQColor(labDI[which].ForeColour),
                  QString::fromStdString(labDI[which].Caption), Qt::AlignCenter);
        for (const int value : {0, 50, 100}) {
            const double y = track.bottom() - track.height() * value / 100;
            PaintLine(painter, {well.right() + 8, y - 9, 40, 18}, TextFont(large ? 12 : 11),
                      TrainingColour::Hint, QString::number(value));
        }
    }
}

void TrainingPanel::PaintSong(QPainter& painter) const {
    const TrainingParts parts = TrainingPartsFor(size());
    const double margin = parts.Left.left();
    painter.fillRect(QRectF(margin, std::round(parts.Rule), width() - 2 * margin, 1),
                     TrainingColour::CardEdge);
    const QString song = QString::fromStdString(labCurrentSong.Caption);
    if (song.isEmpty())
        return;
    const QFont font = TextFont(Large(*this) ? 14 : 12, 500);
    const double wide = QFontMetrics(font).horizontalAdvance(song) + 1;
    const double middle = (parts.Rule + height()) / 2;
    const double x = (width() - wide) / 2;
    PaintIcon(painter, Icon::Music, {x - 28, middle - 8, 16, 16}, TrainingColour::Ink);
    PaintLine(painter, {x, middle - 10, wide, 20}, font, TrainingColour::Ink, song);
}

} // namespace pulselark
