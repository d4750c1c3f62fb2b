#include <zorby/platform/ClipboardPort.h>
#include <zorby/platform/detail/PortSlot.h>

namespace zorby {

namespace {

PortSlot<ClipboardPort, MemoryClipboard>& Slot() {
    static PortSlot<ClipboardPort, MemoryClipboard> slot;
    return slot;
}

}  // namespace

ClipboardPort& CurrentClipboardPort() {
    return Slot().Get();
}

void SetClipboardPort(ClipboardPort* port) {
    Slot().Set(port);
}

}  // namespace zorby
