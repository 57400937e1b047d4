#include "workspace/AnalysisPanels.h"

#include "analysis/CoherencePanel.h"
#include "analysis/History.h"
#include "analysis/HrvPanel.h"
#include "analysis/InputCD.h"
#include "analysis/ModulePlaces.h"
#include "analysis/PanelDrawing.h"
#include "analysis/ScaleDrag.h"
#include "analysis/SpectrumPanel.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "session/Seek.h"
#include "workspace/DefaultPlaces.h"
#include "workspace/ModuleFrame.h"
#include "workspace/PanelView.h"
#include "workspace/SeekCursors.h"
#include "workspace/Texts.h"

#include <utility>

namespace pulselark {

namespace {

enum ModuleIndex : std::size_t { EcgModule, SpectrumModule, CoherenceModule, HistoryModule, HrvModule };

std::vector<const CaptionLabel*> HistoryCaptions(const std::array<CaptionLabel, 3>& captions,
                                                 const CaptionLabel& rate) {
    return {&captions[0], &captions[1], &captions[2], &rate};
}

} // namespace

AnalysisPanels::AnalysisPanels(QWidget* window, std::function<void(const std::function<void()>&)> run)
    : QObject(window), window_(window), run_(std::move(run)) {
    constexpr std::array<Icon, 5> Pictures{Icon::EcgInput, Icon::Spectrum, Icon::Coherence, Icon::History,
                                           Icon::Hrv};
    for (std::size_t i = 0; i < modules_.size(); ++i) {
        const int index = static_cast<int>(i);
        modules_[i] = new ModuleFrame(index, Pictures[i], Text(TextModuleEcgInput + index), window_);
    }
    BuildEcg();
    BuildSpectrum();
    BuildCoherence();
    BuildHistory();
    BuildHrv();
}

void AnalysisPanels::Activate(const QWidget* panel) {
    for (ModuleFrame* module : modules_)
        module->SetActive(panel->parentWidget() == module);
    window_->update(); // the shadows are the desk's
}

std::vector<AnalysisPanels::Shadow> AnalysisPanels::Shadows() const {
    std::vector<Shadow> shadows;
    for (const ModuleFrame* module : modules_)
        shadows.push_back({module->geometry(), module->Active()});
    return shadows;
}

AnalysisPanels::~AnalysisPanels() {
    ResetPanelSurfaces();
}

PanelView* AnalysisPanels::AddPanel(std::size_t module, const char* name, bool withTwin) {
    auto* panel = new PanelView(name, withTwin, modules_[module]);
    panels_.push_back(panel);
    return panel;
}

void AnalysisPanels::BuildEcg() {
    ecg_ = {AddPanel(EcgModule, "picIA", true), AddPanel(EcgModule, "picIB", true)};
    ecg_[0]->setAccessibleName(Text(TextEcgA));
    ecg_[1]->setAccessibleName(Text(TextEcgB));
    ecg_[0]->SetNotice(&labNoSession);
    modules_[EcgModule]->SetPanels(ecg_[0], ecg_[1]);
    picIA = &ecg_[0]->Surface();
    picIAP = &ecg_[0]->Twin();
    picIB = &ecg_[1]->Surface();
    picIBP = &ecg_[1]->Twin();
    for (PanelView* panel : ecg_) {
        panel->setToolTip(Text(TextSeekTip));
        ConnectSeek(panel);
    }
}

void AnalysisPanels::BuildSpectrum() {
    PanelView* a = AddPanel(SpectrumModule, "picSA", false);
    PanelView* b = AddPanel(SpectrumModule, "picSB", false);
    a->setAccessibleName(Text(TextSpectrumA));
    b->setAccessibleName(Text(TextSpectrumB));
    a->SetCaptions({&labLeftS});
    a->SetNotice(&labNoSession);
    b->SetCaptions({&labRightS});
    modules_[SpectrumModule]->SetPanels(a, b);
    picSA = &a->Surface();
    picSB = &b->Surface();
    for (PanelView* panel : {a, b}) {
        ConnectScale(panel, [panel](int button, double x, double y) {
            DragSpectrumScale(button, x, y, panel->width());
        });
    }
}

void AnalysisPanels::BuildCoherence() {
    PanelView* a = AddPanel(CoherenceModule, "picGCA", false);
    PanelView* b = AddPanel(CoherenceModule, "picGCB", false);
    a->setAccessibleName(Text(TextCoherenceA));
    b->setAccessibleName(Text(TextCoherenceB));
    a->SetCaptions({&labLeftGC});
    a->SetNotice(&labNoSession);
    b->SetCaptions({&labRightGC});
    modules_[CoherenceModule]->SetPanels(a, b);
    picGCA = &a->Surface();
    picGCB = &b->Surface();
    for (PanelView* panel : {a, b})
        ConnectScale(panel, [](int button, double, double y) { DragCoherenceScale(button, y); });
}

void AnalysisPanels::BuildHistory() {
    PanelView* a = AddPanel(HistoryModule, "picHisA", false);
    PanelView* b = AddPanel(HistoryModule, "picHisB", false);
    a->setAccessibleName(Text(TextModuleHistory) + " A");
    b->setAccessibleName(Text(TextModuleHistory) + " B");
    a->SetCaptions(HistoryCaptions(labLeftHis, labBPMA));
    a->SetNotice(&labNoSession);
    b->SetCaptions(HistoryCaptions(labRightHis, labBPMB));
    modules_[HistoryModule]->SetPanels(a, b);
    picHisA = &a->Surface();
    picHisB = &b->Surface();
    for (PanelView* panel : {a, b})
        ConnectScale(panel, &DragHistoryScale);
}

void AnalysisPanels::BuildHrv() {
    hrv_ = {AddPanel(HrvModule, "picHRVA", false), AddPanel(HrvModule, "picHRVB", false)};
    bars_ = {AddPanel(HrvModule, "picHRVPowerA", false), AddPanel(HrvModule, "picHRVPowerB", false)};
    hrv_[0]->setAccessibleName(Text(TextHrvPowerA));
    hrv_[1]->setAccessibleName(Text(TextHrvPowerB));
    bars_[0]->setAccessibleName(Text(TextHrvPowerA) + " LF, HF");
    bars_[1]->setAccessibleName(Text(TextHrvPowerB) + " LF, HF");
    hrv_[0]->SetCaptions({&labLeftHRV});
    hrv_[1]->SetCaptions({&labRightHRV});
    hrv_[0]->SetNotice(&labHRVNoDataA);
    hrv_[1]->SetNotice(&labHRVNoDataB);
    modules_[HrvModule]->SetPanels(hrv_[0], hrv_[1]);
    picHRVA = &hrv_[0]->Surface();
    picHRVB = &hrv_[1]->Surface();
    picHRVPowerA = &bars_[0]->Surface();
    picHRVPowerB = &bars_[1]->Surface();
    for (PanelView* panel : hrv_)
        ConnectScale(panel, [](int button, double, double y) { DragHrvScale(button, y); });
    for (PanelView* bar : bars_) {
        bar->SetFramed(true);
        bar->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
}

void AnalysisPanels::ConnectSeek(PanelView* panel) {
    connect(panel, &PanelView::Moved, this, [this, panel](int button, double x, double y) {
        if (button != 0 && drag_ != Drag::Seek)
            return; // the drag was undone; the button is still down
        run_([&] { SeekByEcgPanel(button, x, y, panel->width(), panel->height()); });
        ShowSeekCursor();
    });
    connect(panel, &PanelView::Pressed, this, [this, panel](double x, double y) {
        drag_ = Drag::Seek;
        Activate(panel);
        run_([&] {
            PressEcgPanel();
            SeekByEcgPanel(0, x, y, panel->width(), panel->height());
        });
        secondAtPress_ = SessionTick;
    });
    connect(panel, &PanelView::Released, this, &AnalysisPanels::Release);
}

void AnalysisPanels::ConnectScale(PanelView* panel, std::function<void(int, double, double)> drag) {
    panel->setToolTip(Text(TextScaleTip));
    panel->setCursor(Qt::SizeAllCursor);
    connect(panel, &PanelView::Moved, this, [this, drag](int button, double x, double y) {
        if (button != 0 && drag_ != Drag::Scale)
            return;
        if (button == 0)
            drag(0, x, y);
        else
            run_([&] { drag(1, x, y); });
    });
    connect(panel, &PanelView::Pressed, this, [this, panel, drag](double x, double y) {
        drag_ = Drag::Scale;
        Activate(panel);
        BeginScaleDrag();
        drag(0, x, y);
    });
    connect(panel, &PanelView::Released, this, &AnalysisPanels::Release);
}

void AnalysisPanels::Release() {
    const Drag ended = std::exchange(drag_, Drag::None);
    if (ended == Drag::Seek)
        run_(&ReleaseEcgPanel);
    if (ended == Drag::Scale)
        run_(&EndScaleDrag);
}

bool AnalysisPanels::CancelDrag() {
    const Drag cancelled = std::exchange(drag_, Drag::None);
    if (cancelled == Drag::Seek)
        run_([this] { SeekToSecond(secondAtPress_); });
    if (cancelled == Drag::Scale)
        run_(&CancelScaleDrag);
    return cancelled != Drag::None;
}

void AnalysisPanels::ShowSeekCursor() {
    if (SessionRunning != Off || EcgViewState.SeekRow == seekRowShown_)
        return;
    seekRowShown_ = EcgViewState.SeekRow;
    for (PanelView* panel : ecg_)
        panel->setCursor(SeekCursor(seekRowShown_));
}

void AnalysisPanels::LayOut(const QRect& desk, int gap, int titleHeight) {
    const auto places = DefaultPlaces(desk, gap);
    for (std::size_t i = 0; i < modules_.size(); ++i) {
        modules_[i]->setGeometry(places[i]);
        modules_[i]->LayOut(titleHeight, ChannelBPresent != Off);
    }
    SetPanelFont(*picHRVA);
    for (std::size_t i = 0; i < bars_.size(); ++i) {
        const QRect panel = hrv_[i]->geometry();
        const auto twips = [](int pixels) { return pixels * TwipsPerPixel; };
        const TwipsRect bar =
            PowerBarPlace(twips(modules_[HrvModule]->width()),
                          {twips(panel.x()), twips(panel.y()), twips(panel.width()), twips(panel.height())},
                          picHRVA->TextHeight("123") * TwipsPerPixel);
        const bool shown = ShowHrvPower != Off && hrv_[i]->isVisibleTo(modules_[HrvModule]);
        bars_[i]->Place(ToPixels(bar), shown);
        bars_[i]->raise();
    }
}

void AnalysisPanels::Mirror() {
    for (PanelView* panel : panels_)
        panel->Mirror();
}

} // namespace pulselark
