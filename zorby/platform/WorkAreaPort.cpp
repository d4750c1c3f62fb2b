#include <zorby/platform/WorkAreaPort.h>
#include <zorby/platform/detail/PortSlot.h>

namespace zorby {

WorkAreaPort& CurrentWorkAreaPort() {
    return SlotOf<WorkAreaPort, FixedWorkArea>().Get();
}

void SetWorkAreaPort(WorkAreaPort* port) {
    SlotOf<WorkAreaPort, FixedWorkArea>().Set(port);
}

}  // namespace zorby
