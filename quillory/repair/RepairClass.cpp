#include <quillory/repair/RepairClass.h>

#include <algorithm>

namespace quillory {

const std::array<RepairClassRow, 12>& RepairClasses() {
    static constexpr std::array<RepairClassRow, 12> kRows{{
        {RepairClass::Case, "case", "a code in capitals is written in small letters"},
        {RepairClass::NationalCode, "national-code",
         "a code of ISO 639-2/T or ISO 3166 becomes that of MARC"},
        {RepairClass::FromRecord, "from-record", "another field of the record gives the code"},
        {RepairClass::ObsoleteForm, "obsolete-form",
         "a date or number is written as the format has it now: 19-- becomes 19uu"},
        {RepairClass::NotCoded, "not-coded",
         "a blank, hyphen or question mark that is no code there becomes \"not coded\""},
        {RepairClass::UnknownValue, "unknown-value",
         "a code that the format never had becomes \"not coded\""},
        {RepairClass::Undefined, "undefined", "a byte where the format has none becomes a blank"},
        {RepairClass::Structure, "structure", "the Leader has the constants of the format"},
        {RepairClass::CharacterSet, "character-set", "leader/09 names what the record is in"},
        {RepairClass::Length, "length", "a field has the length of its format"},
        {RepairClass::Repeated, "repeated", "a record has more than one 008"},
        {RepairClass::Library, "library", "the library's own default, with --strict"},
    }};
    return kRows;
}

std::string_view NameOf(RepairClass repairClass) {
    return RepairClasses().at(static_cast<std::size_t>(repairClass)).name;
}

bool RepairSelection::Has(RepairClass repairClass) const {
    const auto isIn = [repairClass](const std::vector<RepairClass>& classes) {
        return std::ranges::find(classes, repairClass) != classes.end();
    };
    return (only.empty() || isIn(only)) && !isIn(skip);
}

}  // namespace quillory
