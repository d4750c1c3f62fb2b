#include <zorby/copies/HoldingsDataRecordList.h>
#include <zorby/copies/HoldingsDelimiters.h>
#include <zorby/copies/detail/CompositesToMARC.h>
#include <zorby/copies/detail/HoldingsIDRoles.h>
#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/record/Pmarc.h>

#include <algorithm>
#include <string>

namespace zorby {
namespace {

constexpr char kSubfieldX = 'x';
constexpr char kSubfield1 = '1';

// A value of these that goes to $x by itself says what it is.
constexpr EHOLDINGSID kFunds[] = {HID_FOLLETT_UNISON_FUND, HID_FOLLETT_FUND};

bool KeepsPairs(EHOLDINGSTYPE type, EHOLDINGSID first) {
    return first == HID_TYPE_5_ITEM_1 ? type == HT_TYPE_5
                                      : type == HT_TYPE_12 || type == HT_TYPE_15;
}

// Writes one copy.
class CopyToMARC {
public:
    CopyToMARC(const CHoldingsDataRecord& copy, CPmarc& marc)
        : copy_(copy), marc_(marc), composites_(copy.GetHoldingsType()) {}

    void Add(const CHoldingsDataElement& element) {
        const auto* info = CInfoAboutHoldingsTypeList::FindFromID(element.GetID());
        if (!info) return;
        Open(info->GetTag());
        if (!composites_.Take(*info, element.GetText())) AddPlain(element, *info);
    }

    void Add(const HoldingItemHold& hold) {
        if (composites_.Take(hold)) return;
        const auto tag = static_cast<unsigned>(hold.tag);
        if (tag != 0) Open(tag);
        for (const Field& field : {first_, second_}) {
            if (field.tag != tag) continue;
            marc_.FieldAddSubfield(tag, field.occurrence, hold.subfield, hold.text, 0);
            return;
        }
    }

    void Finish() {
        if (CHoldingsSelector::GetCurrentHoldingsTypeID() == HT_DYNIX) {
            const std::string indicators = CHoldingsSelector::GetDynixIndicators();
            marc_.FieldSetIndicators(first_.tag, first_.occurrence, indicators[0], indicators[1]);
        }
        AddComposite(kSubfieldX, composites_.SubfieldX());
        AddComposite(kSubfield1, composites_.Subfield1());
    }

private:
    struct Field {
        unsigned tag = 0;
        int occurrence = 0;
    };

    // Makes a field for a tag that has none, as long as there is one to be had.
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
        std::string text = element.GetText();
        if (code == kSubfieldX && std::ranges::count(kFunds, info.GetHoldingsID()) != 0) {
            text.insert(0, kpHoldingsFundLabel);
        }
        const Field& field = info.GetTag() == first_.tag ? first_ : second_;
        if (IsSecondWithoutFirst(element.GetID())) {
            marc_.FieldAddSubfield(field.tag, field.occurrence, code, "",
                                   info.GetRepeatDelimiter());
        }
        marc_.FieldAddSubfield(field.tag, field.occurrence, code, text, info.GetRepeatDelimiter());
    }

    // The two of a pair share a subfield code, so the second needs something before it.
    bool IsSecondWithoutFirst(EHOLDINGSID id) const {
        return std::ranges::any_of(kRepeatedPairs, [=, this](const auto& pair) {
            const auto& [first, second] = pair;
            return id == second && KeepsPairs(copy_.GetHoldingsType(), first) && !Has(first);
        });
    }

    bool Has(EHOLDINGSID id) const {
        for (int i = 0; i < copy_.GetSize(); ++i) {
            if (copy_.GetAt(i)->GetID() == id) return true;
        }
        return false;
    }

    void AddComposite(char code, const std::string& text) {
        if (!text.empty()) marc_.FieldAddSubfield(first_.tag, first_.occurrence, code, text, 0);
    }

    const CHoldingsDataRecord& copy_;
    CPmarc& marc_;
    CompositesToMARC composites_;
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
