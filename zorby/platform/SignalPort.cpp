#include <zorby/platform/SignalPort.h>
#include <zorby/platform/detail/PortSlot.h>

namespace zorby {

namespace {

class NoSignals : public SignalPort {
public:
    void Beep(int, int) override {}
    void ShowWaitCursor(bool) override {}
};

}  // namespace

SignalPort& CurrentSignalPort() {
    return SlotOf<SignalPort, NoSignals>().Get();
}

void SetSignalPort(SignalPort* port) {
    SlotOf<SignalPort, NoSignals>().Set(port);
}

}  // namespace zorby
