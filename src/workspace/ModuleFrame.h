#pragma once

#include "workspace/Icons.h"

#include <QWidget>

namespace pulselark {

class PanelView;
struct TwipsRect;

/// A rectangle of the layout in pixels.
QRect ToPixels(const TwipsRect& rect);

/// A module panel `picModule`: border, title bar and the wells of its two panels.
class ModuleFrame final : public QWidget {
    Q_OBJECT

public:
    /// `index` 0 to 4 in the order of the modules on the screen.
    ModuleFrame(int index, Icon icon, const QString& title, QWidget* parent);

    /// The panels that the module holds; either may be missing.
    void SetPanels(PanelView* a, PanelView* b);
    /// Places of the two panels for the module's present size.
    void LayOut(int titleHeight, bool channelBPresent);

    /// The module that is worked in has a brighter border.
    void SetActive(bool active);
    bool Active() const { return active_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Icon icon_;
    QString title_;
    int titleHeight_ = 28;
    bool active_ = false;
    PanelView* panelA_ = nullptr;
    PanelView* panelB_ = nullptr;
};

} // namespace pulselark
