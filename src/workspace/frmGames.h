#pragma once

#include "platform/qt/QtSurface.h"
#include "workspace/FloatingForm.h"

#include <array>
#include <functional>

class QLabel;

namespace pulselark {

class ActionButton;
class PanelSizer;

/// The chart `picGame` with its marker in front.
class GameView final : public QWidget {
    Q_OBJECT

public:
    explicit GameView(QWidget* parent);
    ~GameView() override;

    /// Draws the chart anew, for a new size or another colour scheme.
    void Rebuild();
    void Mirror();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QtSurface surface_;
    int schemeShown_ = -1;
};

/// The games' window: coherence and beat interval of channel A as a marker on a chart. A tool window that the
/// mouse moves by its title and sizes at its right edge, its lower edge and the corner between them.
class frmGames final : public FloatingForm {
    Q_OBJECT

public:
    frmGames(QWidget* owner, std::function<void(const std::function<void()>&)> run);

    void Mirror();
    void Retranslate();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void ConnectSizer(PanelSizer* sizer, bool wide, bool high);

    std::function<void(const std::function<void()>&)> run_;
    QLabel* title_;
    ActionButton* picClose_;
    GameView* picGame_;
    QLabel* axes_;
    std::array<PanelSizer*, 3> sizers_;
    QPointF grip_; // where the mouse holds a sizer
};

} // namespace pulselark
