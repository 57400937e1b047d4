#pragma once

#include "platform/qt/QtSurface.h"

#include <QWidget>

#include <functional>

namespace pulselark {

/// The pad `picST` on which sounds are tried out: dragged, or moved with the arrow keys.
class SoundPad final : public QWidget {
    Q_OBJECT

public:
    explicit SoundPad(QWidget* parent);

    QSize sizeHint() const override { return {200, 96}; }

signals:
    /// The hill was moved by so many pixels, y downwards.
    void Dragged(double dx, double dy);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Move(double dx, double dy);
    void Draw();

    QtSurface surface_;
    QPointF last_;
};

} // namespace pulselark
