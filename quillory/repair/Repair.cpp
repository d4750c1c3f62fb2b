#include <quillory/repair/Repair.h>

#include <algorithm>

namespace quillory {
namespace {

std::string Bytes(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

}  // namespace

Fault FaultOf(const Repair& repair) {
    if (repair.element != nullptr) {
        std::string value = Printable(repair.before);
        std::ranges::replace(value, ' ', '#');
        return {repair.fault, repair.place, value};
    }
    return {repair.fault, repair.place, Bytes(repair.before.size()),
            std::to_string(repair.after.size())};
}

}  // namespace quillory
