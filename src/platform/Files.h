#pragma once

#include "base/Numbers.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace pulselark {

/// A file that only grows. What is appended is written and flushed to the disk in the background, so that the
/// caller never waits for a disk. While it is open no other program can open it, and it counts as held; a
/// program that dies lets it go. Closing it (its end) waits for the last flush.
class GrowingFile {
public:
    virtual ~GrowingFile() = default;
    /// Puts the bytes at the end. They are with the system within milliseconds, so that they outlive the
    /// program; with `flush` they go on to the disk, so that they outlive the machine.
    virtual void Append(std::string bytes, bool flush) = 0;
    /// 0, or the number of the first failure (57, 61, 70); after one nothing more is written.
    virtual Integer FailureSoFar() = 0;
    /// Waits for what is still to be written and flushed; nothing can be appended any more. `FailureSoFar` is
    /// then the last word.
    virtual void Close() = 0;
    /// How long the last flush took, in milliseconds; 0 before the first.
    virtual double LastFlushMilliseconds() = 0;
};

/// Whole files, and files that grow. All names are UTF-8 paths.
class Files {
public:
    virtual ~Files() = default;

    /// Reads a regular file into `bytes`. Returns 0, or the number of the failure (52, 53, 57, 7, 70, 75,
    /// 76); then `bytes` is empty. Anything that is not a regular file, or is larger than 256 MiB, is
    /// failure 75.
    virtual Integer ReadWhole(const std::string& name, std::string& bytes) = 0;

    /// Replaces the file, or makes it, whole or not at all: the bytes go to a temporary file beside it, are
    /// flushed to the disk and take the old file's name. Whatever happens, the old file or the new one is
    /// there. Returns 0, or the number of the failure (52, 57, 61, 70, 75, 76).
    virtual Integer ReplaceWhole(const std::string& name, const std::string& bytes) = 0;

    /// Tries whether `ReplaceWhole` could write the file, and leaves everything as it is. Returns 0, or the
    /// number of the failure. How much room there is on the disk is not known before.
    virtual Integer TryReplace(const std::string& name) = 0;

    /// Lists the files of a folder whose names end in `extension` (".htc", in letters of either case; an
    /// empty one takes every file): names without the folder, sorted by their bytes. Returns 0, or the number
    /// of the failure (52, 57, 70, 76); then `names` is empty.
    virtual Integer ListFolder(const std::string& folder, const std::string& extension,
                               std::vector<std::string>& names) = 0;

    /// Opens a file that grows, making it where there is none. Without a result `failure` says why (52, 55
    /// held by another program, 57, 61, 70, 75, 76).
    virtual std::unique_ptr<GrowingFile> OpenToGrow(const std::string& name, Integer& failure) = 0;

    /// Whether a running program, this one included, has the file open to grow.
    virtual bool HeldToGrow(const std::string& name) = 0;

    /// Deletes a file. Returns 0, also if there was none, or the number of the failure.
    virtual Integer Remove(const std::string& name) = 0;
};

} // namespace pulselark
