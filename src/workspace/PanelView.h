#pragma once

#include "platform/qt/QtSurface.h"

#include <QWidget>

namespace pulselark {

/// Shows a panel's surface. A panel with a twin shows the one of the two that was drawn on last.
class PanelView final : public QWidget {
    Q_OBJECT

public:
    PanelView(const char* name, bool withTwin, QWidget* parent);

    QtSurface& Surface() { return surface_; }
    QtSurface& Twin() { return twin_; }

    /// Places the panel and gives its surfaces the same size; a hidden panel's surfaces have none.
    void Place(const QRect& rect, bool shown);

signals:
    /// A mouse movement or a press (1 left button held, 0 none), in panel units with y upwards.
    void Moved(int button, double x, double y);
    void Pressed(double x, double y);
    void Released();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void Show(const QtSurface& surface);

    QtSurface surface_;
    QtSurface twin_;
    const QtSurface* shown_ = &surface_;
};

} // namespace pulselark
