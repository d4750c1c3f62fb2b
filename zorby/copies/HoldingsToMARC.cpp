#include <zorby/copies/HoldingsDataRecordList.h>
#include <zorby/copies/detail/CompositeToMARC.h>
#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/holdings/HoldingsTypeTable.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/record/Pmarc.h>

#include <string>

namespace zorby {
namespace {

const char* LabelOf(EHOLDINGSID id, char code) {
    const HoldingsTypeRow* row = FindHoldingsRow(id);
    const bool isLabelled = row && row->label.id == id && row->label.code == code;
    return isLabelled ? row->label.text : "";
}

// Writes one copy.
class CopyToMARC {
public:
    CopyToMARC(const CHoldingsDataRecord& copy, CPmarc& marc)
        : copy_(copy),
          marc_(marc),
          row_(HoldingsRowOf(copy.GetHoldingsType())),
          composite_(row_.composite) {}

    void Add(const CHoldingsDataElement& element) {
        const auto* info = CInfoAboutHoldingsTypeList::FindFromID(element.GetID());
        if (!info) return;
        Open(info->GetTag());
        if (!composite_.Take(*info, element.GetText())) AddPlain(element, *info);
    }

    void Add(const HoldingItemHold& hold) {
        if (composite_.Take(hold)) return;
        const auto tag = static_cast<unsigned>(hold.tag);
        if (tag != 0) Open(tag);
        for (const Field& field : {first_, second_}) {
            if (field.tag != tag) continue;
            marc_.FieldAddSubfield(tag, field.occurrence, hold.subfield, hold.text, 0);
            return;
        }
    }

    void Finish() {
        SetIndicators();
        if (composite_.IsEmpty()) return;
        marc_.FieldAddSubfield(first_.tag, first_.occurrence, composite_.Code(), composite_.Text(),
                               0);
    }

private:
    struct Field {
        unsigned tag = 0;
        int occurrence = 0;
    };

    // Makes a field for a new tag, unless both fields are made already.
    void Open(unsigned tag) {
        if (first_.tag == 0) {
            OpenAs(first_, tag);
        } else if (second_.tag == 0 && tag != first_.tag) {
            OpenAs(second_, tag);
        }
    }

    void OpenAs(Field& field, unsigned tag) {
        field.tag = tag;
        marc_.FieldNew(static_cast<int>(tag), field.occurrence);
    }

    void AddPlain(const CHoldingsDataElement& element, const CInfoAboutHoldingsField& info) {
        const char code = static_cast<char>(info.GetSubfield());
        const std::string text = LabelOf(element.GetID(), code) + element.GetText();
        const Field& field = info.GetTag() == first_.tag ? first_ : second_;
        if (IsSecondWithoutFirst(element.GetID())) {
            marc_.FieldAddSubfield(field.tag, field.occurrence, code, "",
                                   info.GetRepeatDelimiter());
        }
        marc_.FieldAddSubfield(field.tag, field.occurrence, code, text, info.GetRepeatDelimiter());
    }

    // Both elements of a pair have the same subfield code. If the first is missing, an empty
    // subfield must take its place.
    bool IsSecondWithoutFirst(EHOLDINGSID id) const {
        const HoldingsPair& pair = row_.pair;
        return pair.second != EHOLDINGSID{} && id == pair.second && !Has(pair.first);
    }

    bool Has(EHOLDINGSID id) const {
        for (int i = 0; i < copy_.GetSize(); ++i) {
            if (copy_.GetAt(i)->GetID() == id) return true;
        }
        return false;
    }

    // The system in force decides, whatever the system of the copy is.
    void SetIndicators() {
        const auto& inForce = HoldingsRowOf(CHoldingsSelector::GetCurrentHoldingsTypeID());
        if (!inForce.indicators) return;
        const std::string indicators = inForce.indicators();
        marc_.FieldSetIndicators(first_.tag, first_.occurrence, indicators[0], indicators[1]);
    }

    const CHoldingsDataRecord& copy_;
    CPmarc& marc_;
    const HoldingsTypeRow& row_;
    CompositeToMARC composite_;
    Field first_;
    Field second_;
};

}  // namespace

void CHoldingsDataRecord::AddToPseudoMARC(CPmarc& marc) const {
    CopyToMARC copy(*this, marc);
    for (const auto& element : elements_) copy.Add(*element);
    for (const HoldingItemHold& hold : holds_) copy.Add(hold);
    copy.Finish();
}

void CHoldingsDataRecordList::AddToPseudoMARC(CPmarc& marc) const {
    for (const auto& record : records_) {
        if (record) record->AddToPseudoMARC(marc);
    }
}

}  // namespace zorby
