#include <cctype>
#include <fuzz/Carry.h>

namespace quillory::fuzz {
namespace {

bool IsAnElement(const Item& item) {
    Expect(item.bytes.starts_with('<') && item.bytes.ends_with('>'), "a record is an element");
    return true;
}

}  // namespace
}  // namespace quillory::fuzz

// A document, carried into each form that holds everything.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace quillory;
    using namespace quillory::fuzz;
    for (const char* to : {"marcxml", "jsonl", "mrk"}) {
        CarryOptions options;
        options.from = FormNamed("marcxml");
        options.to = FormNamed(to);
        // Without a declaration it is in UTF-8.
        if (size > 1 && data[0] == '<' && std::isalpha(data[1]) != 0) options.takes = IsAnElement;
        CarryThereAndBack(options, TextOf(data, size));
    }
    return 0;
}
