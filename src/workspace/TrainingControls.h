#pragma once

#include <QAbstractButton>

namespace pulselark {

/// The start notice `labBFStart`: an amber card with a ring that empties second by second.
class StartNotice final : public QWidget {
    Q_OBJECT

public:
    explicit StartNotice(QWidget* parent);

    /// Takes over the label of the core and the seconds that are left.
    void Mirror();
    int WantedHeight() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString words_;
    int left_ = 0;
};

/// The cover `picRestoreGame` with its caption `labRestoreGame`: it stands in for the scenery, and brings it
/// back on a click.
class SceneryCover final : public QAbstractButton {
    Q_OBJECT

public:
    explicit SceneryCover(QWidget* parent);

    /// Takes over cover and caption of the core.
    void Mirror();
    static constexpr int Height = 56;

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

/// The source switch: two halves, one of them chosen.
class SourceSwitch final : public QAbstractButton {
    Q_OBJECT

public:
    explicit SourceSwitch(QWidget* parent);

    void SetWords(const QString& stored, const QString& live);
    void SetStored(bool stored);
    QSize sizeHint() const override;

signals:
    /// The user wants the other half.
    void Chosen(bool stored);

protected:
    void nextCheckState() override {}
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString words_[2];
    bool stored_ = true;
};

} // namespace pulselark
