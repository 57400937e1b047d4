#pragma once

#include <QWidget>

namespace pulselark {

/// What a control stands on; it decides the colour of its ring.
enum class Ground { Form, Bar, Module };

/// The ring around the control of a window that has the keyboard: 2 px wide at a distance of 2. It shows only
/// while the keyboard is used.
class FocusRing final : public QWidget {
    Q_OBJECT

public:
    explicit FocusRing(QWidget* window);
    /// The ring of a window, which is made at its first use.
    static FocusRing& Of(QWidget* window);

    /// Looks after a control; `radius` is that of the control's own corners. Called again it takes over a new
    /// radius.
    void Watch(QWidget* control, int radius, Ground ground = Ground::Form);
    /// Looks after all push buttons, fields and lists that the window has now, with the corners that the
    /// style of the side windows gives them.
    void WatchSideWindow();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void PlaceAround(QWidget* control);

    int radius_ = 0;
    Ground ground_ = Ground::Form;
    bool keyboard_ = false; // the last thing used
};

/// Paints a ring around the outline of a control with corners of that radius.
void PaintFocusRing(QPainter& painter, const QRectF& control, double radius, Ground ground);

} // namespace pulselark
