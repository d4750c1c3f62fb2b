#include <quillory/faults/FaultCode.h>
#include <quillory/queries/ConditionText.h>
#include <quillory/queries/Token.h>
#include <zorby/conditions/OnlyWhenState.h>

#include <utility>

namespace quillory {
namespace {

using zorby::COnlyWhenState;
using zorby::OnlyWhenTest;

QueryReading Refused(std::string_view text, const char* why) {
    QueryReading reading;
    reading.fault = {{FaultCode::kConditionText}, 0, text.size()};
    reading.fault.found = why;
    return reading;
}

PlaceSet PlacesOf(const COnlyWhenState& state, const OnlyWhenTest& test) {
    if (state.parsedTag == 0) return ParsePlaceSet("XXX").places;
    Place place = Place::OfField(static_cast<unsigned>(state.parsedTag));
    if (!test.anySubfield && !place.IsControl()) place = place.Subfield(test.subfield);
    PlaceSet places;
    places.patterns.push_back({place});
    return places;
}

QueryNodePtr NodeOf(const COnlyWhenState& state, const OnlyWhenTest& test) {
    const bool isOnText =
        test.containType != zorby::CT_EMPTY_OR_MISSING && test.containType != zorby::CT_NOT_EMPTY;
    const bool isHeld =
        test.containType == zorby::CT_CONTAINS || test.containType == zorby::CT_NOT_EMPTY;
    TextTest ofText = isOnText ? TextTest(kTextLike, test.containsText, test.matchCase)
                               : TextTest(kTextMatches, "[^ ]", false);
    auto node = std::make_unique<TextNode>(PlacesOf(state, test), std::move(ofText));
    if (isHeld) return node;
    return std::make_unique<NotNode>(std::move(node));
}

QueryNodePtr RootOf(const COnlyWhenState& state) {
    std::vector<QueryNodePtr> parts;
    if (state.onlyWhen) parts.push_back(NodeOf(state, state.first));
    if (state.onlyWhen && state.advanced) parts.push_back(NodeOf(state, state.second));
    const bool all = state.bothConditions || parts.size() < 2;
    return std::make_unique<JoinedNode>(all, std::move(parts));
}

// Reads an expression of one or two tests.
class TestReader {
public:
    explicit TestReader(std::string_view expression)
        : expression_(expression), next_(TokenAt(expression, 0)) {}

    bool Read(COnlyWhenState& state) {
        if (!ReadTest(state.first)) return false;
        state.onlyWhen = true;
        state.tagText = tag_;
        state.advanced = next_.kind != kTokenEnd;
        if (!state.advanced) return true;
        state.bothConditions = next_.IsWord("and");
        if (!state.bothConditions && !next_.IsWord("or")) return false;
        Take();
        return ReadTest(state.second) && next_.kind == kTokenEnd;
    }

private:
    Token Take() {
        const Token token = next_;
        next_ = TokenAt(expression_, token.End());
        return token;
    }

    bool TakeWord(std::string_view word) {
        if (!next_.IsWord(word)) return false;
        Take();
        return true;
    }

    // Both tests are of one field.
    bool ReadPlace(OnlyWhenTest& test) {
        const auto place = ParsePlace(Take().bytes);
        if (!place || place->IsLeader() || place->occurrence != 0 || place->indicator != 0 ||
            place->HasPositions() || place->material != '\0') {
            return false;
        }
        if (!tag_.empty() && tag_ != place->Tag()) return false;
        tag_ = place->Tag();
        test.anySubfield = place->code == '\0';
        test.subfield = place->code;
        return true;
    }

    bool ReadTest(OnlyWhenTest& test) {
        const bool negated = TakeWord("not");
        if (TakeWord("has")) {
            test.containType = negated ? zorby::CT_EMPTY_OR_MISSING : zorby::CT_NOT_EMPTY;
            return ReadPlace(test);
        }
        test.containType = negated ? zorby::CT_DOES_NOT_CONTAIN : zorby::CT_CONTAINS;
        if (!ReadPlace(test)) return false;
        const bool isLike = next_.IsWord("like");
        if (!isLike && !next_.IsWord("contains")) return false;
        Take();
        if (next_.kind != kTokenText && next_.kind != kTokenWord) return false;
        const std::string text = Take().Text();
        test.containsText = isLike ? text : Literal(text);
        return !text.empty() && test.containsText.find(R"(\\)") == text.npos;
    }

    // The wildcards of the text stand for themselves.
    static std::string Literal(const std::string& text) {
        std::string literal;
        for (const char c : text) {
            if (c == '*' || c == '?') literal += '\\';
            literal += c;
        }
        return literal;
    }

    std::string_view expression_;
    Token next_;
    std::string tag_;
};

}  // namespace

QueryReading ParseCondition(std::string_view text, const QueryOptions& options) {
    if (FindInvalidUtf8(text) != text.npos) return Refused(text, "the condition is not in UTF-8");
    if (text.find("OnlyWhen=") == text.npos) {
        return Refused(text, "no condition: it lacks OnlyWhen=0 or OnlyWhen=1");
    }
    COnlyWhenState state;
    state.InitializeOnlyWhenState({}, text);
    const auto isOfCopies = [](const OnlyWhenTest& test) {
        return !test.anySubfield && test.holdingsID != 0;
    };
    if (state.parsedHoldingsID != 0 || isOfCopies(state.first) ||
        (state.advanced && isOfCopies(state.second))) {
        return Refused(text, "the condition is on elements of copies, not on fields of records");
    }
    if (state.parsedTag < 0 || state.parsedTag >= static_cast<int>(kTags)) {
        return Refused(text, "the condition's Tag is not that of a field");
    }
    return {Query(RootOf(state), options.charset), {}};
}

std::optional<std::string> ConditionTextOf(std::string_view expression, bool exact) {
    if (!ParseQuery(expression).query) return std::nullopt;
    COnlyWhenState state;
    state.first.matchCase = state.second.matchCase = exact;
    if (!TestReader(expression).Read(state)) return std::nullopt;
    std::string text;
    state.SaveState(text);
    return text;
}

}  // namespace quillory
