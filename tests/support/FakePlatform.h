#pragma once

#include "platform/Platform.h"
#include "support/FakeClock.h"
#include "support/FakeMonitor.h"
#include "support/RecordingSurface.h"

#include <algorithm>
#include <cstdint>
#include <deque>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// The outside world as a test scripts it: clock, files in memory, answers to messages and dialogs.
namespace pulselark {

/// Files in memory. `ReadFailure` and `WriteFailure` fail every call; `DiskSize` lets a write fail after so
/// many bytes. A write that fails leaves the old content, as the real one does; a growing file keeps what
/// still found room. `Held` names the files that are open to grow.
class FakeFiles final : public Files {
public:
    std::map<std::string, std::string> Content;
    std::set<std::string> Held;
    int Flushes = 0;
    Integer ReadFailure = 0;
    Integer WriteFailure = 0;
    std::size_t DiskSize = std::numeric_limits<std::size_t>::max();

    Integer ReadWhole(const std::string& name, std::string& bytes) override {
        bytes.clear();
        const auto file = Content.find(name);
        if (ReadFailure != 0 || file == Content.end())
            return ReadFailure != 0 ? ReadFailure : Integer{FailureFileNotFound};
        bytes = file->second;
        return 0;
    }
    Integer ReplaceWhole(const std::string& name, const std::string& bytes) override {
        if (WriteFailure != 0 || bytes.size() > DiskSize)
            return WriteFailure != 0 ? WriteFailure : Integer{FailureDiskFull};
        Content[name] = bytes;
        return 0;
    }
    Integer TryReplace(const std::string&) override { return WriteFailure; }
    Integer ListFolder(const std::string& folder, const std::string& extension,
                       std::vector<std::string>& names) override {
        names.clear();
        if (ReadFailure != 0)
            return ReadFailure;
        const std::string start = folder + "/";
        for (const auto& [name, bytes] : Content) {
            const std::size_t slash = name.rfind('/');
            if (name.starts_with(start) && slash + 1 == start.size() && name.ends_with(extension))
                names.push_back(name.substr(start.size()));
        }
        return 0;
    }
    std::unique_ptr<GrowingFile> OpenToGrow(const std::string& name, Integer& failure) override {
        failure = Held.count(name) != 0 ? Integer{FailureFileAlreadyOpen} : WriteFailure;
        if (failure != 0)
            return nullptr;
        return std::make_unique<Growing>(*this, name);
    }
    bool HeldToGrow(const std::string& name) override { return Held.count(name) != 0; }
    Integer Remove(const std::string& name) override {
        Content.erase(name);
        return 0;
    }

private:
    class Growing final : public GrowingFile {
    public:
        Growing(FakeFiles& disk, std::string name) : disk_(disk), name_(std::move(name)) {
            disk_.Held.insert(name_);
            disk_.Content[name_];
        }
        Growing(const Growing&) = delete;
        Growing& operator=(const Growing&) = delete;
        ~Growing() override { disk_.Held.erase(name_); }
        void Append(std::string bytes, bool flush) override {
            std::string& content = disk_.Content[name_];
            const std::size_t room = disk_.DiskSize - std::min(disk_.DiskSize, content.size());
            if (failure_ == 0)
                content += bytes.substr(0, room);
            if (bytes.size() > room)
                failure_ = FailureDiskFull;
            disk_.Flushes += flush ? 1 : 0;
        }
        Integer FailureSoFar() override { return failure_; }
        void Close() override {}
        double LastFlushMilliseconds() override { return 1; }

    private:
        FakeFiles& disk_;
        std::string name_;
        Integer failure_ = 0;
    };
};

/// Takes its answers from the front of `Answers`; without one it cancels.
class FakeFileDialogs final : public FileDialogs {
public:
    std::deque<std::optional<std::string>> Answers;
    std::vector<std::string> Starts; ///< start point of each dialog so far
    std::function<void()> WhileOpen;

    std::optional<std::string> ChooseFileToOpen(const std::string& start, const std::string&) override {
        return Answer(start);
    }
    std::optional<std::string> ChooseFileToSave(const std::string& start, const std::string&) override {
        return Answer(start);
    }

private:
    std::optional<std::string> Answer(const std::string& start) {
        Starts.push_back(start);
        if (WhileOpen)
            WhileOpen();
        if (Answers.empty())
            return std::nullopt;
        auto answer = Answers.front();
        Answers.pop_front();
        return answer;
    }
};

class FakeMessages final : public Messages {
public:
    struct Message {
        std::string Text;
        int Buttons;
        bool operator==(const Message&) const = default;
    };
    std::deque<int> Answers; ///< without one the answer is OK
    std::vector<Message> Shown;
    std::vector<MessageManner> Manners; ///< of the messages shown

    int Show(const std::string& text, int buttons, const MessageManner& manner) override {
        Shown.push_back({text, buttons});
        Manners.push_back(manner);
        if (Answers.empty())
            return ButtonOK;
        const int answer = Answers.front();
        Answers.pop_front();
        return answer;
    }
};

class FakeMessageLoop final : public MessageLoop {
public:
    int Yields = 0;
    std::function<void()> OnYield; ///< what a user or a timer does in the meantime

    void Yield() override {
        ++Yields;
        if (OnYield)
            OnYield();
    }
};

class FakeProgress final : public Progress {
public:
    std::vector<std::string> Captions;
    std::vector<double> Percents;
    int Visible = 0;

