#pragma once

#include "platform/Files.h"
#include "platform/link/FileDescriptor.h"

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace pulselark {

/// Opens `name` to grow, and holds it by a lock of the system's that ends with the process. Returns the open
/// file, or one that is not open with the failure's number.
FileDescriptor OpenHeld(const std::string& name, Integer& failure);

/// Whether a process holds `name`.
bool IsHeld(const std::string& name);

/// A file that grows. A thread of its own does the writing, so that nobody waits for the disk; what has piled
/// up while it flushed goes out at once.
class GrowingFileWriter final : public GrowingFile {
public:
    explicit GrowingFileWriter(FileDescriptor file);
    GrowingFileWriter(const GrowingFileWriter&) = delete;
    GrowingFileWriter& operator=(const GrowingFileWriter&) = delete;
    ~GrowingFileWriter() override;

    void Append(std::string bytes, bool flush) override;
    Integer FailureSoFar() override { return failure_; }
    void Close() override;
    double LastFlushMilliseconds() override { return flushMilliseconds_; }

private:
    void Work();
    void Write(const std::string& bytes, bool flush);

    FileDescriptor file_;
    std::mutex mutex_;
    std::condition_variable wake_;
    std::string pending_; // under the mutex, as the next two
    bool flushPending_ = false;
    bool ending_ = false;
    std::atomic<Integer> failure_{0};
    std::atomic<double> flushMilliseconds_{0};
    std::thread worker_; // last, so that it starts with all the rest in place
};

} // namespace pulselark
