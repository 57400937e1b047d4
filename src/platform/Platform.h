#pragma once

#include "platform/Clock.h"
#include "platform/FileDialogs.h"
#include "platform/Files.h"
#include "platform/MessageLoop.h"
#include "platform/Messages.h"
#include "platform/PartnerTransport.h"
#include "platform/ProgramLauncher.h"
#include "platform/Progress.h"

namespace pulselark {

/// The outside world as the core meets it: one reference to each port, installed once at start.
struct Platform {
    class Clock& Clock;
    class Files& Files;
    class FileDialogs& FileDialogs;
    class Messages& Messages;
    class MessageLoop& MessageLoop;
    class Progress& Progress;
    class PartnerTransport& PartnerTransport;
    class ProgramLauncher& ProgramLauncher;
};

/// The platform must outlive every later call of the core.
void InstallPlatform(const Platform& platform);

/// The installed platform. Calling this before `InstallPlatform` is a programming error and ends the process.
const Platform& ThePlatform();

} // namespace pulselark
