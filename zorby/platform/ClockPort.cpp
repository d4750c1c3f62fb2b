#include <zorby/platform/ClockPort.h>
#include <zorby/platform/detail/PortSlot.h>

#include <chrono>
#include <thread>

namespace zorby {

namespace {

class SteadyClock : public ClockPort {
public:
    std::int64_t Milliseconds() const override {
        const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
        return std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count();
    }

    void Wait(std::int64_t milliseconds) override {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    }

    std::tm LocalTime() const override {
        const std::time_t now = std::time(nullptr);
        std::tm local{};
#ifdef _WIN32
        localtime_s(&local, &now);
#else
        localtime_r(&now, &local);
#endif
        return local;
    }
};

}  // namespace

ClockPort& CurrentClockPort() {
    return SlotOf<ClockPort, SteadyClock>().Get();
}

void SetClockPort(ClockPort* port) {
    SlotOf<ClockPort, SteadyClock>().Set(port);
}

}  // namespace zorby
