#include <quillory/coded/Elements.h>
#include <quillory/coded/FreeValues.h>
#include <quillory/coded/Material.h>
#include <quillory/places/Tag.h>
#include <quillory/rules/ControlFields.h>
#include <quillory/rules/RuleFamilies.h>
#include <quillory/rules/StatesSeen.h>
#include <quillory/rules/Words.h>
#include <quillory/text/Ascii.h>

#include <algorithm>
#include <vector>

namespace quillory {
namespace {

using zorby::CFType;

constexpr std::size_t k008Size = 40;
constexpr int kFirstLanguage = 35;
constexpr int kFirstCountry = 15;
constexpr int kFirstFormOfMusic = 1;  // in 006
constexpr std::size_t kCodeSize = 3;

const Element* ElementAt(CFType form, int first) {
    const auto& elements = ElementsOf(form);
    const auto found = std::ranges::find(elements, first, &Element::first);
    return found == elements.end() ? nullptr : &*found;
}

// The place by which the codes of an element are listed; `material` is the letter of its form, if
// it belongs to one.
Place ListOf(Place place, char material) {
    place.occurrence = 0;
    place.material = material;
    return place;
}

// Of the form of 006 or 007 to which an element belongs; NUL where all have it.
char MaterialLetter(const Element& element) {
    const std::string_view letters = FormLetters(element.form);
    return letters.empty() ? '\0' : letters.front();
}

// The types of date whose second date is not before the first.
bool HasPeriod(char type) {
    constexpr std::string_view kPeriods = "cdikmqu";
    return kPeriods.find(type) != kPeriods.npos;
}

bool IsYear(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return '0' <= c && c <= '9'; });
}

void CheckDatesOf008(const CheckedField& field, RemarkSink& remarks) {
    CheckDayOfEntry(field, remarks);
    const std::string_view first = field.content.substr(7, 4);
    const std::string_view second = field.content.substr(11, 4);
    if (HasPeriod(field.content[6]) && IsYear(first) && IsYear(second) && second < first) {
        remarks.Add(RuleId::DatesInWrongOrder, field.GetPlace().Positions(7, 14),
                    "date 2 (" + std::string(second) + ')', "date 1 (" + std::string(first) + ')');
    }
}

}  // namespace

class CodedRules::Work {
public:
    explicit Work(const CodeLists& lists)
        : lists_(lists),
          language_(ElementAt(zorby::CF008Standard, kFirstLanguage)),
          country_(ElementAt(zorby::CF008Standard, kFirstCountry)),
          formOfMusic_(ElementAt(zorby::CF006MusicSound, kFirstFormOfMusic)) {}

    void Check(const RecordInHand& record, RemarkSink& remarks) {
        CheckElements(Place::OfLeader(), record.Leader(), zorby::CFLdr, 0, remarks);
        record.ForEachOf({kTag005, kTag006, kTag007, kTag008, 41, 44, 47},
                         [&](const CheckedField& field) { CheckField(record, field, remarks); });
    }

private:
    struct CheckedElement {
        const Element* element;
        std::size_t first;  // as the element has it
        std::size_t width;
        bool isLength;  // or an address
        ByteSet right;  // values of one byte that were found to be right
        StatesSeen seen;
    };

    std::vector<CheckedElement>& CheckedElementsOf(CFType form) {
        const auto number = static_cast<std::size_t>(form);
        if (number >= forms_.size()) forms_.resize(number + 1);
        std::vector<CheckedElement>& elements = forms_[number];
        if (elements.empty()) {
            elements.reserve(ElementsOf(form).size());
            for (const Element& element : ElementsOf(form)) {
                elements.push_back({.element = &element,
                                    .first = static_cast<std::size_t>(element.first),
                                    .width = static_cast<std::size_t>(element.Width()),
                                    .isLength = IsLength(element),
                                    .right = {},
                                    .seen = {}});
            }
        }
        return elements;
    }

