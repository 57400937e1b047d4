#pragma once

#include <QAbstractButton>

namespace pulselark {

/// The place of the scenery in the training view: a still picture of its own, and on it, while the scenery is
/// not there, the cover `picRestoreGame` with its caption. A click starts the scenery again.
class SceneCover final : public QAbstractButton {
    Q_OBJECT

public:
    explicit SceneCover(QWidget* parent);

    void Mirror();

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace pulselark
