#include <fuzz/Carry.h>

namespace quillory::fuzz {
namespace {

bool IsAnObject(const Item& item) {
    const std::size_t last = item.bytes.find_last_not_of(" \t\r\n");
    Expect(item.bytes.starts_with('{') && item.bytes[last] == '}', "a record is an object");
    return true;
}

}  // namespace
}  // namespace quillory::fuzz

// A text of objects, carried into each form that holds everything.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace quillory;
    using namespace quillory::fuzz;
    for (const char* to : {"jsonl", "marcxml", "mrk"}) {
        CarryOptions options;
        options.from = FormNamed("jsonl");
        options.to = FormNamed(to);
        options.takes = IsAnObject;
        CarryThereAndBack(options, TextOf(data, size));
    }
    return 0;
}
