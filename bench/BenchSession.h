#pragma once

#include <filesystem>
#include <string>

namespace pulselark {

/// The session that everything is measured on, in the buffers and as a file.
class BenchSession {
public:
    /// Loads the longest real recording from the folder that the environment variable PULSELARK_DATA names;
    /// without it, makes a synthetic one of the same length and keeps its file until the object goes.
    /// Throws std::runtime_error if a file cannot be read or written.
    BenchSession();
    BenchSession(const BenchSession&) = delete;
    BenchSession& operator=(const BenchSession&) = delete;
    ~BenchSession();

    const std::string& FileName() const { return fileName_; }

private:
    std::string fileName_;
    bool temporary_ = false;
};

} // namespace pulselark
