#include <quillory/edits/OperationMakers.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/holdings/CopyFields.h>
#include <quillory/holdings/ElementMoves.h>
#include <quillory/holdings/HoldingsFields.h>

#include <algorithm>

namespace quillory {
namespace {

using zorby::CommFormatField;

// Where a field stands that was read from the record in hand and not changed since; the number of
// fields if there is none.
std::size_t IndexOf(EditedRecord& record, const CommFormatField& field) {
    std::size_t index = 0;
    while (index < record.Size() && record.ContentOf(index).data() != field.content.data()) {
        ++index;
    }
    return index;
}

// Writes a copy into the fields that it was read from, or into new ones; those that it no longer
// needs go.
void WriteCopy(EditedRecord& record, const std::vector<CopyField>& fields,
               const std::vector<CommFormatField>& origin) {
    for (const CopyField& field : fields) {
        const auto same = std::ranges::find(origin, field.tag, &CommFormatField::tag);
        if (same == origin.end()) {
            InsertField(record, field.tag, field.content);
        } else {
            record.SetContent(IndexOf(record, *same), field.content);
        }
    }
    for (const CommFormatField& field : origin) {
        const bool isNeeded = std::ranges::find(fields, field.tag, &CopyField::tag) != fields.end();
        if (!isNeeded) record.Remove(IndexOf(record, field));
    }
}

class MoveElements : public Operation {
public:
    MoveElements(HoldingsSystem system, ElementMoves moves)
        : system_(std::move(system)), moves_(std::move(moves)) {}

    void Run(EditedRecord& record, const FieldFilter& isMeant) const override {
        CopiesOfRecord taken;
        HoldingsFields(system_, system_).Take(record.InUtf8(), taken);
        for (std::size_t i = 0; i < taken.fields.size(); ++i) {
            const std::vector<CommFormatField>& origin = taken.fields[i];
            const auto isMeantHere = [&](const CommFormatField& field) {
                return !isMeant || isMeant(IndexOf(record, field));
            };
            if (!std::ranges::any_of(origin, isMeantHere)) continue;
            const auto outcome = moves_.Carry(*taken.copies.GetAt(static_cast<int>(i)));
            if (outcome.fault) throw EditRefused(*outcome.fault);
            if (outcome.copy) {
                WriteCopy(record, FieldsOfCopy(*outcome.copy, system_, origin), origin);
            }
        }
    }

private:
    HoldingsSystem system_;
    ElementMoves moves_;
};

HoldingsSystem SystemNamed(const Parameters& parameters, const EditTools& tools) {
    try {
        return tools.holdingsSystem(parameters.Text("system"));
    } catch (const UsageError& error) {
        throw ParameterError("system", error.What());
    }
}

std::vector<zorby::EHOLDINGSID> ElementsIn(const Parameters& parameters, std::string_view name,
                                           const HoldingsSystem& system) {
    try {
        return ElementsNamed(system, parameters.Text(name));
    } catch (const FaultError& error) {
        throw ParameterError(name, error.What());
    }
}

}  // namespace

MadeOperation MakeMoveElement(const Parameters& parameters, const EditTools& tools) {
    HoldingsSystem system = SystemNamed(parameters, tools);
    const auto from = ElementsIn(parameters, "elements", system);
    const auto into = ElementsIn(parameters, "into", system);
    if (from.size() != into.size()) {
        throw ParameterError("into", Fault{FaultCode::kElementsInPairs});
    }
    return std::make_unique<MoveElements>(system, ElementMoves(system, from, into));
}

}  // namespace quillory
