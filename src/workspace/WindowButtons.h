#pragma once

#include "session/ModulePanels.h"

#include <QWidget>

#include <functional>

class QSizeGrip;

namespace pulselark {

class BarButton;

/// The window's own buttons `picCtrl` at the right end of the top bar, and its size grip: remember the places
/// of window and panels, bring them back, minimise, maximise or back, close. They are what is left of a frame
/// when the window fills the screen.
class WindowButtons final : public QWidget {
    Q_OBJECT

public:
    /// `run` takes a routine through the core and shows the outcome.
    WindowButtons(QWidget* window, std::function<void(const std::function<void()>&)> run);

    static constexpr int Width = 24 * static_cast<int>(ControlButtonCount) + 16; ///< pixels

    /// Takes over the places that the core gives the parts.
    void LayOut();
    /// Sets names and tool tips in the language in use.
    void Retranslate();
    /// Takes over what can be done now, and brings the window to where the core wants it.
    void Mirror();

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void Connect(ControlButton which, const std::function<void()>& routine);

    QWidget* window_;
    std::function<void(const std::function<void()>&)> run_;
    std::array<BarButton*, ControlButtonCount> buttons_{};
    QSizeGrip* grip_;
};

} // namespace pulselark
