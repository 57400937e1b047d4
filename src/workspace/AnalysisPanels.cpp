#include "workspace/AnalysisPanels.h"

#include "analysis/CoherencePanel.h"
#include "analysis/ColourSchemes.h"
#include "analysis/GameChart.h"
#include "analysis/History.h"
#include "analysis/HrvPanel.h"
#include "analysis/InputCD.h"
#include "analysis/ModulePlaces.h"
#include "analysis/PanelDrawing.h"
#include "analysis/ScaleDrag.h"
#include "analysis/SpectrumPanel.h"
#include "session/Controls.h"
#include "session/LanguageTable.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/PanelSurfaces.h"
#include "session/Seek.h"
#include "workspace/Look.h"
#include "workspace/ModuleDesk.h"
#include "workspace/ModuleFrame.h"
#include "workspace/PanelView.h"
#include "workspace/SeekCursors.h"
#include "workspace/Texts.h"

#include <algorithm>
#include <utility>

namespace pulselark {

namespace {

enum ModuleIndex : int { EcgModule, SpectrumModule, CoherenceModule, HistoryModule, HrvModule };

std::vector<const CaptionLabel*> HistoryCaptions(const std::array<CaptionLabel, 3>& captions,
                                                 const CaptionLabel& rate) {
    return {&captions[0], &captions[1], &captions[2], &rate};
}

} // namespace

AnalysisPanels::AnalysisPanels(ModuleDesk& desk, std::function<void(const std::function<void()>&)> run)
    : QObject(&desk), desk_(desk), run_(std::move(run)) {
    BuildEcg();
    BuildSpectrum();
    BuildCoherence();
    BuildHistory();
    BuildHrv();
    Retranslate();
}

void AnalysisPanels::Retranslate() {
    const auto name = [](const std::array<PanelView*, 2>& panels, const QString& a, const QString& b,
                         int tip) {
        panels[0]->setAccessibleName(a);
        panels[1]->setAccessibleName(b);
        for (PanelView* panel : panels)
            panel->setToolTip(TipLines(Text(tip)));
    };
    name(ecg_, Text(TextEcgA), Text(TextEcgB), TextSeekTip);
    name(spectrum_, Text(TextSpectrumA), Text(TextSpectrumB), TextScaleTip);
    name(coherence_, Text(TextCoherenceA), Text(TextCoherenceB), TextScaleTip);
    name(history_, Text(TextModuleHistory) + " A", Text(TextModuleHistory) + " B", TextScaleTip);
    name(hrv_, Text(TextHrvPowerA), Text(TextHrvPowerB), TextScaleTip);
    bars_[0]->setAccessibleName(Text(TextHrvPowerA) + " LF, HF");
    bars_[1]->setAccessibleName(Text(TextHrvPowerB) + " LF, HF");
}

AnalysisPanels::~AnalysisPanels() {
    ResetPanelSurfaces();
}

PanelView* AnalysisPanels::AddPanel(int module, const char* name, bool withTwin) {
    auto* panel = new PanelView(name, withTwin, desk_.Frame(static_cast<std::size_t>(module)));
    panels_.push_back(panel);
    return panel;
}

void AnalysisPanels::BuildEcg() {
    ecg_ = {AddPanel(EcgModule, "picIA", true), AddPanel(EcgModule, "picIB", true)};
    ecg_[0]->SetNotices({&labNoSession});
    for (std::size_t i = 0; i < ecg_.size(); ++i)
        ecg_[i]->SetCaptions({&ecgCaptions_[i]});
    desk_.Frame(EcgModule)->SetPanels(ecg_[0], ecg_[1]);
    picIA = &ecg_[0]->Surface();
    picIAP = &ecg_[0]->Twin();
    picIB = &ecg_[1]->Surface();
    picIBP = &ecg_[1]->Twin();
    for (PanelView* panel : ecg_)
        ConnectSeek(panel);
}

void AnalysisPanels::BuildSpectrum() {
    spectrum_ = {AddPanel(SpectrumModule, "picSA", false), AddPanel(SpectrumModule, "picSB", false)};
    const auto [a, b] = spectrum_;
    a->SetCaptions({&labLeftS});
    a->SetNotices({&labNoSession});
    b->SetCaptions({&labRightS});
    desk_.Frame(SpectrumModule)->SetPanels(a, b);
    picSA = &a->Surface();
    picSB = &b->Surface();
    for (PanelView* panel : {a, b}) {
        ConnectScale(SpectrumModule, panel, [panel](int button, double x, double y) {
            DragSpectrumScale(button, x, y, panel->width());
        });
    }
}

void AnalysisPanels::BuildCoherence() {
    coherence_ = {AddPanel(CoherenceModule, "picGCA", false), AddPanel(CoherenceModule, "picGCB", false)};
    const auto [a, b] = coherence_;
    a->SetCaptions({&labLeftGC});
    a->SetNotices({&labNoSession});
    b->SetCaptions({&labRightGC});
    desk_.Frame(CoherenceModule)->SetPanels(a, b);
    picGCA = &a->Surface();
    picGCB = &b->Surface();
    for (PanelView* panel : {a, b})
        ConnectScale(CoherenceModule, panel,
                     [](int button, double, double y) { DragCoherenceScale(button, y); });
}

void AnalysisPanels::BuildHistory() {
    history_ = {AddPanel(HistoryModule, "picHisA", false), AddPanel(HistoryModule, "picHisB", false)};
    const auto [a, b] = history_;
    a->SetCaptions(HistoryCaptions(labLeftHis, labBPMA));
    a->SetNotices({&labNoSession});
    b->SetCaptions(HistoryCaptions(labRightHis, labBPMB));
    desk_.Frame(HistoryModule)->SetPanels(a, b);
    picHisA = &a->Surface();
    picHisB = &b->Surface();
    for (PanelView* panel : {a, b}) {
        ConnectScale(HistoryModule, panel, &DragHistoryScale);
        connect(panel, &PanelView::DoubleClicked, this, [this] { run_(&OpenGamesFromHistory); });
    }
}

void AnalysisPanels::BuildHrv() {
    hrv_ = {AddPanel(HrvModule, "picHRVA", false), AddPanel(HrvModule, "picHRVB", false)};
    bars_ = {AddPanel(HrvModule, "picHRVPowerA", false), AddPanel(HrvModule, "picHRVPowerB", false)};
    hrv_[0]->SetCaptions({&labLeftHRV});
    hrv_[1]->SetCaptions({&labRightHRV});
    hrv_[0]->SetNotices({&labNoSession, &labHRVNoDataA});
    hrv_[1]->SetNotices({&labNoSession, &labHRVNoDataB});
    desk_.Frame(HrvModule)->SetPanels(hrv_[0], hrv_[1]);
    picHRVA = &hrv_[0]->Surface();
    picHRVB = &hrv_[1]->Surface();
    picHRVPowerA = &bars_[0]->Surface();
    picHRVPowerB = &bars_[1]->Surface();
    for (PanelView* panel : hrv_)
        ConnectScale(HrvModule, panel, [](int button, double, double y) { DragHrvScale(button, y); });
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
        run_([&] {
            PressPanel(EcgModule, 0, 0);
            PressEcgPanel();
            SeekByEcgPanel(0, x, y, panel->width(), panel->height());
        });
        secondAtPress_ = SessionTick;
    });
    connect(panel, &PanelView::Released, this, &AnalysisPanels::Release);
}

