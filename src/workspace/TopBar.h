#pragma once

#include "base/Colour.h"
#include "quickscan/QuickScan.h"
#include "workspace/Icons.h"

#include <QWidget>

#include <array>
#include <functional>

class QMenuBar;

namespace pulselark {

class QsEntry;
class TransportButton;
struct Density;

/// The top bar `picTopBarMain`: mark, menus, record, replay and stop, clock and progress, quick scan and
/// print, channel chips.
class TopBar final : public QWidget {
    Q_OBJECT

public:
    explicit TopBar(QWidget* parent);

    QMenuBar* Menus() const { return menus_; }
    TransportButton* RecordButton() const { return record_; }
    TransportButton* ReplayButton() const { return replay_; }
    TransportButton* StopButton() const { return stop_; }

    /// Called with the index of the entry `labQSMenu` that was clicked: 0 quick scan, 1 print.
    std::function<void(int)> QsClicked;
    /// What the pointer does on one of them.
    std::function<void(int, QsPointer)> QsPointed;

    /// Takes over the sizes for the window's size and the colours of the scheme.
    void ApplyLook();
    /// Sets names and tool tips in the language in use.
    void Retranslate();
    /// Takes over the state of the session.
    void Mirror();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Chip {
        QString Name;
        QString Value;
        Icon Light;
        bool operator==(const Chip&) const = default;
    };
    void LayOut();
    void LayOutLeft(const Density& density);
    bool ClockFits() const;
    /// What a chip says; where the bar is tight, without the unit.
    QString ValueOf(const Chip& chip) const;
    /// Places what stands at the right, and leaves out what there is no room for.
    void LayOutRight();
    int ChipWidth(const Chip& chip) const;
    /// What the light of the chip at that place says; empty beside the chips.
    QString ChipTipAt(int x) const;
    void PaintSign(QPainter& painter) const;
    void PaintClock(QPainter& painter) const;
    void PaintChips(QPainter& painter) const;

    QMenuBar* menus_;
    TransportButton* record_;
    TransportButton* replay_;
    TransportButton* stop_;
    std::array<QsEntry*, 2> qsEntries_;
    // Tight: no room for the program's name and the units. Scarce: nor for the rates beside the lights.
    enum class Room { Ample, Tight, Scarce };
    Room room_ = Room::Ample;
    int clockLeft_ = 0;
    int dividerLeft_ = 0;
    int chipsLeft_ = 0;     // also the end of the room for the entries
    int progressWidth_ = 0; // of the line below the clock; 0 without one
    QString clock_;
    QString length_;
    double progress_ = 0;
    QList<Chip> chips_;
    QString sign_; // in words, beside the clock
    Colour signInk_ = 0;
};

} // namespace pulselark
