#include "platform/system/SystemFiles.h"

#include "platform/system/ErrorNumber.h"
#include "platform/system/GrowingFileWriter.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <new>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace pulselark {

namespace {

constexpr off_t LargestFile = off_t{256} * 1024 * 1024;

// An open file that is closed on every way out.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0)
            ::close(number_);
    }
    int Number() const { return number_; }
    /// The close itself can tell of a full disk.
    int Close() {
        const int result = ::close(number_);
        number_ = -1;
        return result;
    }

private:
    int number_;
};

Integer ReadAll(int file, std::string& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = ::read(file, bytes.data() + done, bytes.size() - done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return NumberOfError(errno, FailureFileNotFound);
        if (count == 0)
            break; // the file became shorter while it was read
        done += static_cast<std::size_t>(count);
    }
    bytes.resize(done);
    return 0;
}

// The rights of the file that is replaced, or those of any new file of this user.
mode_t RightsOf(const std::string& name) {
    struct stat old {};
    if (::stat(name.c_str(), &old) == 0)
        return old.st_mode & 07777U;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666U & ~mask;
}

int WriteFlushed(int file, mode_t rights, const std::string& bytes) {
    if (const int error = WriteWhole(file, bytes.data(), bytes.size()); error != 0)
        return error;
    // A file system without rights of its own keeps what it gives.
    static_cast<void>(::fchmod(file, rights));
    return ::fsync(file) == 0 ? 0 : errno;
}

// A name beside the target that is not taken; short, so that it fits wherever the target's own name does.
std::string TemporaryName(const std::string& folder) {
    return folder + "/.pulselark.XXXXXX";
}

// Gives a file without a name the target's. Only between the two calls can a killed program leave anything
// behind.
int NameAs(int file, const std::string& folder, const std::string& target) {
    constexpr int Tries = 100;
    const std::string self = "/proc/self/fd/" + std::to_string(file);
    for (int i = 0; i < Tries; ++i) {
        const std::string name =
            folder + "/.pulselark." + std::to_string(::getpid()) + "." + std::to_string(i);
        if (::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) != 0) {
            if (errno == EEXIST)
                continue;
            return errno;
        }
        if (::rename(name.c_str(), target.c_str()) == 0)
            return 0;
        const int error = errno;
        ::unlink(name.c_str());
        return error;
    }
    return EEXIST;
}

int ReplaceByUnnamed(int number, const std::string& folder, const std::string& target, mode_t rights,
                     const std::string& bytes) {
    Descriptor file(number);
    if (const int error = WriteFlushed(file.Number(), rights, bytes); error != 0)
        return error;
    return NameAs(file.Number(), folder, target);
}

// For file systems that know no file without a name.
int ReplaceByNamed(const std::string& folder, const std::string& target, mode_t rights,
                   const std::string& bytes) {
    std::string name = TemporaryName(folder);
    Descriptor file(::mkostemp(name.data(), O_CLOEXEC));
    if (file.Number() < 0)
        return errno;
    int error = WriteFlushed(file.Number(), rights, bytes);
    if (file.Close() != 0 && error == 0)
        error = errno;
    if (error == 0 && ::rename(name.c_str(), target.c_str()) != 0)
        error = errno;
    if (error != 0)
        ::unlink(name.c_str());
    return error;
}

// The file that a name stands for in the end: links are followed, one that leads nowhere to the place it
// names. Returns the error of a chain of links without an end.
int FollowLinks(std::filesystem::path& target) {
    constexpr int LongestChain = 40;
    std::error_code error;
    for (int i = 0; std::filesystem::is_symlink(target, error); ++i) {
        if (i == LongestChain)
            return ELOOP;
        const std::filesystem::path next = std::filesystem::read_symlink(target, error);
        if (error)
            return error.value();
        target = next.is_absolute() ? next : target.parent_path() / next;
    }
    return 0;
}

// What is not to be written over, and the file that a name stands for in the end.
Integer FindTarget(const std::string& name, std::filesystem::path& target) {
    if (name.empty() || name.back() == '/')
        return FailureBadFileName;
    target = name;
    if (const int error = FollowLinks(target); error != 0)
        return NumberOfError(error, FailurePathNotFound);
    struct stat old {};
    if (::stat(target.c_str(), &old) != 0)
        return 0;
    if (!S_ISREG(old.st_mode))
        return FailurePathFileAccess;
    // A file that is write-protected stays as it is, though its folder would let it be replaced.
    return ::access(target.c_str(), W_OK) == 0 ? Integer{0} : NumberOfError(errno, FailurePathNotFound);
}

