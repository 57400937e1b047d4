#include "feedback/SendAppData.h"

#include "platform/Platform.h"
#include "session/AnalysisBuffers.h"
#include "session/MainBuffers.h"

namespace pulselark {

std::string LinkWindowTitle;
Boolean SceneryOpen;
std::array<double, 4> SceneRect;

namespace {

constexpr double FullCoherence = 0.11;

void Send(LinkBytes payload) {
    // A message that nobody hears is not worth a word.
    static_cast<void>(ThePlatform().PartnerTransport.Send(LinkWindowTitle, payload));
}

double OfThisSecond(const SecondsBuffer& series) {
    return AnalysisSecond >= 1 && AnalysisSecond <= SecondsBufferSize ? series[AnalysisSecond] : 0;
}

} // namespace

void SendAppCommand(double command, double p1, double p2, double p3, double p4) {
    Send(PackLinkCommand(command, p1, p2, p3, p4));
    if (command == double{CmdCloseScenery})
        SceneryOpen = Off;
}

void SendAppArray(int kind) {
    if (kind == 0) {
        Send(PackLinkSpectrum(std::span<const float, LinkSpectrumItems>(SpectrumAvgA[SpectrumSlotA].data(),
                                                                        LinkSpectrumItems)));
    }
    if (kind == 1)
        Send(PackLinkHeartRate(
            std::span<const float, LinkHeartRateItems>(HrvPowerA.data(), LinkHeartRateItems)));
}

void SendCoherenceValue() {
    Send(PackLinkValue(OfThisSecond(CoherenceA) / FullCoherence * 100));
}

void SendFeedbackValue() {
    if (FeedbackMode == 1)
        Send(PackLinkValue(OfThisSecond(IbiAvgA)));
    if (FeedbackMode == 2)
        SendCoherenceValue();
    if (FeedbackMode == 3)
        Send(PackLinkValue(DynamicIndex));
}

void ResetAppLink() {
    LinkWindowTitle.clear();
    SceneryOpen = Off;
    SceneRect = {};
}

} // namespace pulselark
