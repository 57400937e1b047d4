#pragma once

#include "base/Controls.h"

#include <QObject>

#include <array>
#include <functional>
#include <vector>

namespace pulselark {

class ModuleDesk;
class PanelView;

/// The five analysis modules of the main window: their frames and panels, what the mouse does on them, and
/// the undo of a drag. It hands its surfaces to the core.
class AnalysisPanels final : public QObject {
    Q_OBJECT

public:
    /// `run` takes a routine through the core and shows the outcome.
    AnalysisPanels(ModuleDesk& desk, std::function<void(const std::function<void()>&)> run);
    ~AnalysisPanels() override;

    /// Places what stands in front of the panels, after the modules have been laid out.
    void LayOut();
    /// Sets all names and tool tips in the language in use.
    void Retranslate();
    void Mirror();

    /// Escape: a drag that goes on is undone. Returns whether there was one.
    bool CancelDrag();

private:
    enum class Drag { None, Seek, Scale };

    PanelView* AddPanel(int module, const char* name, bool withTwin);
    void BuildEcg();
    void BuildSpectrum();
    void BuildCoherence();
    void BuildHistory();
    void BuildHrv();
    /// The caption that the drawing has printed, once more on a plate over the trace.
    void PlaceEcgCaptions();
    void ConnectSeek(PanelView* panel);
    void ConnectScale(int module, PanelView* panel, std::function<void(int button, double x, double y)> drag);
    void ShowSeekCursor();
    void Release();

    ModuleDesk& desk_;
    std::function<void(const std::function<void()>&)> run_;
    std::vector<PanelView*> panels_;
    std::array<PanelView*, 2> ecg_{};
    std::array<CaptionLabel, 2> ecgCaptions_;
    std::array<PanelView*, 2> spectrum_{};
    std::array<PanelView*, 2> coherence_{};
    std::array<PanelView*, 2> history_{};
    std::array<PanelView*, 2> hrv_{};
    std::array<PanelView*, 2> bars_{};
    Drag drag_ = Drag::None;
    int secondAtPress_ = 1;
    int seekRowShown_ = -1;
};

} // namespace pulselark
