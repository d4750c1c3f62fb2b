#include <zorby/platform/ClipboardPort.h>
#include <zorby/platform/detail/PortSlot.h>

namespace zorby {

ClipboardPort& CurrentClipboardPort() {
    return SlotOf<ClipboardPort, MemoryClipboard>().Get();
}

void SetClipboardPort(ClipboardPort* port) {
    SlotOf<ClipboardPort, MemoryClipboard>().Set(port);
}

}  // namespace zorby
