#include <quillory/jobs/HeldRecords.h>

#include <string>

namespace quillory {

bool HeldRecords::Has(std::int64_t id) {
    const std::string holder = locks_.HolderElsewhere(id);
    if (holder.empty()) return false;
    reporter_.Say("record " + std::to_string(id) + " is left as it is: it is being changed by " +
                  holder);
    hadAny_ = true;
    return true;
}

}  // namespace quillory
