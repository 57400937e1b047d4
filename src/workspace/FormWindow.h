#pragma once

#include "workspace/FloatingForm.h"

class QLabel;
class QScrollArea;
class QHBoxLayout;
class QVBoxLayout;

namespace pulselark {

class ActionButton;
class FocusRing;

/// A card of a form: a titled white plate.
class FormCard final : public QWidget {
    Q_OBJECT

public:
    explicit FormCard(QWidget* parent);

    /// A card without a title has no room for one either.
    void SetTitle(const QString& title);
    /// A word at the right end of the title.
    void SetHint(const QString& hint);
    // Rows, from under the title on, in line with it.
    void Add(QWidget* row);
    void Add(QLayout* row);
    /// A toggle, whose plate reaches out to both sides so that its box stands in line.
    void AddToggle(QWidget* toggle, int indent);
    void AddSpace(int pixels);
    /// Takes what the card is given beyond its need, so that it can be as high as its neighbour.
    void AddStretch();
    /// A thin line across the card.
    void AddRule();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* title_;
    QLabel* hint_;
    QVBoxLayout* rows_;
};

/// A form: a window of its own with a title row, a close mark and cards in columns. Escape and the close mark
/// hide it. Where the screen is too small for it, its body scrolls.
class FormWindow : public FloatingForm {
    Q_OBJECT

public:
    FormWindow(QWidget* owner, const QString& name);

    void SetTitle(const QString& title);

protected:
    /// Adds a column of cards at the right.
    QVBoxLayout* AddColumn();
    /// Adds the row below the columns, which stays in reach where they scroll.
    QHBoxLayout* AddFoot();
    QWidget* Body() const { return body_; }
    FocusRing& Ring() const { return *ring_; }
    /// Sizes the window for what it holds, as far as the screen goes.
    void FitToScreen();
    void ScrollTo(QWidget* control);

private:
    QLabel* title_;
    ActionButton* close_;
    QScrollArea* scroll_;
    QWidget* body_;
    QWidget* foot_ = nullptr;
    FocusRing* ring_;
};

} // namespace pulselark
