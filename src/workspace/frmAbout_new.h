#pragma once

#include "base/Numbers.h"

#include <QTimer>
#include <QWidget>

#include <functional>

class QPushButton;

namespace pulselark {

/// How a splash is to pass.
struct SplashPace {
    bool SkipWaiting = false;   ///< the start does not wait for it
    bool ReducedMotion = false; ///< the user wants no fading
};

/// The splash of the start and the about box in one: the program's mark, name, version, licence and
/// libraries.
class frmAbout_new final : public QWidget {
    Q_OBJECT

public:
    frmAbout_new(QWidget* owner, const QString& version);

    /// Fades in (`timUp`, 100 ms a step), waits (`timWait`, 1500 ms), fades out (`timDown`, 1 ms a step),
    /// hides and calls `done` once. With a pace that skips it, nothing is shown and `done` is called at once.
    void ShowAsSplash(SplashPace pace, std::function<void()> done);

    /// Shows the about box, which stays until a click, Escape or the close button.
    void ShowFromMenu();

    void Retranslate();

    Boolean AboutFromMenu = Off; ///< shown as about box; then no start waits for it

    int Alpha() const { return alpha_; } ///< 0 not to be seen, 255 opaque

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QString VersionLine() const;
    void FadeIn();
    void FadeOut();
    void EndSplash();
    void SetAlpha(int alpha);
    void PlaceInMiddle();

    QString version_;
    int alpha_ = 255;
    std::function<void()> done_;
    QTimer timUp_;
    QTimer timWait_;
    QTimer timDown_;
    QPushButton* close_;
};

} // namespace pulselark
