#pragma once

#include "session/ModulePanels.h"

#include <QObject>
#include <QRect>
#include <QSize>

#include <array>
#include <functional>

class QWidget;

namespace pulselark {

class DragOverlay;
class ModuleFrame;
class ShadowBelow;

/// The seven module panels on the main window: their frames at the places that the core gives them, the mouse
/// on title bars, sizers and marks, and the overlay `frmScale` with the outline of a drag.
class ModuleDesk final : public QObject {
    Q_OBJECT

public:
    /// `run` takes a routine through the core and shows the outcome.
    ModuleDesk(QWidget* window, std::function<void(const std::function<void()>&)> run);

    /// A picture of one panel is wanted.
    std::function<void(int index)> Snapshot;

    ModuleFrame* Frame(std::size_t index) const { return frames_[index]; }

    /// Tells the core the sizes of the window and of its bars, and where the window stands. With
    /// `AutoScaleAll` the panels keep their proportions of the work area.
    void MeasureWindow(const QRect& window);
    /// Brings the frames to their places. Returns whether any place has changed.
    bool LayOut();
    void Retranslate();
    void Mirror();
    /// The menu of a panel, at a place on the screen: remembering its place, going back to it, its picture.
    void ShowPlaceMenu(int index, const QPoint& at);

private:
    void ConnectFrame(int index);
    /// Panels that a configuration has placed: proportions as they were in its window, none of them lost.
    void FitLoadedLayout();

    QWidget* window_;
    std::function<void(const std::function<void()>&)> run_;
    std::array<ModuleFrame*, ModulePanelCount> frames_{};
    std::array<ShadowBelow*, ModulePanelCount> shadows_{};
    DragOverlay* overlay_;
    QRect workArea_;
    std::array<PanelPlace, ModulePanelCount> fitted_{}; // the built-in layout, as it was fitted last
    int titleHeight_ = 28;
    short channelBLaidOut_ = 0;
    std::array<int, ModulePanelCount> orderShown_{};
};

} // namespace pulselark
