#include "app/EventTrace.h"

#include "feedback/WMPPlay.h"
#include "feedback/ggz.h"
#include "session/MainBuffers.h"
#include "session/MainControls.h"
#include "session/SessionTick.h"

#include <array>
#include <utility>

namespace pulselark {

namespace {

EventTrace* theTrace = nullptr;

struct NamedLabel {
    const char* Name;
    const Label* Source;
};
const std::array Watched{NamedLabel{"labBFStart", &labBFStart},
                         NamedLabel{"labPTime", &labPTime},
                         NamedLabel{"labBPMA", &labBPMA},
                         NamedLabel{"labBPMB", &labBPMB},
                         NamedLabel{"labDI0", &labDI[0]},
                         NamedLabel{"labDI1", &labDI[1]},
                         NamedLabel{"labCurrentSong", &labCurrentSong},
                         NamedLabel{"labRestoreGame", &labRestoreGame}};

std::string OneLine(std::string text) {
    for (char& letter : text) {
        if (letter == '\t' || letter == '\n' || letter == '\r')
            letter = ' ';
    }
    return text;
}

std::string Whole(double value) {
    return std::to_string(Round(value));
}

std::string Hexadecimal(std::span<const unsigned char> bytes) {
    constexpr const char* Figures = "0123456789abcdef";
    std::string text;
    text.reserve(2 * bytes.size());
    for (const unsigned char byte : bytes) {
        text.push_back(Figures[byte >> 4U]);
        text.push_back(Figures[byte & 0xFU]);
    }
    return text;
}

} // namespace

EventTrace::EventTrace(Sink sink, bool readyOutput)
    : sink_(std::move(sink)),
      before_(ThePlatform()), own_{.Clock = before_.Clock,
                                   .Files = before_.Files,
                                   .FileDialogs = before_.FileDialogs,
                                   .Messages = *this,
                                   .MessageLoop = before_.MessageLoop,
                                   .Progress = before_.Progress,
                                   .PartnerTransport = *this,
                                   .ProgramLauncher = *this,
                                   .MidiOutput = readyOutput ? *this : before_.MidiOutput,
                                   .MediaControl = before_.MediaControl,
                                   .PagePrinter = before_.PagePrinter,
                                   .EcgMonitors = before_.EcgMonitors},
      shown_(Watched.size()) {
    InstallPlatform(own_);
    theTrace = this;
    AfterStatus = [] { theTrace->Write("status", labStatus.Caption); };
    AfterSecond = [] {
        if (TrainingActive != Off)
            theTrace->Write("score", Whole(SessionScore) + " " + Whole(DynamicIndex));
        else
            theTrace->WriteChanges();
    };
}

EventTrace::~EventTrace() {
    AfterStatus = AfterSecond = nullptr;
    theTrace = nullptr;
    InstallPlatform(before_);
}

void EventTrace::WriteLine(const std::string& kind, const std::string& text) {
    sink_(std::to_string(SessionTick) + "\t" + kind + "\t" + OneLine(text) + "\n");
}

void EventTrace::WriteChanges() {
    for (std::size_t i = 0; i < Watched.size(); ++i) {
        const Label& label = *Watched[i].Source;
        const std::string caption = label.Visible ? label.Caption : std::string();
        if (caption == shown_[i])
            continue;
        shown_[i] = caption;
        WriteLine(std::string("label ") + Watched[i].Name, caption);
    }
}

void EventTrace::Write(const std::string& kind, const std::string& text) {
    WriteChanges();
    WriteLine(kind, text);
}

int EventTrace::Show(const std::string& text, int buttons, const MessageManner& manner) {
    Write("message", text);
    return before_.Messages.Show(text, buttons, manner);
}

bool EventTrace::Send(const std::string& title, std::span<const unsigned char> payload) {
    Write("link", Hexadecimal(payload));
    return before_.PartnerTransport.Send(title, payload);
}

int EventTrace::Execute(const LaunchRequest& request) {
    Write("launch", request.Parameters.empty() ? request.File : request.File + " " + request.Parameters);
    return before_.ProgramLauncher.Execute(request);
}

Integer EventTrace::Send(std::uint32_t word) {
    std::array<unsigned char, 4> bytes{};
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<unsigned char>(word >> (8 * (bytes.size() - 1 - i)));
    Write("midi", Hexadecimal(bytes));
    return 0;
}

} // namespace pulselark
