#include "platform/EcgMonitor.h"

namespace pulselark {

namespace {

class EmptyList final : public EcgMonitors {
public:
    EcgMonitor* Find(const std::string& /*name*/) override { return nullptr; }
};

} // namespace

EcgMonitors& NoEcgMonitors() {
    static EmptyList list;
    return list;
}

} // namespace pulselark
