#include "workspace/frmGames.h"

#include "analysis/ColourSchemes.h"
#include "analysis/GameChart.h"
#include "platform/qt/QtColour.h"
#include "session/PanelSurfaces.h"
#include "workspace/FormControls.h"
#include "workspace/Look.h"
#include "workspace/SideWindowParts.h"
#include "workspace/Texts.h"
#include "workspace/TitleBar.h"

#include <QHBoxLayout>
#include <QHideEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <utility>

namespace pulselark {

namespace {

constexpr int TitleRow = 44;
constexpr int Margin = 16;
constexpr QSize FirstSize(520, 420);
constexpr QSize LeastSize(280, 240);

} // namespace

// ---- Chart ----

GameView::GameView(QWidget* parent) : QWidget(parent) {
    setObjectName("picGame");
    picGame = &surface_;
    surface_.OnDrawn = [this] { update(); };
}

GameView::~GameView() {
    picGame = &NoSurface();
}

void GameView::Rebuild() {
    schemeShown_ = ColourSchemeIndex;
    surface_.Resize(width(), height(), devicePixelRatioF());
    DrawGameChart();
    update();
}

void GameView::Mirror() {
    if (schemeShown_ != ColourSchemeIndex)
        Rebuild();
    setAccessibleDescription(labGame.Visible ? QString::fromStdString(labGame.Caption) : QString());
    update();
}

void GameView::resizeEvent(QResizeEvent* /*event*/) {
    Rebuild();
}

void GameView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath plate;
    plate.addRoundedRect(QRectF(rect()), 6, 6);
    painter.setClipPath(plate);
    painter.drawImage(QPointF(0, 0), surface_.Picture());
    if (!imA.Visible)
        return;
    const QPointF point(imA.Left + MarkerPointX * imA.Size, imA.Top + MarkerPointY * imA.Size);
    const double radius = std::max(4.0, 0.28 * imA.Size);
    painter.setPen(QPen(Qt::white, 2));
    painter.setBrush(ToQColor(labGame.ForeColour));
    painter.drawEllipse(point, radius, radius);
    const QString words = QString::fromStdString(labGame.Caption);
    painter.setFont(TextFont(13, 700));
    const double wide = painter.fontMetrics().horizontalAdvance(words) + 12;
    const double high = 22;
    const bool atRight = point.x() + radius + 6 + wide <= width();
    const QRectF room(atRight ? point.x() + radius + 6 : point.x() - radius - 6 - wide,
                      std::clamp(point.y() - high / 2, 0.0, std::max(0.0, height() - high)), wide, high);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x2B, 0x2E, 0x33));
    painter.drawRoundedRect(room, 4, 4);
    painter.setPen(QColor(0xF1, 0xF1, 0xEE));
    painter.drawText(room, Qt::AlignCenter, words);
}

// ---- Window ----

frmGames::frmGames(QWidget* owner, std::function<void(const std::function<void()>&)> run)
    : FloatingForm(owner, "frmGames"), run_(std::move(run)), title_(new QLabel(this)),
      picClose_(new ActionButton("picClose", ActionButton::Sign::Close, this)), picGame_(new GameView(this)),
      axes_(new QLabel(this)), sizers_{new PanelSizer(PanelSizer::Edge::Right, 0, this),
                                       new PanelSizer(PanelSizer::Edge::Bottom, 0, this),
                                       new PanelSizer(PanelSizer::Edge::Corner, 0, this)} {
    SetTitleRow(TitleRow);
    setStyleSheet(SideWindowStyle());
    setMinimumSize(LeastSize);
    title_->setFont(TextFont(14, 500));
    axes_->setFont(TextFont(12));
    axes_->setAlignment(Qt::AlignCenter);
    picClose_->SetBare(true);
    connect(picClose_, &QAbstractButton::clicked, this, &QWidget::hide);

    auto* head = new QHBoxLayout;
    head->setContentsMargins(Margin, 0, 8, 0);
    head->addWidget(title_, 1);
    head->addWidget(picClose_);
    auto* picTopBar = new QWidget(this);
    picTopBar->setObjectName("picTopBar");
    picTopBar->setFixedHeight(TitleRow);
    picTopBar->setLayout(head);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 8);
    layout->setSpacing(0);
    layout->addWidget(picTopBar);
    auto* body = new QVBoxLayout;
    body->setContentsMargins(Margin, 12, Margin, 0);
    body->setSpacing(6);
    body->addWidget(picGame_, 1);
    body->addWidget(axes_);
    layout->addLayout(body, 1);

    ConnectSizer(sizers_[0], true, false);
    ConnectSizer(sizers_[1], false, true);
    ConnectSizer(sizers_[2], true, true);
    Retranslate();
    resize(RoomFor(*this, FirstSize));
}

// A sizer moves along with its edge, so the mouse stays where it holds it.
void frmGames::ConnectSizer(PanelSizer* sizer, bool wide, bool high) {
    sizer->setObjectName(sizer->objectName().chopped(1)); // there is only one of each
    sizer->setToolTip(Text(TextSizePanel));
    connect(sizer, &PanelSizer::Pressed, this, [this](double x, double y) { grip_ = {x, y}; });
    connect(sizer, &PanelSizer::Moved, this, [this, wide, high](int button, double x, double y) {
        if (button == 0)
            return;
        const QPoint grown = (QPointF(x, y) - grip_).toPoint();
        resize((size() + QSize(wide ? grown.x() : 0, high ? grown.y() : 0)).expandedTo(LeastSize));
    });
}

void frmGames::Mirror() {
    picGame_->Mirror();
}

void frmGames::Retranslate() {
    const QString title = Text(TextGames);
    title_->setText(title);
    setWindowTitle(title);
    setAccessibleName(title);
    picGame_->setAccessibleName(title);
    axes_->setText(Text(TextGamesAxis));
    picClose_->SetCaption(Text(TextClose));
    picClose_->setToolTip(Text(TextClose) + " (Esc)");
}

void frmGames::resizeEvent(QResizeEvent* event) {
    FloatingForm::resizeEvent(event);
    for (PanelSizer* sizer : sizers_)
        sizer->Place(size());
}

void frmGames::hideEvent(QHideEvent* event) {
    FloatingForm::hideEvent(event);
    if (GamesOpen != Off && !event->spontaneous())
        run_(&CloseGames);
}

} // namespace pulselark
