#include "workspace/ModuleDesk.h"

#include "analysis/ColourSchemes.h"
#include "platform/qt/QtColour.h"
#include "session/Controls.h"
#include "session/LanguageTable.h"
#include "session/Layout.h"
#include "session/MainBuffers.h"
#include "session/ModulePanels.h"
#include "session/Settings.h"
#include "workspace/DefaultPlaces.h"
#include "workspace/Look.h"
#include "workspace/ModuleFrame.h"
#include "workspace/Shadow.h"
#include "workspace/Texts.h"

#include <QMenu>
#include <QPainter>

#include <cmath>
#include <utility>

namespace pulselark {

namespace {

constexpr float Twips = 15;

int Pixels(float twips) {
    return static_cast<int>(std::lround(twips / Twips));
}

QRect PixelRect(const PanelPlace& place) {
    const QPoint topLeft(Pixels(place.Left), Pixels(place.Top));
    return {topLeft, QSize(Pixels(place.Left + place.Width) - topLeft.x(),
                           Pixels(place.Top + place.Height) - topLeft.y())};
}

void PutAt(PanelPlace& panel, const QRectF& rect) {
    panel.Left = static_cast<float>(rect.x() * Twips);
    panel.Top = static_cast<float>(rect.y() * Twips);
    panel.Width = static_cast<float>(rect.width() * Twips);
    panel.Height = static_cast<float>(rect.height() * Twips);
}

// A place keeps its share of the work area.
QRectF Scaled(const PanelPlace& panel, const QRectF& from, const QRectF& to) {
    const double sx = to.width() / from.width();
    const double sy = to.height() / from.height();
    return {to.x() + (static_cast<double>(panel.Left) / Twips - from.x()) * sx,
            to.y() + (static_cast<double>(panel.Top) / Twips - from.y()) * sy, panel.Width / Twips * sx,
            panel.Height / Twips * sy};
}

// The built-in layout on a desk of any size: the five analysis panels fill it, the others keep their share.
void FitBuiltInLayout(const QRect& area, int gap) {
    const QRect design(10, 40, 980, 570);
    const auto places = DefaultPlaces(area, gap);
    for (std::size_t i = 0; i < picModule.size(); ++i)
        PutAt(picModule[i], i < places.size() ? QRectF(places[i]) : Scaled(BuiltInPlaces()[i], design, area));
}

// What the bars leave of a window, less the gap around the panels.
QRect WorkArea(const QSize& window) {
    const Density& density = DensityFor(window.width(), window.height());
    return QRect(0, density.TopBar, window.width(), window.height() - density.TopBar - density.StatusLine)
        .adjusted(density.Gap, density.Gap, -density.Gap, -density.Gap);
}

bool StandsAsBuiltIn() {
    const auto& ecg = picModule[0];
    const auto& builtIn = BuiltInPlaces()[0];
    return ecg.Left == builtIn.Left && ecg.Top == builtIn.Top && ecg.Width == builtIn.Width &&
           ecg.Height == builtIn.Height;
}

} // namespace

/// The overlay `frmScale`: it has no other job than to carry the outline of a drag.
class DragOverlay final : public QWidget {
public:
    explicit DragOverlay(QWidget* window) : QWidget(window) {
        setObjectName("frmScale");
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QColor accent = ToQColor(CurrentScheme().Accent);
        QColor fill = accent;
        fill.setAlphaF(0.08F);
        painter.setPen(QPen(accent, 2));
        painter.setBrush(fill);
        painter.drawRoundedRect(QRectF(PixelRect(DragOutline)).adjusted(1, 1, -1, -1), 8, 8);
    }
};

ModuleDesk::ModuleDesk(QWidget* window, std::function<void(const std::function<void()>&)> run)
    : QObject(window), window_(window), run_(std::move(run)), overlay_(new DragOverlay(window)) {
    constexpr std::array<Icon, 7> Pictures{Icon::EcgInput, Icon::Spectrum,  Icon::Coherence, Icon::History,
                                           Icon::Hrv,      Icon::QuickScan, Icon::Training};
    for (std::size_t i = 0; i < frames_.size(); ++i) {
        frames_[i] = new ModuleFrame(static_cast<int>(i), Pictures[i], window_);
        shadows_[i] = new ShadowBelow(frames_[i], window_, ModuleShadow);
        ConnectFrame(static_cast<int>(i));
    }
    Retranslate();
}

void ModuleDesk::Retranslate() {
    for (std::size_t i = 0; i < frames_.size(); ++i)
        frames_[i]->SetTitle(Text(TextModuleEcgInput + static_cast<int>(i)));
}

void ModuleDesk::ConnectFrame(int index) {
    TitleBar* title = frames_[static_cast<std::size_t>(index)]->Title();
    connect(title, &TitleBar::Pressed, this,
            [this, index](double x, double y) { run_([=] { PressPanel(index, x * Twips, y * Twips); }); });
    connect(title, &TitleBar::Moved, this, [this, index](int button, double x, double y) {
        if (button != 0)
            run_([=] { DragPanel(index, button, x * Twips, y * Twips); });
    });
    connect(title, &TitleBar::Released, this, [this, index] { run_([=] { EndDragPanel(index); }); });
    connect(title, &TitleBar::PinClicked, this,
            [this] { run_([] { LockPanels = static_cast<Boolean>(~LockPanels); }); });
    connect(title, &TitleBar::EnlargeClicked, this, [this, index] { run_([=] { EnlargePanel(index); }); });
    connect(title, &TitleBar::CloseClicked, this, [this, index] { run_([=] { ShowPanel(index, false); }); });

    title->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(title, &QWidget::customContextMenuRequested, this,
            [this, title, index](const QPoint& at) { ShowPlaceMenu(index, title->mapToGlobal(at)); });

    constexpr std::array<void (*)(int, int, double, double), 3> Routines{&SizePanelRight, &SizePanelBottom,
                                                                         &SizePanelCorner};
    const auto& sizers = frames_[static_cast<std::size_t>(index)]->Sizers();
    for (std::size_t i = 0; i < sizers.size(); ++i) {
        connect(sizers[i], &PanelSizer::Pressed, this, [this, index](double x, double y) {
            run_([=] { PressPanel(index, x * Twips, y * Twips); });
        });
        connect(sizers[i], &PanelSizer::Moved, this,
                [this, index, routine = Routines[i]](int button, double x, double y) {
                    run_([=] { routine(index, button, x * Twips, y * Twips); });
                });
        connect(sizers[i], &PanelSizer::Released, this,
                [this, index] { run_([=] { EndSizePanel(index); }); });
    }
}

// What the window's buttons and the tools menu do for all panels, for one of them.
void ModuleDesk::ShowPlaceMenu(int index, const QPoint& at) {
    auto* menu = new QMenu(window_);
    menu->setObjectName("picPlaceMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* keep = menu->addAction(Text(TextKeepPlace));
    QAction* back = menu->addAction(Text(TextBackToPlace));
    back->setEnabled(LayoutMayChange());
    menu->addSeparator();
    QAction* picture = menu->addAction(Text(TextMenuSnapshot));
    picture->setObjectName("labPanelSnapshot");
    connect(picture, &QAction::triggered, this, [this, index] { Snapshot(index); });
    connect(keep, &QAction::triggered, this, [this, index] { run_([=] { SavePanelRect(index); }); });
    connect(back, &QAction::triggered, this, [this, index] { run_([=] { BackToPlace(index); }); });
    menu->popup(at);
}

void ModuleDesk::MeasureWindow(const QRect& window) {
    const Density& density = DensityFor(window.width(), window.height());
    const QRect area = WorkArea(window.size());
    Workspace.TopBarHeight = static_cast<float>(density.TopBar) * Twips;
    Workspace.StatusHeight = static_cast<float>(density.StatusLine) * Twips;
    Workspace.TitleHeight = static_cast<float>(density.TitleBar) * Twips;
    Workspace.ModeBarWidth = TitleBar::MarksWidth * Twips;
    Workspace.Gap = static_cast<float>(density.Gap) * Twips;
    const Boolean shown = frmCanvas.Visible;
    PutAt(frmCanvas, window);
    frmCanvas.Visible = shown;
    LayoutCanvas();
    titleHeight_ = density.TitleBar;
    FitLoadedLayout();
    if (AutoScaleAll != Off && area.width() > 0 && area.height() > 0) {
        // As long as nobody has moved a panel, the built-in layout is fitted anew.
        if (StandsAsBuiltIn() || picModule == fitted_) {
            FitBuiltInLayout(area, density.Gap);
            fitted_ = picModule;
        } else if (!workArea_.isEmpty() && workArea_ != area) {
            for (PanelPlace& panel : picModule)
                PutAt(panel, Scaled(panel, workArea_, area));
        }
    }
    if (workArea_ != area)
        HoldPanelsInside();
    workArea_ = area;
}

void ModuleDesk::FitLoadedLayout() {
    if (!std::exchange(LayoutLoaded, false))
        return;
    const QSize madeFor(Pixels(frmScale.Width), Pixels(frmScale.Height));
    const QRect from = WorkArea(madeFor);
    const QRect to = WorkArea({Pixels(frmCanvas.Width), Pixels(frmCanvas.Height)});
    // A window that nobody can have had says nothing about the panels' proportions.
    const bool credible = from.width() >= 200 && from.height() >= 200;
    if (AutoScaleAll != Off && StandsAsBuiltIn()) {
        FitBuiltInLayout(to, Pixels(Workspace.Gap));
        fitted_ = picModule;
    } else if (AutoScaleAll != Off && credible && from != to) {
        for (PanelPlace& panel : picModule)
            PutAt(panel, Scaled(panel, from, to));
    }
    HoldPanelsInside();
    workArea_ = to;
}

bool ModuleDesk::LayOut() {
    FitLoadedLayout();
    bool changed = channelBLaidOut_ != ChannelBPresent;
    channelBLaidOut_ = ChannelBPresent;
    for (std::size_t i = 0; i < frames_.size(); ++i) {
        ModuleFrame* frame = frames_[i];
        const QRect place = PixelRect(picModule[i]);
        const bool shown = picModule[i].Visible != Off && TrainingActive == Off;
        changed = changed || frame->geometry() != place || frame->isHidden() == shown;
        frame->setGeometry(place);
        frame->setVisible(shown);
    }
    if (changed) {
        for (ModuleFrame* frame : frames_)
            frame->LayOut(titleHeight_, ChannelBPresent != Off);
    }
    if (orderShown_ != PanelOrder) {
        orderShown_ = PanelOrder;
        for (const int index : PanelOrder) {
            frames_[static_cast<std::size_t>(index)]->raise();
            shadows_[static_cast<std::size_t>(index)]->Restack();
        }
    }
    overlay_->raise();
    return changed;
}

void ModuleDesk::Mirror() {
    for (std::size_t i = 0; i < frames_.size(); ++i) {
        const bool active = ActivePanel == static_cast<int>(i);
        frames_[i]->SetActive(active);
        shadows_[i]->SetKind(active ? ActiveModuleShadow : ModuleShadow);
        frames_[i]->Title()->SetState(LockPanels != Off, PanelEnlarged(static_cast<int>(i)));
    }
    const bool dragged = DragOutline.Visible != Off;
    if (!dragged && overlay_->isHidden())
        return;
    overlay_->setGeometry(window_->rect());
    overlay_->setVisible(dragged);
    overlay_->update();
}

} // namespace pulselark
