#pragma once

namespace zorby {

// Knows which implementation of a port is in force: the host's, or the plain one if there is none.
template <class Port, class Plain>
class PortSlot {
public:
    Port& Get() { return set_ ? *set_ : plain_; }
    void Set(Port* port) { set_ = port; }

private:
    Plain plain_;
    Port* set_ = nullptr;
};

// The one slot of a port in the program.
template <class Port, class Plain>
PortSlot<Port, Plain>& SlotOf() {
    static PortSlot<Port, Plain> slot;
    return slot;
}

}  // namespace zorby
