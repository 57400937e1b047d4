#include "platform/system/GrowingFileWriter.h"

#include "platform/system/ErrorNumber.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace pulselark {

FileDescriptor OpenHeld(const std::string& name, Integer& failure) {
    failure = 0;
    FileDescriptor file(::open(name.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666));
    if (!file.IsOpen())
        failure = NumberOfError(errno, FailurePathNotFound);
    else if (::flock(file.Number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        failure = FailureFileAlreadyOpen; // a file system without locks does without
    if (failure != 0)
        file.Close();
    return file;
}

bool IsHeld(const std::string& name) {
    const FileDescriptor file(::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    return file.IsOpen() && ::flock(file.Number(), LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

GrowingFileWriter::GrowingFileWriter(FileDescriptor file)
    : file_(std::move(file)), worker_([this] { Work(); }) {}

GrowingFileWriter::~GrowingFileWriter() {
    Close();
}

void GrowingFileWriter::Close() {
    if (!worker_.joinable())
        return;
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    wake_.notify_one();
    worker_.join();
}

void GrowingFileWriter::Append(std::string bytes, bool flush) {
    {
        const std::lock_guard lock(mutex_);
        pending_ += bytes;
        flushPending_ = flushPending_ || flush;
    }
    wake_.notify_one();
}

void GrowingFileWriter::Work() {
    std::unique_lock lock(mutex_);
    for (;;) {
        wake_.wait(lock, [this] { return ending_ || !pending_.empty(); });
        const std::string bytes = std::exchange(pending_, {});
        const bool flush = std::exchange(flushPending_, false);
        const bool last = ending_;
        lock.unlock();
        Write(bytes, flush || last);
        if (last)
            return;
        lock.lock();
    }
}

void GrowingFileWriter::Write(const std::string& bytes, bool flush) {
    if (failure_ != 0)
        return;
    int error = WriteWhole(file_.Number(), bytes.data(), bytes.size());
    const auto start = std::chrono::steady_clock::now();
    if (error == 0 && flush && ::fdatasync(file_.Number()) != 0)
        error = errno == EINVAL || errno == EROFS ? 0 : errno; // nothing there that could be flushed
    if (error != 0)
        failure_ = NumberOfError(error, FailurePathNotFound);
    if (flush) {
        flushMilliseconds_ =
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    }
}

} // namespace pulselark
