#include <zorby/conditions/OnlyWhenState.h>
#include <zorby/platform/detail/Decimal.h>

#include <type_traits>
#include <utility>

namespace zorby {
namespace {

constexpr std::size_t kTagLength = 3;
constexpr char kPathStart = '\\';

// Calls visit(key, field) for each stored field but the tag, in the order of the packed text.
template <class Test, class Visit>
void VisitTest(Test& test, const std::string& number, Visit& visit) {
    visit("AnySubfield" + number, test.anySubfield);
    visit("Subfield" + number, test.subfield);
    visit("HoldingsID" + number, test.holdingsID);
    visit("ContainType" + number, test.containType);
    visit("ContainsText" + number, test.containsText);
    visit("MatchCase" + number, test.matchCase);
}

template <class State, class Visit>
void VisitFields(State& state, Visit visit) {
    visit("OnlyWhen", state.onlyWhen);
    VisitTest(state.first, "1", visit);
    visit("Advanced", state.advanced);
    VisitTest(state.second, "2", visit);
    visit("BothConditions", state.bothConditions);
}

void FromNumber(int number, bool& flag) {
    flag = number == 1;
}

template <class Number>
void FromNumber(int number, Number& value) {
    value = static_cast<Number>(number);
}

void Load(const CKeysNValues& keys, std::string_view key, std::string& text) {
    keys.GetKey(key, text);
}

template <class Number>
void Load(const CKeysNValues& keys, std::string_view key, Number& value) {
    int number = 0;
    if (keys.GetKey(key, number) != 0) FromNumber(number, value);
}

int ToNumber(char code) {
    return static_cast<signed char>(code);
}

int ToNumber(std::int32_t number) {
    return number;
}

void Save(CKeysNValues& keys, std::string_view key, const std::string& text) {
    keys.SetKey(key, text);
}

template <class Number>
void Save(CKeysNValues& keys, std::string_view key, Number value) {
    keys.SetKey(key, ToNumber(value));
}

bool IsPathOfElement(std::string_view text) {
    return (text.size() == 7 || text.size() == 8) && text.find("HLD") != std::string_view::npos;
}

// The number of characters before the tag.
std::size_t TagStart(std::string_view text) {
    const bool isPath = text.size() == 5 || text.size() == 6;
    const bool isLongPath = text.size() > 6 && text.front() == kPathStart;
    return isPath || isLongPath ? 1 : 0;
}

}  // namespace

const CRuntimeClass COnlyWhenState::kRuntimeClass =
    RuntimeClassOf<COnlyWhenState>("COnlyWhenState");

void COnlyWhenState::SetDefaults() {
    COnlyWhenState defaults;
    defaults.first.containsText = std::move(first.containsText);
    defaults.second.containsText = std::move(second.containsText);
    defaults.tagText = std::move(tagText);
    defaults.extraText = std::move(extraText);
    defaults.keys = std::move(keys);
    *this = std::move(defaults);
}

void COnlyWhenState::SetDelimiters(std::string_view open, std::string_view close) {
    if (!open.empty()) openDelimiter_ = open;
    if (!close.empty()) closeDelimiter_ = close;
}

void COnlyWhenState::ParseTag() {
    parsedSubfield = 0;
    if (tagText.size() < kTagLength) return;
    const std::string_view text = tagText;
    if (IsPathOfElement(text)) {
        constexpr std::size_t kNumberStart = 4;
        parsedHoldingsID = static_cast<EHOLDINGSID>(DecimalInt(text.substr(kNumberStart, 3)));
        return;
    }
    const std::size_t start = TagStart(text);
    parsedTag = DecimalInt(text.substr(start, kTagLength));
    const std::string_view codes = text.substr(start + kTagLength);
    const bool isPathOfField = text.size() == 5 && codes.front() == kPathStart;
    if (!codes.empty() && !isPathOfField) parsedSubfield = codes.front();
}

void COnlyWhenState::InitializeOnlyWhenState(std::string tag, std::string_view text) {
    SetDefaults();
    tagText = std::move(tag);
    ParseTag();
    keys.Set(text, true);
    std::string storedTag;
    keys.GetKey("Tag", storedTag);
    if (!storedTag.empty()) {
        tagText = std::move(storedTag);
        ParseTag();
    }
    // A tag that ends in a backslash may have lost it to the next key.
    Load(keys, "\\OnlyWhen", onlyWhen);
    VisitFields(*this, [this](std::string_view key, auto& field) { Load(keys, key, field); });
}

void COnlyWhenState::SaveState(std::string& text) {
    keys.SetKey("Tag", tagText);
    VisitFields(*this, [this](std::string_view key, const auto& field) { Save(keys, key, field); });
    text = keys.Get();
}

bool COnlyWhenState::Combined(bool firstHolds, bool secondHolds) const {
    if (!onlyWhen) return true;
    if (!advanced) return firstHolds;
    return bothConditions ? firstHolds && secondHolds : firstHolds || secondHolds;
}

}  // namespace zorby
