#pragma once

#include "app/Commands.h"

namespace pulselark {

/// `picture FILE.hti --second S --out FILE.png [--size WxH] [--scheme 0..4] [--filled] [--density D]`: the
/// workspace as it looks at second S of a replay, without a display. Returns the exit code.
int RunPicture(int argc, char** argv, Arguments arguments);

} // namespace pulselark
