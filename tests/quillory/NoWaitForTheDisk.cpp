#include <cstdlib>

namespace quillory {
namespace {

// Tests write thousands of files, and none of them has to outlive a power cut.
[[maybe_unused]] const int kIsSet = setenv("QUILLORY_SYNC", "off", 1);

}  // namespace
}  // namespace quillory
