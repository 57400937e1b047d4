#pragma once

#include <string>

namespace pulselark {

/// What a monitor has to say of itself. A detail (a file, a port, a library) follows some of them.
enum class MonitorWord {
    Connecting,      ///< opened, nothing has arrived yet
    Lost,            ///< the connection was there and is sought again
    NoFileChosen,    ///< a replay without a file
    FileUnreadable,  ///< the file follows
    FileAtEnd,       ///< the replay is over
    PortFailed,      ///< the port cannot be opened; it follows
    NoPort,          ///< none is chosen, and none is there to be taken
    NotAnEcg,        ///< data arrive that the protocol does not explain: another speed or protocol
    NoLibrary,       ///< a driver library that is not installed; its name follows
    LibraryTooSmall, ///< a driver library without an operation that is needed; its name follows
    NoBluetooth,     ///< no adapter, or it is off
    StrapSought,     ///< no strap has answered yet
    StrapWithoutEcg, ///< the strap answers and has no raw ECG
    DriverRefused,   ///< the driver does not open its monitor and gives no reason

    // States that a driver reports by number, from 0 on, and its version, which follows.
    StateOk,
    StateWaiting,
    StateInitialising,
    StatePaused,
    StateEndOfMemory,
    StateMemoryFailure,
    StatePortFailure,
    Version,
};
inline constexpr int MonitorWordCount = static_cast<int>(MonitorWord::Version) + 1;

/// The word in the language of the user.
using MonitorWords = std::string (*)(MonitorWord);

} // namespace pulselark
