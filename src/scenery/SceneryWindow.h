#pragma once

#include "scenery/PacerDisc.h"
#include "scenery/PartnerWindow.h"
#include "scenery/Scenery.h"
#include "scenery/SceneryState.h"
#include "scenery/SceneryWorkshop.h"

#include <QTimer>

#include <memory>

namespace pulselark {

class SceneryMenu;

/// The scenery's window. It draws only while something moves: the scenery 30 times a second, the pacer as
/// often as the screen shows a picture.
class SceneryWindow final : public PartnerWindow {
    Q_OBJECT

public:
    SceneryWindow();

    /// Started by the main program, it waits some seconds for its place, so that it does not stand in the way
    /// before.
    void Present() override;
    /// Shows another scenery, by its number in `SceneryKinds()`.
    void Choose(int scenery);
    /// Whether it draws picture after picture.
    bool Animating() const { return frames_.isActive(); }

protected:
    void Take(const LinkMessage& message) override;
    void ShowMenu() override;

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    QSize DeviceSize() const;
    bool Fits() const;
    void OrderScenery();
    bool SceneryMoves(double now) const;
    void Animate();
    void NextFrame();
    QRect PacerRect() const;

    SceneryState state_;
    int chosen_ = 0;
    int scheme_ = 0; ///< in whose colours the pacer is painted
    SceneryWorkshop workshop_;
    std::shared_ptr<Scenery> scenery_; ///< none until the first is painted
    int ordered_ = 0;                  ///< number of the last order; what comes of earlier ones is dropped
    PacerDisc pacer_;
    SceneryMenu* menu_;
    QTimer frames_, settled_; ///< the next picture; the end of a change of size
    SceneryView view_;        ///< what the last picture of the scenery shows
    double drawn_ = -1;       ///< when that was
    QPointF pressed_;
    bool dragging_ = false;
};

} // namespace pulselark
