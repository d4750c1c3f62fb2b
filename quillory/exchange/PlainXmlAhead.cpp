#include <quillory/exchange/PlainXmlAhead.h>
#include <quillory/exchange/SignalsBlocked.h>

#include <exception>
#include <limits>
#include <system_error>
#include <utility>

namespace quillory {

PlainXmlAhead::~PlainXmlAhead() {
    begun_.Close();
}

bool PlainXmlAhead::IsStarted() {
    if (thread_.joinable() || !canStart_) return canStart_;
    const SignalsBlocked blocked;
    try {
        thread_ = std::jthread([this] { Work(); });
    } catch (const std::system_error&) {
        canStart_ = false;
    }
    return canStart_;
}

// What can't be read here is read where the reader is, and fails there in the same way.
void PlainXmlAhead::Work() {
    while (begun_.Take()) {
        std::size_t size = 0;
        try {
            size = run_->Read(plain_, xml_, offset_, xml_.size());
        } catch (const std::exception&) {
            size = 0;
        }
        done_.Put(size);
    }
}

void PlainXmlAhead::Begin(std::string_view xml, std::uint64_t offset, const std::string& tag,
                          PlainXmlRuns& runs, std::shared_ptr<const void> bytes) {
    constexpr std::size_t kEnough = std::size_t{1} << 17;
    if (run_ || xml.size() < kEnough || !IsStarted()) return;
    tag_ = tag;
    plain_.SetStartTag(tag);
    const std::size_t end = xml.find(plain_.RecordEnd(), xml.size() / 2);
    if (end == xml.npos) return;
    const std::size_t start = end + plain_.RecordEnd().size();
    xml_ = xml.substr(start);
    offset_ = offset + start;
    run_ = runs.Take();
    bytes_ = std::move(bytes);
    begun_.Put(true);
}

std::size_t PlainXmlAhead::BytesBefore(std::uint64_t offset) const {
    return run_ ? static_cast<std::size_t>(offset_ - offset)
                : std::numeric_limits<std::size_t>::max();
}

std::optional<PlainXmlAhead::Part> PlainXmlAhead::Take(std::uint64_t offset,
                                                       const std::string& tag) {
    if (!run_ || offset < offset_) return std::nullopt;
    const std::size_t size = *done_.Take();
    Part part{std::move(run_), size};
    bytes_.reset();
    if (offset != offset_ || tag != tag_) return std::nullopt;
    return part;
}

}  // namespace quillory
