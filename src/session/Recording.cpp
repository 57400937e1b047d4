#include "session/Recording.h"

namespace pulselark {

bool StartRecording() {
    return false;
}

bool StopRecording() {
    return false;
}

} // namespace pulselark