    void Show(const std::string& caption) override {
        Captions.push_back(caption);
        ++Visible;
    }
    void Draw(double percent) override { Percents.push_back(percent); }
    void Hide() override { --Visible; }
};

/// Keeps the words it is sent. `OpenFailure` and `SendFailure` fail every call; the failure's text is "failed
/// N".
class FakeMidiOutput final : public MidiOutput {
public:
    std::vector<std::string> Names;
    std::vector<std::uint32_t> Words;
    std::vector<int> Opened;
    Integer OpenFailure = 0;
    Integer SendFailure = 0;
    int Silences = 0;
    int Closes = 0;

    int DeviceCount() override { return static_cast<int>(Names.size()); }
    std::optional<std::string> DeviceName(int id) override {
        const std::string& name = Names[static_cast<std::size_t>(id)];
        return name.empty() ? std::nullopt : std::optional(name);
    }
    Integer Open(int id) override {
        Opened.push_back(id);
        return OpenFailure;
    }
    Integer Close() override {
        ++Closes;
        return 0;
    }
    Integer Send(std::uint32_t word) override {
        Words.push_back(word);
        return SendFailure;
    }
    void Silence() override { ++Silences; }
    std::string ErrorText(Integer code) override { return "failed " + std::to_string(code); }
};

/// A player whose songs last `Length` seconds and whose time is the fake clock's. A name that holds "broken"
/// cannot be played.
class FakeMediaControl final : public MediaControl {
public:
    explicit FakeMediaControl(FakeClock& clock) : clock_(clock) {}

    double Length = 60;
    bool Stalled = false; ///< the time of the song stands still
    int Volume = -1;
    std::vector<int> Volumes;
    std::vector<std::string> Loaded;
    bool Runs = false;

    Integer Load(const std::string& path) override {
        if (path.find("broken") != std::string::npos)
            return FailureBadFileName;
        Loaded.push_back(path.substr(path.rfind('/') + 1));
        Runs = true;
        SetPosition(0);
        return 0;
    }
    void Play() override { Runs = true; }
    void Stop() override {
        SetPosition(Position());
        Runs = false;
    }
    double Position() override {
        const double gone = Runs && !Stalled ? static_cast<double>(clock_.Now - since_) / 1000 : 0;
        return std::min(from_ + gone, Length);
    }
    void SetPosition(double seconds) override {
        from_ = seconds;
        since_ = clock_.Now;
    }
    double Duration() override { return Loaded.empty() ? 0 : Length; }
    void SetVolume(int volume) override {
        Volume = volume;
        Volumes.push_back(volume);
    }

private:
    FakeClock& clock_;
    double from_ = 0;
    std::int64_t since_ = 0;
};

/// A printer that keeps the page it was given, and can fail at each step.
class FakePagePrinter final : public PagePrinter {
public:
    PaperSize Sheet = PaperA4;
    Integer ChoiceFailure = 0, PaintFailure = 0, EndFailure = 0, PdfFailure = 0;
    std::string Steps; ///< c(hoose) p(aint) e(nd) m(ake a PDF)
    RecordingSurface Page{0, 0};

    Integer ChoosePrinter(const std::string& /*title*/) override {
        Steps += 'c';
        return ChoiceFailure;
    }
    PaperSize Paper() override { return Sheet; }
    Integer PaintPage(const PaperPage& page) override {
        Steps += 'p';
        Page.Forget();
        Page.Resize(page.Size.Width, page.Size.Height);
        page.Draw(Page);
        return PaintFailure;
    }
    Integer EndDocument() override {
        Steps += 'e';
        return EndFailure;
    }
    Integer MakePdf(const std::string& title, const std::function<PaperPage(PaperSize)>& page,
                    std::string& bytes) override {
        Steps += 'm';
        const PaperPage sheet = page(Sheet);
        Page.Resize(sheet.Size.Width, sheet.Size.Height);
        sheet.Draw(Page);
        bytes = "%PDF " + title;
        return PdfFailure;
    }
};

/// Keeps every message. `Found` says whether there is a partner to take it.
class FakePartners final : public PartnerTransport {
public:
    struct Message {
        std::string Title;
        std::vector<unsigned char> Payload;
    };
    std::vector<Message> Sent;
    bool Found = true;

    bool Send(const std::string& title, std::span<const unsigned char> payload) override {
        Sent.push_back({title, {payload.begin(), payload.end()}});
        return Found;
    }
};

/// Keeps every wish to start a program, and answers with `Result`.
class FakePrograms final : public ProgramLauncher {
public:
    std::vector<LaunchRequest> Started;
    int Result = LaunchedResult;

    int Execute(const LaunchRequest& request) override {
        Started.push_back(request);
        return Result;
    }
};

class FakePlatform {
public:
    FakePlatform() { InstallPlatform(platform_); }
    FakePlatform(const FakePlatform&) = delete;
    FakePlatform& operator=(const FakePlatform&) = delete;

    FakeClock Time;
    FakeFiles Disk;
    FakeFileDialogs Dialogs;
    FakeMessages Boxes;
    FakeMessageLoop Loop;
    FakeProgress Bar;
    FakePartners Partners;
    FakePrograms Programs;
    FakeMidiOutput Midi;
    FakeMediaControl Player{Time};
    FakePagePrinter Printer;
    FakeMonitors Monitors{Time};

private:
    Platform platform_{.Clock = Time,
                       .Files = Disk,
                       .FileDialogs = Dialogs,
                       .Messages = Boxes,
                       .MessageLoop = Loop,
                       .Progress = Bar,
                       .PartnerTransport = Partners,
                       .ProgramLauncher = Programs,
                       .MidiOutput = Midi,
                       .MediaControl = Player,
                       .PagePrinter = Printer,
                       .EcgMonitors = Monitors};
};

} // namespace pulselark
