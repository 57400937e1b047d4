#pragma once

#include <QColor>
#include <QObject>
#include <QVariantAnimation>

namespace pulselark {

/// Whether windows and controls may move by degrees: not where the desktop asks for less motion (its toolkits
/// pass that on as GTK_ENABLE_ANIMATIONS=0), nor where nobody looks on (pictures without a display).
bool MotionWanted();

/// Whether the window system knows windows that shine through, and ones that place themselves.
bool WindowsShineThrough();

/// How long each kind takes, in milliseconds.
inline constexpr int HoverTime = 80;
inline constexpr int MenuTime = 120; ///< menus and cards
inline constexpr int DialogTime = 160;
inline constexpr int DialogRise = 4; ///< pixels

/// Lets a window or card that is being shown come up by degrees: from nothing to full opacity, and, for a
/// window, from `rise` pixels below its place. Does nothing where motion is not wanted, or
/// where windows cannot.
void FadeIn(QWidget& widget, int milliseconds, int rise = 0);

/// The light that the pointer throws on a control: 0 away from it, 1 over it, between them for `HoverTime`.
/// The control is repainted with each change. Pressing is no motion and shows at once.
class HoverLight final : public QObject {
    Q_OBJECT

public:
    explicit HoverLight(QWidget* control);

    double Level() const { return level_; }
    /// The colour, as far as the light is on.
    QColor On(QColor colour) const;
    /// From one colour to the other, as far as the light is on.
    QColor Between(const QColor& away, const QColor& over) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void GoTo(double level);

    QWidget* control_;
    QVariantAnimation way_;
    double level_ = 0;
};

} // namespace pulselark
