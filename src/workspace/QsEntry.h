#pragma once

#include "quickscan/QuickScan.h"
#include "workspace/Icons.h"

#include <QAbstractButton>
#include <QColor>

namespace pulselark {

class HoverLight;

/// An entry `labQSMenu` of the top bar: an icon and its words, on a plate under the pointer.
class QsEntry final : public QAbstractButton {
    Q_OBJECT

public:
    QsEntry(int index, Icon icon, QWidget* parent);

    /// The words, also the entry's name; as a tool tip they tell what the icon alone stands for.
    void SetCaption(const QString& caption);
    /// Width in pixels with or without the words.
    int WidthWith(bool words) const;
    /// Takes its place in the middle of the bar, with or without its words.
    void Place(int left, int barHeight, bool words);

    /// The colour of its words; 0 is that of the bar.
    void SetInk(const QColor& ink, bool resting);

signals:
    void Pointed(QsPointer pointer);

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Icon icon_;
    HoverLight* hover_;
    bool words_ = true;
    QColor ink_;
};

} // namespace pulselark
