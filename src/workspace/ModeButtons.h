#pragma once

#include "workspace/Icons.h"

#include <QAbstractButton>

#include <array>

namespace pulselark {

class HoverLight;

/// A button of the row `imBFC`: a feedback mode with its icon, name, hint and digit, or a square with an icon
/// and a word. The one that runs is white.
class ModeButton final : public QAbstractButton {
    Q_OBJECT

public:
    /// `index` 0 to 3 for the modes, 4 and 5 for the squares.
    ModeButton(int index, Icon icon, QWidget* parent);

    void SetWords(const QString& name, const QString& hint);
    /// Running: its session is under way. Chosen: it is the mode in use, whether or not it runs.
    void SetState(bool running, bool chosen);
    /// Width that shows all of its words; `high` is the row's height.
    int WantedWidth(int high) const;
    /// Whether its words have room beside its picture.
    bool HasRoomForPicture() const;
    void SetPicture(bool shown);

signals:
    /// The left (1) or right (2) mouse button, or the keyboard (1).
    void ClickedWith(int mouseButton);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    struct Inks {
        QColor Plate, Edge, Text, Hint, Disc;
    };
    bool Square() const { return index_ > 3; }
    Inks CurrentInks() const;
    void PaintMode(QPainter& painter, const Inks& inks) const;
    void PaintSquare(QPainter& painter, const Inks& inks) const;
    void PaintDigit(QPainter& painter, const Inks& inks, const QRectF& disc) const;

    int index_;
    Icon icon_;
    HoverLight* hover_;
    QString hint_;
    bool running_ = false;
    bool chosen_ = false;
    bool picture_ = true;
    bool keyboardFocus_ = false;
};

/// The row of the six buttons.
class ModeRow final : public QWidget {
    Q_OBJECT

public:
    explicit ModeRow(QWidget* parent);

    /// What runs, and the tool tips.
    void Mirror();
    void Retranslate();
    /// Space between two buttons, and around the row for the focus rings.
    void SetGap(int gap);
    static constexpr int Rim = 4;

signals:
    void Clicked(int index, int mouseButton);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void LayOut();

    std::array<ModeButton*, 6> buttons_;
    int gap_ = 12;
};

} // namespace pulselark
