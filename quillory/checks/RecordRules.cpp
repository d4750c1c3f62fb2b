#include <quillory/checks/ControlFieldChecks.h>
#include <quillory/checks/RecordRules.h>

namespace quillory {
namespace {

using namespace zorby;
using Facts = const RecordFacts&;
using enum BrokenAt;

// To add a rule, add its row here. Its words are those of its code (zorby::CRecordError).
constexpr RecordRule kRules[] = {
    {EC_NoTitle, "245", 'a', Nowhere, [](Facts facts) { return facts.title.empty(); }},
    {EC_NoPlaceOfPublication, "260", 'a', Nowhere,
     [](Facts facts) { return !facts.publication.a; }},
    {EC_NoPublisher, "260", 'b', Nowhere, [](Facts facts) { return !facts.publication.b; }},
    {EC_NoDateOfPublication, "260", 'c', Nowhere, [](Facts facts) { return !facts.publication.c; }},
    {EC_NoExtent, "300", 'a', Nowhere, [](Facts facts) { return !facts.extent.a; }},
    {EC_NoOtherPhysicalDetails, "300", 'b', Nowhere, [](Facts facts) { return !facts.extent.b; }},
    {EC_NoDimensions, "300", 'c', Nowhere, [](Facts facts) { return !facts.extent.c; }},
    {EC_NoNotes, "500", '\0', Nowhere, [](Facts facts) { return !facts.hasNote; }},
    {EC_NoSubjects, "600", '\0', Nowhere, [](Facts facts) { return !facts.hasSubject; }},
    {EC_UnknownDate, "008", '\0', Field, [](Facts facts) { return IsDateUnknown(facts.field008); }},
    {EC_UnknownRunningTime, "008", '\0', Field,
     [](Facts facts) { return IsRunningTimeUnknown(facts.leader, facts.field008); }},
    {EC_UnknownPlace, "008", '\0', Field,
     [](Facts facts) { return IsPlaceUnknown(facts.field008); }},
    {EC_NoHoldings, "852", '\0', Nowhere, [](Facts facts) { return !facts.hasHoldings; }},
};

}  // namespace

std::span<const RecordRule> RecordRules() {
    return kRules;
}

}  // namespace quillory
