#include "workspace/ScanPanel.h"

#include "quickscan/QsPage.h"
#include "session/Controls.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "workspace/Look.h"
#include "workspace/ModuleDesk.h"
#include "workspace/ModuleFrame.h"
#include "workspace/PanelView.h"
#include "workspace/Texts.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace pulselark {

namespace {

constexpr std::size_t ScanModule = 5;

/// The slider as it is drawn: a track, its done part, and the thumb between the two buttons.
class SliderPicture final : public QWidget {
public:
    explicit SliderPicture(QWidget* parent) : QWidget(parent) {
        setObjectName("picSliderAv");
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        constexpr double TrackWidth = 4, ThumbSize = 12;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const double middle = width() / 2.0;
        const double length = height() - ThumbSize;
        const double y = ThumbSize / 2 + length * (1 - QsSmoothing / static_cast<double>(QsSmoothingMost));
        const auto track = [&](double top, double bottom, const QColor& colour) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(colour);
            painter.drawRoundedRect(QRectF(middle - TrackWidth / 2, top, TrackWidth, bottom - top), 2, 2);
        };
        track(ThumbSize / 2, height() - ThumbSize / 2, FormColour::Rule);
        track(y, height() - ThumbSize / 2, FormColour::Teal);
        painter.setPen(QPen(FormColour::Teal, 2));
        painter.setBrush(Qt::white);
        painter.drawEllipse(QPointF(middle, y), ThumbSize / 2 - 1, ThumbSize / 2 - 1);
    }
};

} // namespace

ScanPanel::ScanPanel(ModuleDesk& desk, std::function<void(const std::function<void()>&)> run)
    : QObject(&desk), run_(std::move(run)), page_(new PanelView("picQS", false, desk.Frame(ScanModule))),
      slider_(new SliderPicture(page_)) {
    desk.Frame(ScanModule)->SetPanels(page_, nullptr);
    picQS = &page_->Surface();
    page_->setFocusPolicy(Qt::StrongFocus);
    page_->installEventFilter(this);
    connect(page_, &PanelView::Moved, this, [this](int button, double x, double y) {
        if (button == 0)
            run_([&] { QsPointerMove(x, y); });
        else if (dragsSlider_)
            run_([&] { QsSmoothingFromPointer(y); });
    });
    connect(page_, &PanelView::Pressed, this, &ScanPanel::Drag);
    connect(page_, &PanelView::Released, this, [this] { dragsSlider_ = false; });
    Retranslate();
}

void ScanPanel::Drag(double x, double y) {
    const PageControl& slider = picSliderAv;
    dragsSlider_ = slider.Visible && x >= slider.Left && x <= slider.Left + slider.Width &&
                   y >= slider.Bottom && y <= slider.Bottom + slider.Height;
    run_([&] {
        PressPanel(ScanModule, 0, 0);
        if (dragsSlider_)
            QsSmoothingFromPointer(y);
    });
}

// Up and down smooth more and less, as the slider does.
bool ScanPanel::StepByKey(int key) {
    const int step = key == Qt::Key_Plus ? 1 : key == Qt::Key_Minus ? -1 : 0;
    if (step == 0 || QuickScanResultShown == Off)
        return false;
    run_([step] {
        QsSmoothing = static_cast<Integer>(std::clamp<int>(QsSmoothing + step, 0, QsSmoothingMost));
        OpenQuickScanPanel();
    });
    return true;
}

bool ScanPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == page_ && event->type() == QEvent::Leave)
        run_(&QsPointerLeave);
    if (watched == page_ && event->type() == QEvent::KeyPress &&
        StepByKey(static_cast<QKeyEvent*>(event)->key()))
        return true;
    return QObject::eventFilter(watched, event);
}

void ScanPanel::Retranslate() {
    page_->setAccessibleName(Text(TextModuleQuickScan));
}

void ScanPanel::Mirror() {
    page_->Mirror();
    const PageControl& place = picSliderAv;
    slider_->setVisible(place.Visible);
    if (!place.Visible)
        return;
    slider_->setGeometry(static_cast<int>(place.Left),
                         page_->height() - static_cast<int>(place.Bottom + place.Height),
                         static_cast<int>(place.Width), static_cast<int>(place.Height));
    slider_->update();
}

} // namespace pulselark
