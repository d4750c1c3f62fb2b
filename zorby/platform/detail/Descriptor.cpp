#include <zorby/platform/detail/Descriptor.h>

#include <cerrno>
#include <unistd.h>

namespace zorby {

Descriptor::~Descriptor() {
    const int reason = errno;
    if (number_ >= 0) ::close(number_);
    errno = reason;
}

bool Descriptor::Close() {
    return ::close(std::exchange(number_, -1)) == 0;
}

}  // namespace zorby
