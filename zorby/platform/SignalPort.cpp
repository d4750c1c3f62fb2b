#include <zorby/platform/SignalPort.h>
#include <zorby/platform/detail/PortSlot.h>

namespace zorby {

namespace {

class NoSignals : public SignalPort {
public:
    void Beep(int, int) override {}
    void ShowWaitCursor(bool) override {}
};

PortSlot<SignalPort, NoSignals>& Slot() {
    static PortSlot<SignalPort, NoSignals> slot;
    return slot;
}

}  // namespace

SignalPort& CurrentSignalPort() {
    return Slot().Get();
}

void SetSignalPort(SignalPort* port) {
    Slot().Set(port);
}

}  // namespace zorby
