#pragma once

namespace zorby {

// Which implementation of a port is in force: the host's, or the plain one while there is none.
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
