#pragma once

#include "workspace/Icons.h"
#include "workspace/TitleBar.h"

#include <QWidget>

#include <array>

namespace pulselark {

class PanelView;
struct TwipsRect;

/// A rectangle of the layout in pixels.
QRect ToPixels(const TwipsRect& rect);

/// A module panel `picModule`: border, title bar, sizers and the wells of its two panels.
class ModuleFrame final : public QWidget {
    Q_OBJECT

public:
    /// `index` 0 to 6.
    ModuleFrame(int index, Icon icon, QWidget* parent);

    TitleBar* Title() const { return title_; }
    const std::array<PanelSizer*, 3>& Sizers() const { return sizers_; }

    /// The panels that the module holds; both may be missing.
    void SetPanels(PanelView* a, PanelView* b);
    void SetTitle(const QString& title);
    /// Places of title bar, sizers and panels for the module's present size.
    void LayOut(int titleHeight, bool channelBPresent);

    /// The module that is worked in has a brighter border.
    void SetActive(bool active);
    bool Active() const { return active_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    TitleBar* title_;
    std::array<PanelSizer*, 3> sizers_;
    bool active_ = false;
    PanelView* panelA_ = nullptr;
    PanelView* panelB_ = nullptr;
};

} // namespace pulselark
