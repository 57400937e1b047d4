#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

/// The messages between this program and its partners (scenery, tidal view, breathing tool), byte for byte,
/// as docs/link.md tells them. Plain C++: both sides share this file and nothing else.
///
/// A message is a row of 64-bit Doubles in little-endian order, of which the first, the magic, says what kind
/// it is. On the socket it travels behind a header of eight bytes in one packet.
namespace pulselark {

using LinkBytes = std::span<const unsigned char>;

/// First value of a message: its kind.
inline constexpr double LinkMagicValue = 12345678.0;
inline constexpr double LinkMagicCommand = 87654321.0;
inline constexpr double LinkMagicArray = 89898989.0;

inline constexpr std::size_t LinkSpectrumItems = 255;  ///< bins 1 to 255 of the averaged spectrum
inline constexpr std::size_t LinkHeartRateItems = 127; ///< bins 1 to 127 of the heart rate's spectrum

/// A message's bytes: two, six, 257 or 129 Doubles.
using LinkValuePayload = std::array<unsigned char, 16>;
using LinkCommandPayload = std::array<unsigned char, 48>;
using LinkSpectrumPayload = std::array<unsigned char, (2 + LinkSpectrumItems) * 8>;
using LinkHeartRatePayload = std::array<unsigned char, (2 + LinkHeartRateItems) * 8>;

/// What a command means to its sender; what a partner does about it is the partner's affair.
enum LinkCommand : int {
    CmdBreathToolPlain = 123, ///< to the breathing tool: no feedback
    CmdSetLevel = 222,        ///< p1: the feedback mode
    CmdLevelDone = 223,
    CmdStartScroll = 225,
    CmdStopScroll = 226,
    CmdCloseScenery = 227,
    CmdBreathingRate = 228, ///< p1: breaths per minute
    CmdPacerOn = 230,
    CmdPacerOff = 231,
    CmdBreathingBalance = 232, ///< p1: length of the out-breath as a multiple of the in-breath
    CmdKeepScene = 233,
    CmdSceneryMenu = 234,
    CmdReplayLong = 237,   ///< the replay runs in time lapse
    CmdReplayNormal = 238, ///< the replay runs at one second a second
    CmdPrepareSave = 239,
    CmdRestoreView = 240,
    CmdSettingsOpen = 241,
    CmdSettingsClosed = 242,
    CmdTick = 243, ///< p1: second of the session
    CmdSessionStart = 244,
    CmdStopNoTraining = 321,
    CmdStyle = 500,              ///< plus the colour scheme, 0 to 4
    CmdBreathToolFeedback = 999, ///< to the breathing tool: with feedback
    CmdSceneRect = 123123,       ///< p1 to p4: left, top, width, height of the scenery
};

LinkValuePayload PackLinkValue(double value);
LinkCommandPayload PackLinkCommand(double command, double p1, double p2, double p3, double p4);
LinkSpectrumPayload PackLinkSpectrum(std::span<const float, LinkSpectrumItems> bins);
LinkHeartRatePayload PackLinkHeartRate(std::span<const float, LinkHeartRateItems> bins);

enum class LinkKind { Value, Command, Spectrum, HeartRate };

/// A message as it is understood.
struct LinkMessage {
    LinkKind Kind = LinkKind::Value;
    double Value = 0;                  ///< of a value
    double Command = 0;                ///< of a command
    std::array<double, 4> Parameter{}; ///< of a command: p1 to p4
    std::array<double, LinkSpectrumItems> Items{};
    std::size_t ItemCount = 0; ///< of an array: how many of `Items` hold, Items[0] being bin 1
};

/// Reads a payload by its first value. False for an unknown magic or kind, or for fewer bytes than the kind
/// has; bytes beyond are ignored. A false answer leaves `message` as it was.
bool UnpackLinkMessage(LinkBytes payload, LinkMessage& message);

/// What stands before the payload in a packet: two 32-bit numbers, little-endian.
inline constexpr std::size_t LinkHeaderSize = 8;
inline constexpr std::uint32_t LinkHeaderData = 1; ///< `dwData`, always
inline constexpr std::size_t LinkLargestPacket = LinkHeaderSize + sizeof(LinkSpectrumPayload);
/// The partner answers every packet with one byte when it has handled it.
inline constexpr unsigned char LinkAnswer = 1;

using LinkHeader = std::array<unsigned char, LinkHeaderSize>;

/// `dwData` and `cbData`, the payload's length in bytes.
LinkHeader PackLinkHeader(std::size_t payloadSize);

/// The payload of a packet, or nothing unless `dwData` is 1 and `cbData` bytes follow the header, no more and
/// no fewer.
LinkBytes PayloadOfPacket(LinkBytes packet);

} // namespace pulselark