std::string FolderOf(const std::filesystem::path& target) {
    return target.has_parent_path() ? target.parent_path().string() : ".";
}

int OpenUnnamed(const std::string& folder) {
    return ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
}

// The new name itself must reach the disk, too. A file system that cannot flush a folder has done what it
// can.
void FlushFolder(const std::string& folder) {
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.Number() >= 0)
        static_cast<void>(::fsync(descriptor.Number()));
}

bool HasExtension(const std::filesystem::path& name, const std::string& extension) {
    return ::strcasecmp(name.extension().c_str(), extension.c_str()) == 0;
}

} // namespace

Integer SystemFiles::ReadWhole(const std::string& name, std::string& bytes) {
    bytes.clear();
    if (name.empty())
        return FailureBadFileName;
    // Not blocking, so that a pipe without a writer cannot hold the program.
    const Descriptor file(::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.Number() < 0) {
        const int failed = errno;
        const auto folder = std::filesystem::path(name).parent_path();
        std::error_code error;
        const bool folderThere = folder.empty() || std::filesystem::is_directory(folder, error);
        return NumberOfError(failed, folderThere ? FailureFileNotFound : FailurePathNotFound);
    }
    struct stat status {};
    if (::fstat(file.Number(), &status) != 0)
        return FailureDeviceIO;
    if (!S_ISREG(status.st_mode) || status.st_size > LargestFile)
        return FailurePathFileAccess;
    try {
        bytes.resize(static_cast<std::size_t>(status.st_size));
    } catch (const std::bad_alloc&) {
        return FailureOutOfMemory;
    }
    const Integer failure = ReadAll(file.Number(), bytes);
    if (failure != 0)
        bytes.clear();
    return failure;
}

Integer SystemFiles::ReplaceWhole(const std::string& name, const std::string& bytes) {
    std::filesystem::path target;
    if (const Integer failure = FindTarget(name, target); failure != 0)
        return failure;
    const mode_t rights = RightsOf(target);
    const std::string folder = FolderOf(target);
    const int unnamed = OpenUnnamed(folder);
    const int error = unnamed >= 0 ? ReplaceByUnnamed(unnamed, folder, target, rights, bytes)
                                   : ReplaceByNamed(folder, target, rights, bytes);
    if (error != 0)
        return NumberOfError(error, FailurePathNotFound);
    FlushFolder(folder);
    return 0;
}

Integer SystemFiles::TryReplace(const std::string& name) {
    std::filesystem::path target;
    if (const Integer failure = FindTarget(name, target); failure != 0)
        return failure;
    const std::string folder = FolderOf(target);
    if (const Descriptor unnamed(OpenUnnamed(folder)); unnamed.Number() >= 0)
        return 0;
    std::string named = TemporaryName(folder);
    const Descriptor file(::mkostemp(named.data(), O_CLOEXEC));
    if (file.Number() < 0)
        return NumberOfError(errno, FailurePathNotFound);
    ::unlink(named.c_str());
    return 0;
}

Integer SystemFiles::ListFolder(const std::string& folder, const std::string& extension,
                                std::vector<std::string>& names) {
    names.clear();
    if (folder.empty())
        return FailureBadFileName;
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::error_code gone; // a file that goes while the folder is listed is no file of it
        if ((extension.empty() || HasExtension(entry->path(), extension)) && entry->is_regular_file(gone))
            names.push_back(entry->path().filename().string());
    }
    if (error) {
        names.clear();
        return NumberOfError(error.value(), FailurePathNotFound);
    }
    std::sort(names.begin(), names.end());
    return 0;
}

std::unique_ptr<GrowingFile> SystemFiles::OpenToGrow(const std::string& name, Integer& failure) {
    FileDescriptor file = OpenHeld(name, failure);
    if (failure != 0)
        return nullptr;
    FlushFolder(std::filesystem::path(name).parent_path());
    return std::make_unique<GrowingFileWriter>(std::move(file));
}

bool SystemFiles::HeldToGrow(const std::string& name) {
    return IsHeld(name);
}

Integer SystemFiles::Remove(const std::string& name) {
    if (::unlink(name.c_str()) == 0 || errno == ENOENT)
        return 0;
    return NumberOfError(errno, FailurePathNotFound);
}

} // namespace pulselark
