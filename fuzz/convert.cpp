#include <algorithm>
#include <fuzz/Carry.h>
#include <string>

namespace quillory::fuzz {
namespace {

// Old MicroLIF has no field without content.
bool MicrolifHolds(const Item& item) {
    const auto& fields = item.record.fields;
    return std::all_of(fields.begin(), fields.end(),
                       [](const auto& field) { return !field.content.empty(); });
}

// What to do with a file, out of its first byte.
CarryOptions OptionsOf(unsigned byte) {
    static const Form* const kForms[] = {FormNamed("marc"), FormNamed("mrk"),
                                         FormNamed("microlif")};
    CarryOptions options;
    options.from = kForms[byte % 3];
    options.to = kForms[byte / 3 % 3];
    options.charset = static_cast<Charset>(byte / 9 % 4);
    options.lenient = byte / 36 % 2 != 0;
    options.oversize = byte / 72 % 2 != 0 ? kOversizeCut : kOversizeRefuse;
    if (options.to == FormNamed("microlif")) options.takes = MicrolifHolds;
    return options;
}

}  // namespace
}  // namespace quillory::fuzz

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace quillory::fuzz;
    if (size != 0) CarryThereAndBack(OptionsOf(data[0]), TextOf(data + 1, size - 1));
    return 0;
}
