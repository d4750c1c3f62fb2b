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

}  // namespace zorby
