#pragma once

#include "platform/Platform.h"

#include <algorithm>
#include <cstdint>
#include <deque>
#include <functional>
#include <limits>
#include <map>
#include <vector>

/// The outside world as a test scripts it: clock, files in memory, answers to messages and dialogs.
namespace pulselark {

class FakeClock final : public Clock {
public:
    std::int64_t Now = 0;
    std::int64_t PerReading = 0; ///< each reading takes this long
    std::int64_t Milliseconds() override { return Now += PerReading; }
    std::string Today = "21/11/2026";
    std::string ShortDate() override { return Today; }
};

/// Files in memory. `ReadFailure` and `WriteFailure` fail every call; `DiskSize` lets a write fail after so
/// many bytes. A write that fails leaves the old content, as the real one does.
class FakeFiles final : public Files {
public:
    std::map<std::string, std::string> Content;
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

    int Show(const std::string& text, int buttons) override {
        Shown.push_back({text, buttons});
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

private:
    Platform platform_{Time, Disk, Dialogs, Boxes, Loop, Bar, Partners, Programs};
};

} // namespace pulselark
