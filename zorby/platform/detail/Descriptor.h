#pragma once

#include <utility>

namespace zorby {

// Owns a file descriptor. Closing it in the destructor doesn't change errno, which may still hold
// the reason of a failure.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor();

    int Number() const { return number_; }
    bool IsOpen() const { return number_ >= 0; }
    // Returns false, with the reason in errno, if what was written may be lost.
    bool Close();

private:
    int number_;
};

}  // namespace zorby