void AnalysisPanels::ConnectScale(int module, PanelView* panel,
                                  std::function<void(int, double, double)> drag) {
    panel->setCursor(Qt::SizeAllCursor);
    connect(panel, &PanelView::Moved, this, [this, drag](int button, double x, double y) {
        if (button != 0 && drag_ != Drag::Scale)
            return;
        if (button == 0)
            drag(0, x, y);
        else
            run_([&] { drag(1, x, y); });
    });
    connect(panel, &PanelView::Pressed, this, [this, module, drag](double x, double y) {
        drag_ = Drag::Scale;
        run_([&] {
            PressPanel(module, 0, 0);
            BeginScaleDrag();
            drag(0, x, y);
        });
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

void AnalysisPanels::PlaceEcgCaptions() {
    constexpr double Padding = 4;
    constexpr std::array<int, 2> Texts{TextEcgA, TextEcgB};
    for (std::size_t i = 0; i < ecg_.size(); ++i) {
        Surface& panel = ecg_[i]->Surface();
        CaptionLabel& caption = ecgCaptions_[i];
        SetPanelFont(panel);
        const double time = panel.TextWidth("00:00");
        const double left = std::min(panel.TextWidth("+500mV") + 0.05 * time, panel.Width() - 0.95 * time);
        panel.SetFont("Arial", 8, false);
        caption.Caption = LanguageText(Texts[i]);
        caption.Left = left - Padding;
        caption.Width = panel.TextWidth(caption.Caption) + 2 * Padding;
        caption.Height = panel.TextHeight(caption.Caption); // exactly over the printed one
        caption.ForeColour = CurrentScheme().Text;
        caption.Visible = true;
        SetPanelFont(panel);
    }
}

void AnalysisPanels::LayOut() {
    PlaceEcgCaptions();
    const QWidget* module = desk_.Frame(HrvModule);
    SetPanelFont(*picHRVA);
    for (std::size_t i = 0; i < bars_.size(); ++i) {
        const QRect panel = hrv_[i]->geometry();
        const auto twips = [](int pixels) { return pixels * TwipsPerPixel; };
        const TwipsRect bar =
            PowerBarPlace(twips(module->width()),
                          {twips(panel.x()), twips(panel.y()), twips(panel.width()), twips(panel.height())},
                          picHRVA->TextHeight("123") * TwipsPerPixel);
        const bool shown = ShowHrvPower != Off && hrv_[i]->isVisibleTo(module);
        bars_[i]->Place(ToPixels(bar), shown);
        bars_[i]->raise();
    }
}

void AnalysisPanels::Mirror() {
    for (PanelView* panel : panels_)
        panel->Mirror();
}

} // namespace pulselark
