#pragma once

#include <zorby/Export.h>

#include <cstdint>
#include <ctime>

namespace zorby {

// A clock that only moves on, in milliseconds from a start of its own, and the calendar.
class ZORBY_EXPORT ClockPort {
public:
    virtual ~ClockPort() = default;
    virtual std::int64_t Milliseconds() const = 0;

    // Returns when the clock has moved on by at least that much; at once for 0 and below.
    virtual void Wait(std::int64_t milliseconds) = 0;

    // Date and time of day here, now.
    virtual std::tm LocalTime() const = 0;
};

// Moves on only when it is told to, so that nobody has to wait for it.
class ZORBY_EXPORT SimulatedClock : public ClockPort {
public:
    std::int64_t Milliseconds() const override { return now_; }

    void Wait(std::int64_t milliseconds) override {
        if (milliseconds > 0) now_ += milliseconds;
    }

    std::tm LocalTime() const override { return localTime; }

    std::tm localTime{};  // stands still

private:
    std::int64_t now_ = 0;
};

// The port in force. Plain: the steady clock of the platform.
ZORBY_EXPORT ClockPort& CurrentClockPort();

// Puts a port in force that the caller owns and keeps alive; null restores the plain one.
ZORBY_EXPORT void SetClockPort(ClockPort* port);

}  // namespace zorby