    void CheckField(const RecordInHand& record, const CheckedField& field, RemarkSink& remarks) {
        switch (field.number) {
            case kTag005:
                return CheckTimeStamp(field, remarks);
            case kTag006:
                return CheckForm(field, MaterialOf006(field.content), zorby::CF006None, remarks);
            case kTag007:
                return CheckForm(field, CategoryOf007(field.content), zorby::CF007None, remarks);
            case kTag008:
                return Check008(record, field, remarks);
            case 41:
                return CheckLanguages(record, field, remarks);
            case 44:
                return CheckCountries(record, field, remarks);
            case 47:
                return CheckForms(record, field, remarks);
            default:
                return;
        }
    }

    void CheckForm(const CheckedField& field, CFType form, CFType none, RemarkSink& remarks) {
        if (form == none) {
            const Place place = field.GetPlace().Positions(0, 0);
            const std::string name =
                none == zorby::CF006None ? "Form of material: " : "Category of material: ";
            remarks.Add(RuleId::CodeUnknown, place,
                        name + Shown(field.content.substr(0, 1)) + " is no code", {},
                        ListOf(place, '\0'));
            return;
        }
        CheckLength(field, static_cast<std::size_t>(LengthOfForm(form)), remarks);
        if (IsFormOf007(form) && IsAll(field.content.substr(1), ' ')) {
            return AddBlank007(field, remarks);
        }
        CheckElements(field.GetPlace(), field.content, form, 0, remarks);
    }

    static void AddBlank007(const CheckedField& field, RemarkSink& remarks) {
        const int last = static_cast<int>(field.content.size()) - 1;
        remarks.Add(RuleId::CodeUnknown, field.GetPlace().Positions(1, last), [&field] {
            Place category = Place::OfField(field.number);
            category.material = field.content.front();
            return RemarkWords{"all positions are blank", "| says that nothing is coded", category};
        });
    }

    // The positions of an 008 of another length can't be trusted.
    void Check008(const RecordInHand& record, const CheckedField& field, RemarkSink& remarks) {
        if (field.occurrence > 1 || !CheckLength(field, k008Size, remarks)) return;
        CheckDatesOf008(field, remarks);
        CheckElements(field.GetPlace(), field.content, zorby::CF008Standard, 0, remarks);
        const CFType material = MaterialOfLeader(record.Leader());
        if (material == zorby::CF006None) return;
        CheckElements(field.GetPlace(), field.content, material, kMaterialOffset008, remarks);
    }

    // Positions of a form of 006 stand `offset` further on in 008. The day at the front of 008 is
    // no code.
    void CheckElements(const Place& field, std::string_view bytes, CFType form, int offset,
                       RemarkSink& remarks) {
        const bool isIn008 = offset > 0 || form == zorby::CF008Standard;
        for (CheckedElement& checked : CheckedElementsOf(form)) {
            if (isIn008 && checked.first == 0) continue;
            const std::size_t first = checked.first + static_cast<std::size_t>(offset);
            if (first + checked.width > bytes.size()) return;
            const bool isByte = checked.width == 1;
            if (isByte && checked.right.Has(bytes[first])) continue;
            const std::string_view value(bytes.data() + first, checked.width);
            const CodeState state = StateOf(checked, value);
            if (state != CodeState::Obsolete && state != CodeState::Unknown) {
                if (isByte) checked.right.Add(bytes[first]);
                continue;
            }
            const Element& element = *checked.element;
            const Place place = field.Positions(element.first + offset, element.last + offset);
            if (state == CodeState::Unknown) {
                AddUnknown(element, value, place, remarks);
            } else {
                remarks.Add(RuleId::CodeObsolete, place,
                            [&] { return WordsOfObsolete(element, value, place); });
            }
        }
    }

    void AddUnknown(const Element& element, std::string_view value, const Place& place,
                    RemarkSink& remarks) const {
        remarks.Add(element.IsUndefined() ? RuleId::PositionUndefined : RuleId::CodeUnknown, place,
                    [&] { return WordsOfUnknown(element, value, place); });
    }

