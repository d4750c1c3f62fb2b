#include <zorby/charset/Compare.h>
#include <zorby/conditions/OnlyWhenState.h>
#include <zorby/copies/HoldingsDataRecord.h>
#include <zorby/text/General.h>

#include <algorithm>

namespace zorby {
namespace {

std::string Lowered(std::string_view text) {
    std::string lowered(text);
    CSMakeLower(lowered);
    return lowered;
}

bool Contains(std::string_view text, std::string_view pattern) {
    constexpr int kWholeWords = 0;
    constexpr int kUseWildcards = 1;
    int position = 0;
    int start = 0;
    int end = 0;
    return CGeneral::FindWild(text, pattern, kWholeWords, position, start, end, kUseWildcards) != 0;
}

}  // namespace

int CHoldingsDataElement::OnlyWhenElementMeetsCondition(EHOLDINGSID id, int matchCase,
                                                        std::string_view text,
                                                        CONTAIN_TYPE type) const {
    if (id != id_) return 0;
    if (type == CT_EMPTY_OR_MISSING) return text_.empty() ? 1 : 0;
    if (type == CT_NOT_EMPTY) return text_.empty() ? 0 : 1;
    const bool contains =
        matchCase != 0 ? Contains(text_, text) : Contains(Lowered(text_), Lowered(text));
    return contains == (type == CT_CONTAINS) ? 1 : 0;
}

CHoldingsDataElement* CHoldingsDataElement::OnlyWhenElement(const COnlyWhenState& state,
                                                            int requireText) {
    if (requireText != 0 && text_.empty()) return nullptr;
    if (!state.onlyWhen) return state.parsedHoldingsID == id_ ? this : nullptr;
    const auto meets = [this](const OnlyWhenTest& test) {
        return OnlyWhenElementMeetsCondition(test.holdingsID, test.matchCase, test.containsText,
                                             test.containType) != 0;
    };
    return state.Combined(meets(state.first), meets(state.second)) ? this : nullptr;
}

CHoldingsDataRecord* CHoldingsDataRecord::OnlyWhenRecord(const COnlyWhenState& state) {
    const auto meets = [this](const OnlyWhenTest& test) {
        return OnlyWhenRecordMeetsCondition(test.anySubfield, test.matchCase, test.containsText,
                                            test.containType, test.holdingsID) != 0;
    };
    return state.Combined(meets(state.first), meets(state.second)) ? this : nullptr;
}

int CHoldingsDataRecord::OnlyWhenRecordMeetsCondition(int anySubfield, int matchCase,
                                                      std::string_view text, CONTAIN_TYPE type,
                                                      EHOLDINGSID id) const {
    switch (type) {
        case CT_CONTAINS:
            return OnlyWhenRecordMeetsCondition_Contains(anySubfield, matchCase, text, id);
        case CT_DOES_NOT_CONTAIN:
            return OnlyWhenRecordMeetsCondition_DoesNotContain(anySubfield, matchCase, text, id);
        case CT_EMPTY_OR_MISSING:
            return OnlyWhenRecordMeetsCondition_EmptyOrMissing(anySubfield, id);
        case CT_NOT_EMPTY:
            return OnlyWhenRecordMeetsCondition_NotEmpty(anySubfield, id);
    }
    return 0;
}

int CHoldingsDataRecord::OnlyWhenRecordMeetsCondition_Contains(int anySubfield, int matchCase,
                                                               std::string_view text,
                                                               EHOLDINGSID id) const {
    const auto contains = [&](const auto& element) {
        const EHOLDINGSID tested = anySubfield != 0 ? element->GetID() : id;
        return element->OnlyWhenElementMeetsCondition(tested, matchCase, text, CT_CONTAINS) != 0;
    };
    return std::ranges::any_of(elements_, contains) ? 1 : 0;
}

int CHoldingsDataRecord::OnlyWhenRecordMeetsCondition_DoesNotContain(int anySubfield, int matchCase,
                                                                     std::string_view text,
                                                                     EHOLDINGSID id) const {
    return 1 - OnlyWhenRecordMeetsCondition_Contains(anySubfield, matchCase, text, id);
}

int CHoldingsDataRecord::OnlyWhenRecordMeetsCondition_EmptyOrMissing(int anySubfield,
                                                                     EHOLDINGSID id) const {
    return 1 - OnlyWhenRecordMeetsCondition_NotEmpty(anySubfield, id);
}

int CHoldingsDataRecord::OnlyWhenRecordMeetsCondition_NotEmpty(int anySubfield,
                                                               EHOLDINGSID id) const {
    const auto hasText = [&](const auto& element) {
        return (anySubfield != 0 || element->GetID() == id) && !element->GetText().empty();
    };
    return std::ranges::any_of(elements_, hasText) ? 1 : 0;
}

}  // namespace zorby
