#pragma once

#include "scenery/PartnerWindow.h"
#include "scenery/TidalState.h"

#include <QTimer>

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
    QTimer redraw_; ///< gathers what comes at once into one picture
};

} // namespace pulselark
