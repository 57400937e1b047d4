#include "workspace/ModuleFrame.h"

#include "analysis/ColourSchemes.h"
#include "analysis/ModulePlaces.h"
#include "analysis/PanelDrawing.h"
#include "platform/qt/QtColour.h"
#include "workspace/Look.h"
#include "workspace/PanelView.h"

#include <QPainter>
#include <QPainterPath>

namespace pulselark {

namespace {

constexpr double Radius = 8;

void PaintWell(QPainter& painter, const QRect& panel) {
    const QRectF well = QRectF(panel).adjusted(-4, -2, 4, 2);
    QLinearGradient gradient(well.topLeft(), well.bottomLeft());
    const Image& back = picModBGSrc(ColourSchemeIndex);
    gradient.setColorAt(0, ToQColor(back.PixelAt(back.Width / 2, 0)));
    gradient.setColorAt(0.5, ToQColor(back.PixelAt(back.Width / 2, back.Height / 2)));
    gradient.setColorAt(1, ToQColor(back.PixelAt(back.Width / 2, back.Height - 1)));
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    painter.drawRoundedRect(well, 4, 4);
}

} // namespace

QRect ToPixels(const TwipsRect& rect) {
    const auto pixels = [](double twips) { return static_cast<int>(Round(twips / TwipsPerPixel)); };
    return {pixels(rect.Left), pixels(rect.Top), pixels(rect.Width), pixels(rect.Height)};
}

ModuleFrame::ModuleFrame(int index, Icon icon, QWidget* parent)
    : QWidget(parent),
      title_(new TitleBar(index, icon, this)), sizers_{
                                                   new PanelSizer(PanelSizer::Edge::Right, index, this),
                                                   new PanelSizer(PanelSizer::Edge::Bottom, index, this),
                                                   new PanelSizer(PanelSizer::Edge::Corner, index, this)} {
    setObjectName(QString("picModule%1").arg(index));
}

void ModuleFrame::SetTitle(const QString& title) {
    setAccessibleName(title);
    title_->SetTitle(title);
}

void ModuleFrame::SetPanels(PanelView* a, PanelView* b) {
    panelA_ = a;
    panelB_ = b;
}

void ModuleFrame::LayOut(int titleHeight, bool channelBPresent) {
    title_->setGeometry(1, 1, width() - 2, titleHeight - 1);
    for (PanelSizer* sizer : sizers_)
        sizer->Place(size());
    const bool both = channelBPresent && panelB_ != nullptr;
    const auto [first, second] =
        PanelPlaces(width() * TwipsPerPixel, height() * TwipsPerPixel, titleHeight * TwipsPerPixel, both);
    if (panelA_ != nullptr)
        panelA_->Place(ToPixels(first), true);
    if (panelB_ != nullptr)
        panelB_->Place(ToPixels(second), channelBPresent);
    update();
}

void ModuleFrame::SetActive(bool active) {
    if (active == active_)
        return;
    active_ = active;
    update();
}

void ModuleFrame::paintEvent(QPaintEvent* /*event*/) {
    const SchemeLook& look = CurrentLook();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath outline;
    outline.addRoundedRect(frame, Radius, Radius);
    painter.fillPath(outline, ToQColor(CurrentScheme().ModuleBack));

    painter.save();
    painter.setClipRect(QRectF(0, 0, width(), title_->height() + 1));
    painter.fillPath(outline, look.TitleBar);
    painter.restore();

    for (const PanelView* panel : {panelA_, panelB_}) {
        if (panel != nullptr && panel->isVisibleTo(this))
            PaintWell(painter, panel->geometry());
    }
    if (panelA_ == nullptr) // a frame that is still empty
        PaintWell(painter, rect().adjusted(8, title_->height() + 9, -8, -8));
    painter.setPen(active_ ? look.BorderActive : look.Border);
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(outline);
}

} // namespace pulselark
