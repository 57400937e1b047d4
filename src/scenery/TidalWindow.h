#pragma once

#include "scenery/PartnerWindow.h"
#include "scenery/TidalState.h"

namespace pulselark {

/// The tidal view's window: it draws when something has come, and does nothing between.
class TidalWindow final : public PartnerWindow {
    Q_OBJECT

public:
    TidalWindow();

protected:
    void Take(const LinkMessage& message) override;
    void paintEvent(QPaintEvent* event) override;

private:
    TidalState state_;
    WindowOrders orders_;
};

} // namespace pulselark
