#include "platform/system/SystemLauncher.h"

#include "platform/system/FindProgramFolder.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace pulselark {

namespace {

constexpr int OtherFailure = 1;
constexpr int NotFound = 2;
constexpr int FolderNotFound = 3;
constexpr int AccessDenied = 5;
constexpr int OutOfMemory = 8;
constexpr int NotAProgram = 11;
constexpr int NoAssociation = 31;

int ResultOf(int error) {
    switch (error) {
    case 0:
        return LaunchedResult;
    case ENOENT:
        return NotFound;
    case ENOTDIR:
        return FolderNotFound;
    case EACCES:
    case EPERM:
        return AccessDenied;
    case ENOEXEC:
        return NotAProgram;
    case ENOMEM:
    case EAGAIN:
        return OutOfMemory;
    default:
        return OtherFailure;
    }
}

// "" for a file that is no program.
std::string SystemName(const std::string& file) {
    std::string name = file.substr(file.find_last_of("/\\") + 1);
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    constexpr std::string_view Ending = ".exe";
    if (!name.ends_with(Ending))
        return "";
    name.resize(name.size() - Ending.size());
    return name;
}

bool IsFile(const std::string& path) {
    struct stat facts {};
    return ::stat(path.c_str(), &facts) == 0 && S_ISREG(facts.st_mode);
}

// The first file of that name that may be run; else the first one, whose refusal tells why; else "".
std::string FindProgram(const std::string& name) {
    std::string folders = FolderOfProgram();
    if (const char* path = std::getenv("PATH"); path != nullptr)
        folders += std::string(":") + path;
    std::string refused;
    for (std::size_t at = 0; at <= folders.size();) {
        const std::size_t end = std::min(folders.find(':', at), folders.size());
        std::string candidate = folders.substr(at, end - at) + "/" + name;
        at = end + 1;
        if (candidate.front() != '/' || !IsFile(candidate))
            continue;
        if (::access(candidate.c_str(), X_OK) == 0)
            return candidate;
        if (refused.empty())
            refused = candidate;
    }
    return refused;
}

std::vector<std::string> SplitParameters(const std::string& parameters) {
    std::vector<std::string> words;
    bool quoted = false;
    bool inWord = false;
    for (const char c : parameters) {
        if (c == ' ' && !quoted) {
            inWord = false;
            continue;
        }
        if (!inWord)
            words.emplace_back();
        inWord = true;
        if (c == '"')
            quoted = !quoted;
        else
            words.back() += c;
    }
    return words;
}

// Between the fork and the new program only what is safe in a signal handler may be called.
[[noreturn]] void BecomeProgram(const char* path, char* const* arguments, const char* directory, int report) {
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    const int nothing = ::open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        ::dup2(nothing, stream);
    if (nothing > STDERR_FILENO)
        ::close(nothing);
    int error = 0;
    if (directory[0] != '\0' && ::chdir(directory) != 0)
        error = ENOTDIR;
    else {
        ::execv(path, arguments);
        error = errno;
    }
    static_cast<void>(::write(report, &error, sizeof error));
    ::_exit(127);
}

// A process between, which ends at once, leaves the program to the system, so that nothing has to be gathered
// later. Returns 0 or an `errno`.
int StartDetached(const char* path, char* const* arguments, const char* directory) {
    std::array<int, 2> report{};
    if (::pipe2(report.data(), O_CLOEXEC) != 0)
        return errno;
    const pid_t between = ::fork();
    if (between == 0) {
        ::setsid();
        const pid_t program = ::fork();
        if (program == 0)
            BecomeProgram(path, arguments, directory, report[1]);
        const int error = program < 0 ? errno : 0;
        if (error != 0)
            static_cast<void>(::write(report[1], &error, sizeof error));
        ::_exit(0);
    }
    int error = between < 0 ? errno : 0;
    ::close(report[1]);
    while (between > 0 && ::waitpid(between, nullptr, 0) < 0 && errno == EINTR) {
    }
    // The pipe closes without a word when the program runs.
    while (between > 0 && ::read(report[0], &error, sizeof error) < 0 && errno == EINTR) {
    }
    ::close(report[0]);
    return error;
}

} // namespace

int SystemLauncher::Execute(const LaunchRequest& request) {
    const std::string name = SystemName(request.File);
    if (name.empty())
        return NoAssociation;
    std::string path = FindProgram(name);
    if (path.empty())
        return NotFound;
    std::vector<std::string> words = SplitParameters(request.Parameters);
    std::vector<char*> arguments{path.data()};
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    return ResultOf(StartDetached(path.c_str(), arguments.data(), request.Directory.c_str()));
}

} // namespace pulselark
