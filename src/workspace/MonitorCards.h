#pragma once

#include <QAbstractButton>

/// What the monitor chooser is made of: pictures with a name below, and rows with a name and a line of words.
namespace pulselark {

class HoverLight;

/// `picDSU` with its highlight `picSelect`. Pressing is what counts, not letting go.
class DsuCard final : public QAbstractButton {
    Q_OBJECT

public:
    DsuCard(int picture, QWidget* parent);

    void SetCaption(const QString& caption);
    /// Whether its monitor is the chosen one, and whether its highlight shows.
    void SetMarks(bool chosen, bool lit);
    QSize sizeHint() const override { return {Side, Side}; }

    static constexpr int Side = 144;

signals:
    void PressedWith(bool shift);
    /// The pointer has come (true) or gone.
    void PointedAt(bool over);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int picture_;
    bool chosen_ = false;
    bool lit_ = false;
};

/// One of the monitors that need no driver.
class MonitorRow final : public QAbstractButton {
    Q_OBJECT

public:
    MonitorRow(int monitor, QWidget* parent);

    void SetWords(const QString& name, const QString& words);
    QSize sizeHint() const override;

protected:
    void nextCheckState() override {}
    void paintEvent(QPaintEvent* event) override;

private:
    int monitor_;
    QString words_;
    HoverLight* hover_;
};

} // namespace pulselark
