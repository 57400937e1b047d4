#include "scenery/WindowOrders.h"

#include "scenery/Whole.h"

#include <cmath>
#include <utility>

namespace pulselark {

WindowAction WindowOrders::Take(const LinkMessage& message) {
    if (message.Kind != LinkKind::Command || !WholeBetween(message.Command, 0, CmdSceneRect))
        return WindowAction::Nothing;
    switch (static_cast<int>(message.Command)) {
    case CmdCloseScenery:
        return WindowAction::Close;
    case CmdSceneryMenu:
        return WindowAction::ShowMenu;
    case CmdSettingsOpen:
        settingsOpen_ = true;
        return WindowAction::StepBehind;
    case CmdPrepareSave:
        return WindowAction::StepBehind;
    case CmdSettingsClosed:
        return std::exchange(settingsOpen_, false) ? WindowAction::ComeForward : WindowAction::Nothing;
    case CmdKeepScene:
    case CmdRestoreView:
        return WindowAction::ComeForward;
    case CmdSceneRect:
        return TakePlace(message);
    default:
        return WindowAction::Nothing;
    }
}

WindowAction WindowOrders::TakePlace(const LinkMessage& message) {
    constexpr int Smallest = 40, Farthest = 32000;
    const auto& [left, top, width, height] = message.Parameter;
    const auto within = [](double value, double lowest) { return value >= lowest && value <= Farthest; };
    if (!within(left, -Farthest) || !within(top, -Farthest) || !within(width, Smallest) ||
        !within(height, Smallest))
        return WindowAction::Nothing;
    const auto pixels = [](double value) { return static_cast<int>(std::lround(value)); };
    place_ = {pixels(left), pixels(top), pixels(width), pixels(height)};
    return WindowAction::TakePlace;
}

} // namespace pulselark