    RemarkWords WordsOfUnknown(const Element& element, std::string_view value,
                               const Place& place) const {
        if (element.IsUndefined()) return {Shown(value)};
        const std::string name = element.name + ": ";
        const std::string_view form = FormOfFreeValue(element.parts.front());
        if (!form.empty()) {
            return {name + Shown(value) + " does not fit", "it is " + std::string(form)};
        }
        return {name + UnknownCode(element, value) + " is no code",
                {},
                ListOf(place, MaterialLetter(element))};
    }

    RemarkWords WordsOfObsolete(const Element& element, std::string_view value,
                                const Place& place) const {
        const std::string& former = lists_.FormerNameOf(element);
        const CodeMeaning meaning = ObsoleteCode(element, value);
        std::string found = (former.empty() ? element.name : former) + ": " + Shown(value);
        if (!meaning.until.empty()) found += " (until " + meaning.until + ")";
        std::string right;
        if (element.IsUndefined()) right = "blank goes there now";
        if (!meaning.use.empty()) right = SuccessorText(meaning.use);
        const Place codes = right.empty() ? ListOf(place, MaterialLetter(element)) : Place();
        return {std::move(found), std::move(right), codes};
    }

    // Of the codes in a value.
    CodeMeaning ObsoleteCode(const Element& element, std::string_view value) const {
        for (const std::string_view code : lists_.SplitCodes(element, value)) {
            CodeMeaning meaning = lists_.Find(element, code);
            if (meaning.state == CodeState::Obsolete) return meaning;
        }
        return {};
    }

    // The code that is unknown, and of several the value in which it stands: "\"q\" in \"abq\"".
    std::string UnknownCode(const Element& element, std::string_view value) const {
        for (const std::string_view code : lists_.SplitCodes(element, value)) {
            const bool isUnknown = lists_.StateOf(element, code) == CodeState::Unknown;
            if (!isUnknown || code.size() == value.size()) continue;
            return Shown(code) + " in " + Shown(value);
        }
        return Shown(value);
    }

    CodeState StateOf(CheckedElement& checked, std::string_view value) const {
        const Element& element = *checked.element;
        if (checked.isLength && AreDigits(value)) return CodeState::Known;
        if (value.size() > StatesSeen::kLongest) return LookUp(element, value);
        return checked.seen.Of(
            value, [this, &element](std::string_view unseen) { return LookUp(element, unseen); });
    }

    // Lengths and addresses are other digits in each record.
    static bool IsLength(const Element& element) {
        return !element.IsUndefined() && (element.parts.front() == zorby::CFPLdrRecordLength ||
                                          element.parts.front() == zorby::CFPLdrBaseAddress);
    }

    CodeState LookUp(const Element& element, std::string_view value) const {
        constexpr std::string_view kNothing = " |";
        if (element.IsUndefined() && value.find_first_not_of(kNothing) == value.npos) {
            return CodeState::Known;
        }
        if (IsAll(value, kFill)) return CodeState::NoAttempt;
        if (!element.IsUndefined()) {
            if (const auto free = ReadFreeValue(element.parts.front(), value)) {
                return free->fits ? CodeState::Known : CodeState::Unknown;
            }
        }
        CodeState worst = CodeState::Known;
        for (const std::string_view code : lists_.SplitCodes(element, value)) {
            const CodeState state = lists_.StateOf(element, code);
            if (state == CodeState::Unknown) return state;
            if (state == CodeState::Obsolete) worst = state;
        }
        return worst;
    }

    // Codes of other lists stand in fields whose second indicator is 7. Codes once stood without a
    // division: "engfre".
    void CheckLanguages(const RecordInHand& record, const CheckedField& field,
                        RemarkSink& remarks) {
        if (field.Indicator(2) != ' ') return;
        bool isFirst = field.occurrence == 1;
        for (const auto& [code, text] : record.SubfieldsOf(field)) {
            const bool isCode = 'a' <= code && code <= 'z';
            if (!isCode) continue;
            if (isFirst && code == 'a') CheckAgainst008(record, field, text, remarks);
            isFirst = isFirst && code != 'a';
            if (text.size() % kCodeSize != 0) {
                AddLanguage(field, code, text, remarks);
                continue;
            }
            for (std::size_t at = 0; at < text.size(); at += kCodeSize) {
                AddLanguage(field, code, text.substr(at, kCodeSize), remarks);
            }
        }
    }

