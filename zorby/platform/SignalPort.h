#pragma once

#include <zorby/Export.h>

#include <vector>

namespace zorby {

// What the library signals to a person without words.
class ZORBY_EXPORT SignalPort {
public:
    virtual ~SignalPort() = default;

    virtual void Beep(int hertz, int milliseconds) = 0;
    // Shows the pointer of a program that is busy, or the usual one again.
    virtual void ShowWaitCursor(bool show) = 0;
};

// Keeps the signals, for tests.
class ZORBY_EXPORT RecordedSignals : public SignalPort {
public:
    struct Sound {
        int hertz = 0;
        int milliseconds = 0;
    };

    void Beep(int hertz, int milliseconds) override { sounds.push_back({hertz, milliseconds}); }
    void ShowWaitCursor(bool show) override {
        isWaiting = show;
        timesWaited += show ? 1 : 0;
    }

    std::vector<Sound> sounds;
    bool isWaiting = false;
    int timesWaited = 0;
};

// Returns the port in force. The plain one gives no signals.
ZORBY_EXPORT SignalPort& CurrentSignalPort();

// Puts a port in force that the caller owns and keeps alive. Null restores the plain one.
ZORBY_EXPORT void SetSignalPort(SignalPort* port);

}  // namespace zorby
