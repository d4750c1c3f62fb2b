#include <zorby/archive/Stream.h>

namespace zorby {

Stream::~Stream() = default;

std::string Stream::GetName() const {
    return {};
}

}  // namespace zorby
