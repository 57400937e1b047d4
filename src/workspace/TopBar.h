#pragma once

#include "workspace/Icons.h"

#include <QWidget>

class QMenuBar;

namespace pulselark {

class TransportButton;

/// The top bar `picTopBarMain`: mark, menus, record, replay and stop, clock and progress, channel chips.
class TopBar final : public QWidget {
    Q_OBJECT

public:
    explicit TopBar(QWidget* parent);

    QMenuBar* Menus() const { return menus_; }
    TransportButton* RecordButton() const { return record_; }
    TransportButton* ReplayButton() const { return replay_; }
    TransportButton* StopButton() const { return stop_; }

    /// Takes over the sizes for the window's size and the colours of the scheme.
    void ApplyLook();
    /// Sets names and tool tips in the language in use.
    void Retranslate();
    /// Takes over the state of the session.
    void Mirror();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Chip {
        QString Name;
        QString Value;
        Icon Light;
        bool operator==(const Chip&) const = default;
    };
    void LayOut();
    void PaintClock(QPainter& painter) const;
    void PaintChips(QPainter& painter) const;

    QMenuBar* menus_;
    TransportButton* record_;
    TransportButton* replay_;
    TransportButton* stop_;
    int clockLeft_ = 0;
    int dividerLeft_ = 0;
    QString clock_;
    QString length_;
    double progress_ = 0;
    QList<Chip> chips_;
};

} // namespace pulselark
