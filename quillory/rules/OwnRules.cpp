#include <quillory/rules/OwnRules.h>
#include <quillory/text/Visible.h>

#include <set>
#include <utility>

namespace quillory {
namespace {

constexpr std::string_view kFoundSlot = "{found}";

// The message as it stands in lists.
std::string TitleOf(std::string message) {
    const std::size_t at = message.find(kFoundSlot);
    return at == message.npos ? message : message.replace(at, kFoundSlot.size(), "...");
}

Rule RuleFor(const OwnRule& own, const std::string& title, std::size_t index) {
    return {static_cast<RuleId>(kRules + index),
            own.name,
            own.severity,
            title,
            own.message,
            own.why,
            own.example,
            own.source};
}

// Whether a field or subfield belongs to what a rule is about.
bool IsPartOf(const Place& hit, const std::optional<Place>& place) {
    if (!place) return true;
    const bool isInField = hit.Tag() == place->Tag() &&
                           (place->occurrence == 0 || hit.occurrence == place->occurrence);
    return isInField && (place->code == '\0' || hit.code == '\0' || hit.code == place->code);
}

}  // namespace

OwnRules::OwnRules(std::vector<OwnRule> rules) : rules_(std::move(rules)) {
    list_.reserve(rules_.size());
    titles_.reserve(rules_.size());
    for (const OwnRule& rule : rules_) {
        const std::string& title = titles_.emplace_back(TitleOf(rule.message));
        list_.push_back(RuleFor(rule, title, list_.size()));
    }
}

void OwnRules::Check(const Record& record, RemarkSink& remarks) {
    for (std::size_t i = 0; i < rules_.size(); ++i) {
        if (!remarks.Wants(list_[i].id) || !rules_[i].where.Matches(record)) continue;
        Tell(rules_[i], list_[i], record, remarks);
    }
}

void OwnRules::Tell(OwnRule& own, const Rule& rule, const Record& record, RemarkSink& remarks) {
    std::set<std::string> told;
    for (const QueryHit& hit : own.where.HitsIn(record)) {
        if (!IsPartOf(hit.place, own.place) || !told.insert(PlaceText(hit.place)).second) continue;
        remarks.Add(rule, hit.place, Visible(hit.text));
    }
    if (told.empty()) remarks.Add(rule, own.place.value_or(Place::OfRecord()), {});
}

}  // namespace quillory
