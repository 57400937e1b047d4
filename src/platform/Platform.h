#pragma once

#include "platform/Clock.h"
#include "platform/EcgMonitor.h"
#include "platform/FileDialogs.h"
#include "platform/Files.h"
#include "platform/MediaControl.h"
#include "platform/MessageLoop.h"
#include "platform/Messages.h"
#include "platform/MidiOutput.h"
#include "platform/PagePrinter.h"
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
    class MidiOutput& MidiOutput = NoMidiOutput();
    class MediaControl& MediaControl = NoMediaControl();
    class PagePrinter& PagePrinter = NoPrinter();
    class EcgMonitors& EcgMonitors = NoEcgMonitors();
};

/// The platform must outlive every later call of the core.
void InstallPlatform(const Platform& platform);

/// The installed platform. Calling this before `InstallPlatform` is a programming error and ends the process.
const Platform& ThePlatform();

} // namespace pulselark
