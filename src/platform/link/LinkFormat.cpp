#include "platform/link/LinkFormat.h"

#include <algorithm>
#include <bit>

namespace pulselark {

namespace {

constexpr double ArrayOfSpectrum = 0;
constexpr double ArrayOfHeartRate = 1;

template <class Number>
void PutLittleEndian(unsigned char* to, Number number) {
    for (std::size_t i = 0; i < sizeof number; ++i)
        to[i] = static_cast<unsigned char>(number >> (8 * i));
}

template <class Number>
Number GetLittleEndian(const unsigned char* from) {
    Number number = 0;
    for (std::size_t i = 0; i < sizeof number; ++i)
        number |= static_cast<Number>(from[i]) << (8 * i);
    return number;
}

void PutDouble(unsigned char* payload, std::size_t item, double value) {
    PutLittleEndian(payload + item * 8, std::bit_cast<std::uint64_t>(value));
}

double GetDouble(LinkBytes payload, std::size_t item) {
    return std::bit_cast<double>(GetLittleEndian<std::uint64_t>(payload.data() + item * 8));
}

template <class Payload>
Payload PackArray(double kind, std::span<const float> bins) {
    Payload payload;
    PutDouble(payload.data(), 0, LinkMagicArray);
    PutDouble(payload.data(), 1, kind);
    for (std::size_t i = 0; i < bins.size(); ++i)
        PutDouble(payload.data(), 2 + i, static_cast<double>(bins[i]));
    return payload;
}

bool UnpackArray(LinkBytes payload, LinkMessage& message) {
    const double kind = GetDouble(payload, 1);
    if (kind != ArrayOfSpectrum && kind != ArrayOfHeartRate)
        return false;
    const std::size_t count = kind == ArrayOfSpectrum ? LinkSpectrumItems : LinkHeartRateItems;
    if (payload.size() < (2 + count) * 8)
        return false;
    message.Kind = kind == ArrayOfSpectrum ? LinkKind::Spectrum : LinkKind::HeartRate;
    message.ItemCount = count;
    for (std::size_t i = 0; i < count; ++i)
        message.Items[i] = GetDouble(payload, 2 + i);
    return true;
}

} // namespace

LinkValuePayload PackLinkValue(double value) {
    LinkValuePayload payload;
    PutDouble(payload.data(), 0, LinkMagicValue);
    PutDouble(payload.data(), 1, value);
    return payload;
}

LinkCommandPayload PackLinkCommand(double command, double p1, double p2, double p3, double p4) {
    LinkCommandPayload payload;
    const std::array values{LinkMagicCommand, command, p1, p2, p3, p4};
    for (std::size_t i = 0; i < values.size(); ++i)
        PutDouble(payload.data(), i, values[i]);
    return payload;
}

LinkSpectrumPayload PackLinkSpectrum(std::span<const float, LinkSpectrumItems> bins) {
    return PackArray<LinkSpectrumPayload>(ArrayOfSpectrum, bins);
}

LinkHeartRatePayload PackLinkHeartRate(std::span<const float, LinkHeartRateItems> bins) {
    return PackArray<LinkHeartRatePayload>(ArrayOfHeartRate, bins);
}

bool UnpackLinkMessage(LinkBytes payload, LinkMessage& message) {
    if (payload.size() < sizeof(LinkValuePayload))
        return false;
    const double magic = GetDouble(payload, 0);
    if (magic == LinkMagicArray)
        return UnpackArray(payload, message);
    if (magic == LinkMagicValue) {
        message.Kind = LinkKind::Value;
        message.Value = GetDouble(payload, 1);
        return true;
    }
    if (magic != LinkMagicCommand || payload.size() < sizeof(LinkCommandPayload))
        return false;
    message.Kind = LinkKind::Command;
    message.Command = GetDouble(payload, 1);
    for (std::size_t i = 0; i < message.Parameter.size(); ++i)
        message.Parameter[i] = GetDouble(payload, 2 + i);
    return true;
}

LinkHeader PackLinkHeader(std::size_t payloadSize) {
    LinkHeader header;
    PutLittleEndian(header.data(), LinkHeaderData);
    PutLittleEndian(header.data() + 4, static_cast<std::uint32_t>(payloadSize));
    return header;
}

LinkBytes PayloadOfPacket(LinkBytes packet) {
    if (packet.size() < LinkHeaderSize || GetLittleEndian<std::uint32_t>(packet.data()) != LinkHeaderData ||
        GetLittleEndian<std::uint32_t>(packet.data() + 4) != packet.size() - LinkHeaderSize)
        return {};
    return packet.subspan(LinkHeaderSize);
}

} // namespace pulselark
