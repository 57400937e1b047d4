#pragma once

#include <QObject>
#include <QRect>

#include <array>
#include <functional>
#include <vector>

namespace pulselark {

class ModuleFrame;
class PanelView;

/// The five analysis modules of the main window: their frames and panels, what the mouse does on them, and
/// the undo of a drag. It hands its surfaces to the core.
class AnalysisPanels final : public QObject {
    Q_OBJECT

public:
    /// `run` takes a routine through the core and shows the outcome.
    AnalysisPanels(QWidget* window, std::function<void(const std::function<void()>&)> run);
    ~AnalysisPanels() override;

    /// Places the modules inside `desk` with `gap` pixels between them.
    void LayOut(const QRect& desk, int gap, int titleHeight);
    void Mirror();

    /// Where the desk throws a shadow for a module; a deeper one for the module that is worked in.
    struct Shadow {
        QRect Place;
        bool Active;
    };
    std::vector<Shadow> Shadows() const;

    /// Escape: a drag that goes on is undone. Returns whether there was one.
    bool CancelDrag();

private:
    enum class Drag { None, Seek, Scale };

    PanelView* AddPanel(std::size_t module, const char* name, bool withTwin);
    void BuildEcg();
    void BuildSpectrum();
    void BuildCoherence();
    void BuildHistory();
    void BuildHrv();
    void ConnectSeek(PanelView* panel);
    void ConnectScale(PanelView* panel, std::function<void(int button, double x, double y)> drag);
    void ShowSeekCursor();
    void Release();
    void Activate(const QWidget* panel);

    QWidget* window_;
    std::function<void(const std::function<void()>&)> run_;
    std::array<ModuleFrame*, 5> modules_{};
    std::vector<PanelView*> panels_;
    std::array<PanelView*, 2> ecg_{};
    std::array<PanelView*, 2> hrv_{};
    std::array<PanelView*, 2> bars_{};
    Drag drag_ = Drag::None;
    int secondAtPress_ = 1;
    int seekRowShown_ = -1;
};

} // namespace pulselark
