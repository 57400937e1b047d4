#pragma once

#include <QDialog>
#include <QPointer>

namespace pulselark {

class ShadowBelow;

/// A window without the desktop's frame: paper with round corners, a shadow on its owner, dragged by itself.
/// It opens in the middle of its owner.
class FloatingForm : public QDialog {
    Q_OBJECT

public:
    FloatingForm(QWidget* owner, const QString& name);
    ~FloatingForm() override;

protected:
    /// Only the uppermost rows of pixels drag the window, and stand on a white title row with a line below.
    void SetTitleRow(int height) { titleRow_ = height; }
    /// Moves the window back to where its screen shows all of it, or at least its title.
    void KeepOnScreen();

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QPointer<ShadowBelow> shadow_;
    QPoint grip_; // where the mouse holds the window
    int titleRow_ = 0;
    bool dragged_ = false;
    bool placed_ = false;
};

/// Paints the paper of a form: round corners and an edge.
void PaintFormPaper(QPainter& painter, const QRect& form, int titleRow);

} // namespace pulselark
