#include <quillory/coded/CodeLists.h>
#include <quillory/coded/FreeValues.h>
#include <quillory/rules/ControlFields.h>
#include <quillory/rules/Dates.h>
#include <quillory/rules/Words.h>

namespace quillory {

void CheckTimeStamp(const CheckedField& field, RemarkSink& remarks) {
    const bool isEmpty = IsAll(field.content, ' ') || field.content.empty();
    if (isEmpty || IsTimeStamp(field.content)) return;
    remarks.Add(RuleId::DateMalformed, field.GetPlace(), Shown(field.content),
                "time of the form yyyymmddhhmmss.f");
}

void CheckDayOfEntry(const CheckedField& field, RemarkSink& remarks) {
    const std::string_view entered = field.content.substr(0, 6);
    if (IsDayEntered(entered)) return;
    remarks.Add(RuleId::DateMalformed, field.GetPlace().Positions(0, 5), Shown(entered),
                "day of the form yymmdd");
}

bool CheckLength(const CheckedField& field, std::size_t size, RemarkSink& remarks) {
    if (field.content.size() == size) return true;
    remarks.Add(RuleId::FieldLength, field.GetPlace(), [&] {
        return RemarkWords{std::to_string(field.content.size()), std::to_string(size)};
    });
    return false;
}

}  // namespace quillory
