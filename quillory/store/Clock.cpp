#include <quillory/store/Clock.h>

#include <chrono>

namespace quillory {

std::int64_t SecondsNow() {
    using std::chrono::system_clock;
    return std::chrono::duration_cast<std::chrono::seconds>(system_clock::now().time_since_epoch())
        .count();
}

}  // namespace quillory
