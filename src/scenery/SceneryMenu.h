#pragma once

#include "scenery/SceneryWorkshop.h"

#include <QAbstractButton>
#include <QWidget>

#include <vector>

namespace pulselark {

/// The choice of sceneries: a card with a small picture of each, and below them the whole screen and the end
/// of the program. Tells by pictures alone; each has a name for screen readers and a tool tip. Arrow keys
/// move, Return and Space choose, Escape closes.
class SceneryMenu final : public QWidget {
    Q_OBJECT

public:
    /// `workshop` paints the small pictures.
    SceneryMenu(SceneryWorkshop& workshop, QWidget* parent);

    /// Opens over its parent, with this scenery marked, on a card of this colour.
    void Open(int chosen, QColor card);
    /// Keeps its place in the middle of its parent.
    void Arrange();

signals:
    void Chosen(int scenery);
    void FullScreenWanted();
    void EndWanted();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void Move(int by);

    QColor card_;
    std::vector<QAbstractButton*> thumbs_;  ///< one for each scenery, in their order
    std::vector<QAbstractButton*> buttons_; ///< all, in the order of the keyboard
};

} // namespace pulselark
