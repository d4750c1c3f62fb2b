#include <zorby/platform/WorkAreaPort.h>
#include <zorby/platform/detail/PortSlot.h>

namespace zorby {

namespace {

PortSlot<WorkAreaPort, FixedWorkArea>& Slot() {
    static PortSlot<WorkAreaPort, FixedWorkArea> slot;
    return slot;
}

}  // namespace

WorkAreaPort& CurrentWorkAreaPort() {
    return Slot().Get();
}

void SetWorkAreaPort(WorkAreaPort* port) {
    Slot().Set(port);
}

}  // namespace zorby
