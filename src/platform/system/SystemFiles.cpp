#include "platform/system/SystemFiles.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace pulselark {

namespace {

constexpr off_t LargestFile = off_t{256} * 1024 * 1024;

Integer NumberOf(int error, Integer notThere) {
    switch (error) {
    case ENOENT:
        return notThere;
    case ENOTDIR:
        return FailurePathNotFound;
    case ENAMETOOLONG:
    case EINVAL:
    case EILSEQ:
        return FailureBadFileName;
    case EACCES:
    case EPERM:
        return FailurePermissionDenied;
    case EISDIR:
    case EROFS:
    case ELOOP:
    case ETXTBSY:
    case ENXIO:
        return FailurePathFileAccess;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return FailureDiskFull;
    case ENOMEM:
        return FailureOutOfMemory;
    default:
        return FailureDeviceIO;
    }
}

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
            return NumberOf(errno, FailureFileNotFound);
        if (count == 0)
            break; // the file became shorter while it was read
        done += static_cast<std::size_t>(count);
    }
    bytes.resize(done);
    return 0;
}

int WriteAll(int file, const std::string& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = ::write(file, bytes.data() + done, bytes.size() - done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return errno;
        done += static_cast<std::size_t>(count);
    }
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

int WriteFlushed(const std::string& temporary, int number, mode_t rights, const std::string& bytes) {
    Descriptor file(number);
    int error = WriteAll(file.Number(), bytes);
    if (error == 0 && (::fchmod(file.Number(), rights) != 0 || ::fsync(file.Number()) != 0))
        error = errno;
    if (file.Close() != 0 && error == 0)
        error = errno;
    if (error != 0)
        ::unlink(temporary.c_str());
    return error;
}

// The new name itself must reach the disk, too. A file system that cannot flush a folder has done what it
// can.
void FlushFolder(const std::string& folder) {
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.Number() >= 0)
        static_cast<void>(::fsync(descriptor.Number()));
}

} // namespace

Integer SystemFiles::ReadWhole(const std::string& name, std::string& bytes) {
    bytes.clear();
    if (name.empty())
        return FailureBadFileName;
    // Not blocking, so that a pipe without a writer cannot hold the program.
    const Descriptor file(::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.Number() < 0) {
        const auto folder = std::filesystem::path(name).parent_path();
        std::error_code error;
        const bool folderThere = folder.empty() || std::filesystem::is_directory(folder, error);
        return NumberOf(errno, folderThere ? FailureFileNotFound : FailurePathNotFound);
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
    if (name.empty())
        return FailureBadFileName;
    // A link is followed, so that the file it names is replaced and not the link.
    std::error_code error;
    std::filesystem::path target = std::filesystem::weakly_canonical(name, error);
    if (error)
        target = name;
    struct stat old {};
    if (::stat(target.c_str(), &old) == 0 && !S_ISREG(old.st_mode))
        return FailurePathFileAccess;
    const mode_t rights = RightsOf(target);
    const std::string folder = target.has_parent_path() ? target.parent_path().string() : ".";
    std::string temporary = folder + "/." + target.filename().string() + ".XXXXXX";
    const int number = ::mkostemp(temporary.data(), O_CLOEXEC);
    if (number < 0)
        return NumberOf(errno, FailurePathNotFound);
    if (const int failed = WriteFlushed(temporary, number, rights, bytes); failed != 0)
        return NumberOf(failed, FailurePathNotFound);
    if (::rename(temporary.c_str(), target.c_str()) != 0) {
        const int failed = errno;
        ::unlink(temporary.c_str());
        return NumberOf(failed, FailurePathNotFound);
    }
    FlushFolder(folder);
    return 0;
}

} // namespace pulselark
