#include <quillory/faults/Hints.h>

#include <utility>

namespace quillory {
namespace {

const HintPort* inForce = nullptr;

}  // namespace

std::string HintText(std::string_view id, const Place& place, std::string_view command) {
    if (inForce == nullptr || command.empty()) return std::string(command);
    return inForce->Hint(id, place);
}

HintsInForce::HintsInForce(const HintPort& port) : before_(std::exchange(inForce, &port)) {}

HintsInForce::~HintsInForce() {
    inForce = before_;
}

}  // namespace quillory
