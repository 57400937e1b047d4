#include "workspace/PlayerView.h"

#include "feedback/WMPPlay.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "workspace/Look.h"
#include "workspace/Motion.h"
#include "workspace/Texts.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <utility>
#include <vector>

namespace pulselark {

namespace {

using Kind = PlayerZone::Kind;

constexpr int CardWidth = 720;
constexpr int CardRadius = 8;
constexpr int CardEdge = 1;

PlayerView* shownView = nullptr;

// Everything that can be pressed, in reading order.
std::vector<PlayerZone> AllZones() {
    std::vector<PlayerZone> zones;
    for (int row = 1; row <= ShownSongs; ++row)
        zones.push_back({Kind::Song, row});
    zones.push_back({Kind::Add});
    for (int row = 1; row <= ShownSongs; ++row)
        zones.push_back({Kind::ListRow, row});
    zones.push_back({Kind::Remove});
    for (const int row : {1, 3, 6, 8})
        zones.push_back({Kind::Option, row});
    for (const Kind kind : {Kind::Play, Kind::Mute, Kind::Volume, Kind::Close})
        zones.push_back({kind});
    return zones;
}

} // namespace

PlayerView::PlayerView(QWidget* parent, std::function<void(const std::function<void()>&)> run)
    : QWidget(parent), run_(std::move(run)) {
    setObjectName("picMCT");
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    hide();
    shownView = this;
    MusicChanged = [] { shownView->Draw(); };
    Retranslate();
}

PlayerView::~PlayerView() {
    MusicChanged = nullptr;
    shownView = nullptr;
}

void PlayerView::Retranslate() {
    setAccessibleName(Text(TextMusic));
    Draw();
}

void PlayerView::Mirror() {
    const bool open = PlayerPanelOpen != Off && TrainingActive != Off;
    if (open)
        Place();
    if (open == isVisible())
        return;
    if (open)
        FadeIn(*this, MenuTime);
    setVisible(open);
    chosen_ = -1;
    if (!open) {
        surface_.Resize(0, 0, 1);
        return;
    }
    raise();
    setFocus();
    Draw();
}

void PlayerView::Place() {
    const QSize area = parentWidget()->size();
    const int wide = std::min(CardWidth, area.width() - 32);
    const int high = static_cast<int>(PlayerPanelHeight) + 2 * CardEdge;
    // At the right, beside the scenery, which is a window of its own and would lie on it.
    const QRect place(area.width() - wide - 16, (area.height() - high) / 2, wide, high);
    if (place == geometry() && surface_.Width() > 0)
        return;
    setGeometry(place);
    surface_.Resize(wide - 2 * CardEdge, high - 2 * CardEdge, devicePixelRatioF());
    Draw();
}

void PlayerView::Draw() {
    if (surface_.Width() <= 0)
        return;
    DrawPlayer(surface_);
    update();
}

void PlayerView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath card;
    card.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), CardRadius, CardRadius);
    painter.fillPath(card, FormColour::Card);
    painter.setClipPath(card);
    painter.drawImage(QPointF(CardEdge, CardEdge), surface_.Picture());
    painter.setClipping(false);
    painter.setPen(FormColour::Rule);
    painter.drawPath(card);
    if (chosen_ < 0 || !hasFocus())
        return;
    painter.setPen(QPen(FormColour::Focus, 2));
    const PlayerZonePlace place = PlaceOfZone(AllZones()[static_cast<std::size_t>(chosen_)], width());
    painter.drawRoundedRect(QRectF(place.Left, place.Top, place.Width, PlayerRowHeight), 4, 4);
}

void PlayerView::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    if (dragsVolume_)
        run_([&] { DragPlayerVolume(at.x(), width()); });
    else
        HoverPlayer(PlayerZoneAt(at.x(), at.y(), width()));
}

void PlayerView::mousePressEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    const PlayerZone zone = PlayerZoneAt(at.x(), at.y(), width());
    chosen_ = -1;
    dragsVolume_ = event->button() == Qt::LeftButton && zone.What == Kind::Volume;
    if (dragsVolume_)
        run_([&] { DragPlayerVolume(at.x(), width()); });
    else if (event->button() == Qt::LeftButton)
        Press(zone);
}

void PlayerView::mouseReleaseEvent(QMouseEvent* /*event*/) {
    dragsVolume_ = false;
}

void PlayerView::leaveEvent(QEvent* /*event*/) {
    HoverPlayer({});
}

void PlayerView::Press(const PlayerZone& zone) {
    run_([&zone] { ClickPlayer(zone); });
}

void PlayerView::Choose(int step) {
    const auto zones = AllZones();
    const auto count = static_cast<int>(zones.size());
    chosen_ = chosen_ < 0 ? (step > 0 ? 0 : count - 1) : (chosen_ + step + count) % count;
    setAccessibleDescription(
        QString::fromStdString(PlayerZoneText(zones[static_cast<std::size_t>(chosen_)])));
    update();
}

void PlayerView::keyPressEvent(QKeyEvent* event) {
    constexpr int Column = ShownSongs + 1;
    constexpr Integer VolumeStep = 5;
    const auto zones = AllZones();
    const bool atVolume = chosen_ >= 0 && zones[static_cast<std::size_t>(chosen_)].What == Kind::Volume;
    switch (event->key()) {
    case Qt::Key_Escape:
        Press({Kind::Close});
        break;
    case Qt::Key_Down:
        Choose(1);
        break;
    case Qt::Key_Up:
        Choose(-1);
        break;
    case Qt::Key_Left:
    case Qt::Key_Right: {
        const int step = event->key() == Qt::Key_Right ? 1 : -1;
        if (atVolume)
            run_([=] { AdjustMusicVolume(static_cast<Integer>(PlayerVolume + step * VolumeStep)); });
        else
            Choose(step * Column);
        break;
    }
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (chosen_ >= 0)
            Press(zones[static_cast<std::size_t>(chosen_)]);
        break;
    default:
        QWidget::keyPressEvent(event);
        break;
    }
}

void PlayerView::focusOutEvent(QFocusEvent* event) {
    update();
    QWidget::focusOutEvent(event);
}

} // namespace pulselark
