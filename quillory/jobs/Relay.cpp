#include <quillory/exchange/ItemMemory.h>
#include <quillory/jobs/Relay.h>

#include <memory>
#include <optional>
#include <string>

namespace quillory {
namespace {

// A message that outlasts what it is about.
class KeptMessage {
public:
    explicit KeptMessage(const Message& message)
        : kind_(message.kind), text_(message.text), isCounted_(message.isCounted) {
        if (message.item != nullptr) item_.emplace(*message.item);
        if (message.fault != nullptr) fault_ = *message.fault;
    }

    void PassTo(Reporter& reporter) const {
        reporter.Pass({reporter.File(), item_ ? &item_->Get() : nullptr,
                       fault_ ? &*fault_ : nullptr, kind_, text_, isCounted_});
    }

private:
    std::optional<KeptItem> item_;
    std::optional<Fault> fault_;
    std::string kind_;
    std::string text_;
    bool isCounted_;
};

}  // namespace

void Relay::Say(const Message& message) {
    const auto kept = std::make_shared<KeptMessage>(message);
    steps_.emplace_back([kept, &reporter = reporter_] { kept->PassTo(reporter); });
}

}  // namespace quillory
