#pragma once
namespace pulselark {
void SendSceneryState(bool keepScene);
} // namespace pulselark
