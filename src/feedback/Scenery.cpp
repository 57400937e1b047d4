#include "feedback/Scenery.h"
namespace pulselark {
void SendSceneryState(bool /*keepScene*/) {}
} // namespace pulselark
