#include "platform/EcgMonitor.h"

namespace pulselark {

namespace {

class EmptyList final : public EcgMonitors {
public:
    EcgMonitor* Find(const std::string& /*name*/) override { return nullptr; }
};

} // namespace

const std::vector<MonitorOption>& EcgMonitors::Options(const std::string& /*name*/) {
    static const std::vector<MonitorOption> none;
    return none;
}

bool EcgMonitors::SetOption(const std::string& /*name*/, const std::string& /*key*/,
                            const std::string& /*value*/) {
    return false;
}

Integer EcgMonitors::KeepOptions() {
    return 0;
}

std::vector<std::string> EcgMonitors::Devices(const std::string& /*name*/, const std::string& /*key*/) {
    return {};
}

EcgMonitors& NoEcgMonitors() {
    static EmptyList list;
    return list;
}

} // namespace pulselark
