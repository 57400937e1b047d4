#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace pulselark {

/// A partner as anybody may write one: a process that listens on a socket file, knows nothing of this program
/// but the packet, and reports the last Double of each payload.
class PartnerProcess {
public:
    /// It listens when the constructor returns. A socket that lies there already is taken away first.
    /// `user` is who it is when it begins to listen; -1 for this user.
    explicit PartnerProcess(const std::string& socketName, int user = -1);
    PartnerProcess(const PartnerProcess&) = delete;
    PartnerProcess& operator=(const PartnerProcess&) = delete;
    ~PartnerProcess() { Kill(); }

    void Stop();     ///< hangs, until it goes on
    void Continue(); ///< goes on
    void Kill();     ///< ends at once and leaves its socket behind

    /// What it has received so far.
    const std::vector<double>& Received();

private:
    pid_t process_ = -1;
    int report_ = -1;
    std::vector<double> received_;
};

} // namespace pulselark
