#include <quillory/queries/RegularExpression.h>

#include <algorithm>
#include <re2/re2.h>

namespace quillory {

class RegularExpression::Engine {
public:
    Engine(std::string_view expression, bool matchCase)
        : re2({expression.data(), expression.size()}, OptionsFor(matchCase)) {}

    RE2 re2;

private:
    static RE2::Options OptionsFor(bool matchCase) {
        RE2::Options options;
        options.set_log_errors(false);
        options.set_case_sensitive(matchCase);
        return options;
    }
};

RegularExpression::RegularExpression(std::string_view expression, bool matchCase)
    : engine_(std::make_unique<Engine>(expression, matchCase)) {}
RegularExpression::RegularExpression(RegularExpression&&) noexcept = default;
RegularExpression& RegularExpression::operator=(RegularExpression&&) noexcept = default;
RegularExpression::~RegularExpression() = default;

std::string RegularExpression::Fault() const {
    return engine_->re2.ok() ? std::string() : engine_->re2.error();
}

std::size_t RegularExpression::Groups() const {
    return static_cast<std::size_t>(std::max(0, engine_->re2.NumberOfCapturingGroups()));
}

bool RegularExpression::Find(std::string_view text, std::size_t from,
                             std::vector<TextRange>& ranges) const {
    if (!engine_->re2.ok() || from > text.size()) return false;
    // Each group that is asked for takes memory and time in proportion to the expression.
    constexpr std::size_t kMostGroups = 9;
    std::vector<re2::StringPiece> parts(std::min(Groups(), kMostGroups) + 1);
    if (!engine_->re2.Match({text.data(), text.size()}, from, text.size(), RE2::UNANCHORED,
                            parts.data(), static_cast<int>(parts.size()))) {
        return false;
    }
    ranges.clear();
    for (const re2::StringPiece& part : parts) {
        const char* begin = part.data() == nullptr ? parts[0].data() : part.data();
        const auto at = static_cast<std::size_t>(begin - text.data());
        ranges.push_back({at, at + part.size()});
    }
    return true;
}

std::optional<TextRange> RegularExpression::FindMatch(std::string_view text,
                                                      std::size_t from) const {
    re2::StringPiece match;
    const bool isFound = engine_->re2.ok() && from <= text.size() &&
                         engine_->re2.Match({text.data(), text.size()}, from, text.size(),
                                            RE2::UNANCHORED, &match, 1);
    if (!isFound) return std::nullopt;
    const auto at = static_cast<std::size_t>(match.data() - text.data());
    return TextRange{at, at + match.size()};
}

bool RegularExpression::IsIn(std::string_view text) const {
    return engine_->re2.ok() && engine_->re2.Match({text.data(), text.size()}, 0, text.size(),
                                                   RE2::UNANCHORED, nullptr, 0);
}

}  // namespace quillory