    void AddLanguage(const CheckedField& field, char subfield, std::string_view code,
                     RemarkSink& remarks) {
        AddListed(*language_, languages_, field.GetPlace().Subfield(subfield), code, code,
                  {RuleId::LanguageUnknown, RuleId::LanguageObsolete}, remarks);
    }

    static void CheckAgainst008(const RecordInHand& record, const CheckedField& field,
                                std::string_view text, RemarkSink& remarks) {
        const CheckedField* fixed = record.Whole008();
        if (fixed == nullptr) return;
        const std::string_view language = fixed->content.substr(kFirstLanguage, kCodeSize);
        const bool saysNothing = IsAll(language, ' ') || IsAll(language, kFill);
        if (saysNothing || text.substr(0, kCodeSize) == language) return;
        remarks.Add(RuleId::LanguageAgainst008, field.GetPlace().Subfield('a'),
                    Shown(text.substr(0, kCodeSize)), Shown(language));
    }

    void CheckCountries(const RecordInHand& record, const CheckedField& field,
                        RemarkSink& remarks) {
        for (const auto& [code, text] : record.SubfieldsOf(field)) {
            if (code != 'a') continue;
            std::string padded(text);
            if (padded.size() < kCodeSize) padded.resize(kCodeSize, ' ');
            AddListed(*country_, countries_, field.GetPlace().Subfield('a'), text, padded,
                      {RuleId::CountryUnknown, RuleId::CountryObsolete}, remarks);
        }
    }

    // Codes of other lists stand in fields whose second indicator is 7.
    void CheckForms(const RecordInHand& record, const CheckedField& field, RemarkSink& remarks) {
        if (field.Indicator(2) == '7') return;
        for (const auto& [code, text] : record.SubfieldsOf(field)) {
            if (code != 'a' || lists_.StateOf(*formOfMusic_, text) != CodeState::Unknown) continue;
            remarks.Add(RuleId::MusicCodeUnknown, field.GetPlace().Subfield('a'), Shown(text));
        }
    }

    struct ListRules {
        RuleId unknown;
        RuleId obsolete;
    };

    void AddListed(const Element& element, StatesSeen& seen, const Place& place,
                   std::string_view given, std::string_view code, ListRules rules,
                   RemarkSink& remarks) {
        const auto lookUp = [this, &element](std::string_view unseen) {
            return lists_.StateOf(element, unseen);
        };
        const CodeState state = code.size() == kCodeSize ? seen.Of(code, lookUp) : lookUp(code);
        if (state == CodeState::Unknown || IsAll(code, kFill)) {
            remarks.Add(rules.unknown, place, Shown(given));
        } else if (state == CodeState::Obsolete) {
            const std::string use = lists_.Find(element, code).use;
            const Place codes = use.empty() ? ListOf(PlaceOf(element, false), '\0') : Place();
            remarks.Add(rules.obsolete, place, Shown(given),
                        use.empty() ? std::string() : SuccessorText(use), codes);
        }
    }

    const CodeLists& lists_;
    const Element* language_;
    const Element* country_;
    const Element* formOfMusic_;
    StatesSeen languages_;                            // in 041
    StatesSeen countries_;                            // in 044
    std::vector<std::vector<CheckedElement>> forms_;  // by the number of the form
};

CodedRules::CodedRules(const CodeLists& lists) : work_(std::make_unique<Work>(lists)) {}

CodedRules::~CodedRules() = default;

void CodedRules::Check(const RecordInHand& record, RemarkSink& remarks) {
    work_->Check(record, remarks);
}

}  // namespace quillory
