#include <zorby/conditions/OnlyWhenState.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/settings/Profile.h>

namespace zorby {
namespace {

std::string NameOfSubfield(int tag, char code) {
    const int option = GetZorbyProfileInt(ZP_DisplayNameOrMARC);
    std::string name;
    CMARCFormat::SubfieldName(static_cast<unsigned>(tag), code,
                              static_cast<EDISPLAYOPTIONS>(option), name);
    return name + " subfield";
}

std::string NameOfElement(EHOLDINGSID id) {
    const CInfoAboutHoldingsField* field = CInfoAboutHoldingsTypeList::FindFromID(id);
    return field ? field->GetName() : "unknown holdings field";
}

// `any` stands for a test that looks at anything.
std::string Subject(const COnlyWhenState& state, const OnlyWhenTest& test, const char* any) {
    if (test.anySubfield) return any;
    const bool isSubfield =
        state.parsedHoldingsID == EHOLDINGSID{} && test.holdingsID == EHOLDINGSID{};
    return isSubfield ? NameOfSubfield(state.parsedTag, test.subfield)
                      : NameOfElement(test.holdingsID);
}

std::string Predicate(const OnlyWhenTest& test) {
    const std::string quoted = "\"" + test.containsText + "\"";
    const std::string ending = quoted + (test.matchCase ? " while matching case" : "");
    switch (test.containType) {
        case CT_CONTAINS:
            return " contains " + ending;
        case CT_DOES_NOT_CONTAIN:
            return " does not contain " + ending;
        case CT_EMPTY_OR_MISSING:
            return " is empty or missing";
        case CT_NOT_EMPTY:
            return " is not empty";
    }
    return "";
}

std::string Conditions(const COnlyWhenState& state) {
    const char* const any = state.parsedTag == 0 ? "Any element" : "Any subfield";
    std::string text = Subject(state, state.first, any) + Predicate(state.first);
    if (!state.advanced) return text;
    return text + (state.bothConditions ? " AND " : " OR ") + Subject(state, state.second, "Any") +
           Predicate(state.second);
}

}  // namespace

void COnlyWhenState::MakeLongString(std::string& text, int withDelimiters, int showAlways,
                                    int withPrefix) const {
    text.clear();
    if (!onlyWhen && showAlways == 0) return;
    const std::string prefix = withPrefix != 0 ? "Only When: " : "";
    const std::string sentence = onlyWhen ? prefix + Conditions(*this) : "Always";
    text = withDelimiters != 0 ? openDelimiter_ + sentence + closeDelimiter_ : sentence;
}

}  // namespace zorby
