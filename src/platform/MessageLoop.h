#pragma once

namespace pulselark {

/// The message loop of the user-interface thread.
class MessageLoop {
public:
    virtual ~MessageLoop() = default;
    /// Lets pending timers and painting run once. Input of the user waits until the routine that yields is
    /// done.
    virtual void Yield() = 0;
};

} // namespace pulselark
