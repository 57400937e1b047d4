#pragma once

#include "session/Replay.h"
#include "workspace/Icons.h"

#include <QAbstractButton>

namespace pulselark {

/// A round button of the top bar: record, replay or stop.
class TransportButton final : public QAbstractButton {
    Q_OBJECT

public:
    TransportButton(const char* name, Icon icon, QWidget* parent);

    void SetDiameter(int diameter);
    /// What the keyboard stands for; at first the right button: normal speed.
    void SetKeyButton(MouseButton button) { keyButton_ = button; }
    /// Available: can be pressed. Running: what the button starts is under way. Lifted: under the pointer.
    void SetState(bool available, bool running, bool lifted);
    /// The lamp of the record button: its ring lights at a beat, and is grey while no monitor answers.
    void SetLamp(bool beat, bool silent);

signals:
    /// Released with the left (1) or right (2) mouse button, or by the keyboard.
    void ReleasedWith(int mouseButton);
    void PressedDown();
    /// The pointer comes over the button, or leaves it.
    void Hovered(bool over);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void PaintRecording(QPainter& painter) const;

    Icon icon_;
    bool available_ = false;
    bool running_ = false;
    bool lifted_ = false;
    bool pressed_ = false;
    bool beat_ = false;
    bool silent_ = false;
    MouseButton keyButton_ = RightButton;
};

} // namespace pulselark
