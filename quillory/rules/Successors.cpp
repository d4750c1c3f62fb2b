#include <quillory/rules/Successors.h>

#include <algorithm>
#include <array>

namespace quillory {
namespace {

struct FieldSuccessor {
    unsigned tag;
    std::string_view now;
};

constexpr auto kFields = std::to_array<FieldSuccessor>({
    {9, "007"},           {11, "760 to 787"},    {211, "246"},          {212, "246"},
    {214, "246"},         {261, "264 (or 260)"}, {262, "264 (or 260)"}, {265, "037"},
    {301, "300"},         {302, "300"},          {303, "300"},          {304, "300"},
    {305, "300"},         {308, "300"},          {315, "310"},          {350, "037 $c"},
    {359, "037 $c"},      {400, "490 and 800"},  {410, "490 and 810"},  {411, "490 and 811"},
    {440, "490 and 830"}, {503, "500"},          {512, "500"},          {705, "700"},
    {715, "710"},         {755, "655"},          {840, "830"},          {851, "852"},
});

struct SubfieldSuccessor {
    std::string_view tags;
    char code;
    std::string_view now;
};

constexpr auto kSubfields = std::to_array<SubfieldSuccessor>({
    {"020", 'b', "$q"},
    {"022", 'l', "field 023 $a"},
    {"022", 'm', "field 023 $z"},
    {"024", 'b', "$d"},
    {"111 411 511 611 711", 'b', "$n"},
    {"242 245 246 247", 'd', "$n"},
    {"242 245 246 247", 'e', "$p"},
    {"260", 'd', "field 028"},
    {"260", 'k', "field 028"},
    {"260", 'l', "field 028"},
    {"300", 'd', "$e"},
    {"300", 'm', "field 028"},
    {"300", 'n', "field 028"},
    {"500", 'l', "field 490 $l"},
    {"500", 'x', "field 490 $x"},
    {"500 515 520 525 530 546 547 550 580", 'z', "$a"},
});

}  // namespace

std::string_view SuccessorOfField(unsigned tag) {
    const auto* found = std::ranges::find(kFields, tag, &FieldSuccessor::tag);
    return found == kFields.end() ? std::string_view() : found->now;
}

std::string_view SuccessorOfSubfield(std::string_view tag, char code) {
    const auto* found = std::ranges::find_if(kSubfields, [=](const SubfieldSuccessor& row) {
        return row.code == code && row.tags.find(tag) != row.tags.npos;
    });
    return found == kSubfields.end() ? std::string_view() : found->now;
}

}  // namespace quillory
