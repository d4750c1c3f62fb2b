#pragma once

#include <zorby/Export.h>

#include <cstdint>
#include <ctime>

namespace zorby {

// A clock that only goes forward, in milliseconds from some start, and the calendar.
class ZORBY_EXPORT ClockPort {
public:
    virtual ~ClockPort() = default;
    virtual std::int64_t Milliseconds() const = 0;

    // Returns when the clock has gone forward by at least that much, and at once for 0 or less.
    virtual void Wait(std::int64_t milliseconds) = 0;

    // Returns the local date and time.
    virtual std::tm LocalTime() const = 0;
};

// Goes forward only when it is told to, so that nobody has to wait.
class ZORBY_EXPORT SimulatedClock : public ClockPort {
public:
    std::int64_t Milliseconds() const override { return now_; }

    void Wait(std::int64_t milliseconds) override {
        if (milliseconds > 0) now_ += milliseconds;
    }

    std::tm LocalTime() const override { return localTime; }

    std::tm localTime{};  // stays as it was set

private:
    std::int64_t now_ = 0;
};

// Returns the port in force. The plain one is the steady clock of the platform.
ZORBY_EXPORT ClockPort& CurrentClockPort();

// Puts a port in force that the caller owns and keeps alive. Null restores the plain one.
ZORBY_EXPORT void SetClockPort(ClockPort* port);

}  // namespace zorby
