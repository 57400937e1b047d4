#include "persistence/OmsRecords.h"

#include <algorithm>

namespace pulselark {

void OmsReader::Whole(Integer& value, Integer least, Integer most) {
    value = std::clamp(lines_.NextInteger(), least, most);
}

void OmsReader::Real(double& value, double least, double most) {
    value = std::clamp(lines_.NextDouble(), least, most);
}

} // namespace pulselark
