#pragma once

#include "base/Controls.h"
#include "platform/qt/QtSurface.h"

#include <QWidget>

#include <vector>

namespace pulselark {

/// Shows a panel's surface, with its captions over it. A panel with a twin shows the one of the two that was
/// drawn on last.
class PanelView final : public QWidget {
    Q_OBJECT

public:
    PanelView(const char* name, bool withTwin, QWidget* parent);

    QtSurface& Surface() { return surface_; }
    QtSurface& Twin() { return twin_; }

    /// Captions over the top of the panel; they must outlive the view.
    void SetCaptions(std::vector<const CaptionLabel*> captions) { captions_ = std::move(captions); }
    /// What stands in the middle of a panel that has nothing to show, the first of them that is visible; they
    /// must outlive the view.
    void SetNotices(std::vector<const Label*> notices) { notices_ = std::move(notices); }
    /// A frame of one pixel around the surface.
    void SetFramed(bool framed) { framed_ = framed; }

    /// Places the panel and gives its surfaces the same size; a hidden panel's surfaces have none.
    void Place(const QRect& rect, bool shown);
    /// Takes over captions and notice as they are now.
    void Mirror();

signals:
    /// A mouse movement or a press (1 left button held, 0 none), in panel units with y upwards.
    void Moved(int button, double x, double y);
    void Pressed(double x, double y);
    void Released();
    void DoubleClicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void Show(const QtSurface& surface);
    void PaintCaption(QPainter& painter, const CaptionLabel& caption, Qt::Alignment alignment) const;
    void PaintNotice(QPainter& painter, const QString& text) const;

    QtSurface surface_;
    QtSurface twin_;
    const QtSurface* shown_ = &surface_;
    std::vector<const CaptionLabel*> captions_;
    std::vector<const Label*> notices_;
    bool framed_ = false;
    QString words_; // of captions and notice, as painted last
};

} // namespace pulselark
