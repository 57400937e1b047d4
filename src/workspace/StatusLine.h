#pragma once

#include <QWidget>

namespace pulselark {

/// The status line: message `labStatus` at the left; channel mode, sample rate and colour scheme at the
/// right.
class StatusLine final : public QWidget {
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent);

    void Mirror();
    const QString& Message() const { return message_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int PaintLamp(QPainter& painter) const;

    QString message_;
    QString lamp_; ///< that the monitor is not connected; empty if it is, or is not needed
    QString facts_;
};

} // namespace pulselark
