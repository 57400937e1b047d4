#pragma once

#include "feedback/PlayerPanel.h"
#include "platform/qt/QtSurface.h"

#include <QWidget>

#include <functional>

namespace pulselark {

/// The music player's panel `picMCT`: a card over the training view. Everything on it can be reached with the
/// arrow keys and pressed with Return or the space bar; Escape closes it.
class PlayerView final : public QWidget {
    Q_OBJECT

public:
    /// `run` takes a routine through the core and shows the outcome.
    PlayerView(QWidget* parent, std::function<void(const std::function<void()>&)> run);
    ~PlayerView() override;

    /// Shows or hides the card, at the right of the parent.
    void Mirror();
    void Retranslate();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void Place();
    void Draw();
    void Choose(int step);
    void Press(const PlayerZone& zone);

    std::function<void(const std::function<void()>&)> run_;
    QtSurface surface_;
    bool dragsVolume_ = false;
    int chosen_ = -1; // zone of the keyboard
};

} // namespace pulselark
