#pragma once

#include "platform/EcgMonitor.h"
#include "platform/monitors/SampleStore.h"

namespace pulselark {

/// What the monitors have in common: samples in panel units, from edge to edge, and plain names.
class PanelMonitor : public EcgMonitor {
public:
    std::string Sig_Name(Integer channel) override { return channel == 1 ? "ECG A" : "ECG B"; }
    double Max_Value(Integer /*channel*/) override { return PanelRange; }
    double Min_Value(Integer /*channel*/) override { return -PanelRange; }
};

} // namespace pulselark
