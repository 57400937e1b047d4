#pragma once

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QListWidget>

#include <functional>

/// The controls of forms and dialogs, in one palette for all colour schemes. They show what they are told and
/// report what the user does; none turns itself over.
namespace pulselark {

class HoverLight;

/// A row with a box and a text; under the pointer it turns into a dark plate.
class ToggleRow final : public QAbstractButton {
    Q_OBJECT

public:
    /// The round box is for toggles that exclude each other.
    enum class Box { Square, Round };
    ToggleRow(const QString& name, Box box, QWidget* parent);

    void SetCaption(const QString& caption);
    QSize sizeHint() const override;

    static constexpr int Height = 32;
    static constexpr int Indent = 30; ///< of a toggle that depends on the one before
    static constexpr int Padding = 8; ///< of the plate around box and text

protected:
    void nextCheckState() override {}
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Box box_;
    HoverLight* hover_;
};

/// A plain button. With a sign its text stands left and the sign right.
class ActionButton final : public QAbstractButton {
    Q_OBJECT

public:
    enum class Sign { None, Chevron, Link, Note, Close };
    ActionButton(const QString& name, Sign sign, QWidget* parent);

    void SetCaption(const QString& caption);
    /// Shows the sign alone, without edge; the caption is its name.
    void SetBare(bool bare);
    /// What it does cannot be taken back.
    void SetDanger(bool danger) { danger_ = danger; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Sign sign_;
    HoverLight* hover_;
    bool bare_ = false;
    bool danger_ = false;
};

/// A switch: on is filled with a tick and the thumb right, off is hollow with the thumb left.
class FormSwitch final : public QAbstractButton {
    Q_OBJECT

public:
    FormSwitch(const QString& name, QWidget* parent);
    QSize sizeHint() const override { return {40, 22}; }

protected:
    void nextCheckState() override {}
    void paintEvent(QPaintEvent* event) override;
};

/// A knob on its track, from 0 unless it is given a range. The mouse moves it; keys ask for a step.
class Knob final : public QAbstractSlider {
    Q_OBJECT

public:
    Knob(const QString& name, int end, QWidget* parent);
    QSize sizeHint() const override { return {120, Thumb}; }

    static constexpr int Thumb = 20;

signals:
    /// An arrow asks for 1, a page key for 10, Home and End for as far as it goes; negative to the left.
    void Stepped(int steps);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override; // it is for the form to scroll
    void paintEvent(QPaintEvent* event) override;

private:
    void FollowPointer(double x);
};

/// A list of rows, one of them chosen. Without rows it says why.
class FormList final : public QListWidget {
    Q_OBJECT

public:
    FormList(const QString& name, int rowsShown, QWidget* parent);

    /// Takes over the rows and which one is chosen, -1 for none.
    void SetRows(const QStringList& rows, int chosen, const QString& emptyText);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    static constexpr int RowHeight = 28;

signals:
    /// The user has chosen another row.
    void RowChosen(int row);

private:
    int rowsShown_;
};

/// Small pictures side by side, one of them chosen; in several rows if there are more than `columns`.
class TileStrip final : public QAbstractSlider {
    Q_OBJECT

public:
    using PaintTile = std::function<void(QPainter& painter, int tile)>; ///< in tile units from its corner
    TileStrip(const QString& name, int count, int columns, const QSize& tile, PaintTile paint,
              QWidget* parent);

    /// Names under the tiles.
    void SetCaptions(const QStringList& captions);
    /// The tile nearest to a point.
    int TileAt(const QPointF& point) const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QPointF CornerOf(int tile) const;
    double PitchX() const;
    int PitchY() const;
    int CaptionHeight() const;

    int columns_;
    QSize tile_;
    PaintTile paint_;
    QStringList captions_;
};

} // namespace pulselark
