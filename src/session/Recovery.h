#pragma once

#include "base/Numbers.h"

#include <string>
#include <vector>

/// What a program that ended in the middle of a recording has left: journals in the Sessions folder that no
/// running program holds.
namespace pulselark {

/// One journal that can be read.
struct LeftRecording {
    std::string Name; ///< of the file, with its folder
    std::string Date, Time;
    std::string Monitor;
    Long Seconds = 0;
    bool ChannelB = false;
};

/// The recordings that were left, the newest first. Journals without a whole second are deleted on the way;
/// those that cannot be read stay, and their names are added to `unreadable`.
std::vector<LeftRecording> LeftRecordings(std::vector<std::string>* unreadable = nullptr);

/// Puts a recording back into the buffers, as paused and unsaved, and goes on with its journal. Returns 0, or
/// the number of the failure; then the session in memory is as it was.
Integer RestoreRecording(const std::string& name);

/// At the start of the program: offers the newest recording that was left. Yes restores it and asks whether
/// to save it now, no deletes it, cancel keeps it for the next start.
void OfferLeftRecording();

} // namespace pulselark
