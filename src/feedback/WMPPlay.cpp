#include "feedback/WMPPlay.h"

namespace pulselark {

void PlayMusic(bool /*keepPlayer*/) {}
void RestartMusic() {}

} // namespace pulselark
