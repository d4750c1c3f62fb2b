#include <quillory/faults/FaultCode.h>
#include <quillory/queries/QueryParser.h>
#include <quillory/text/NearestNames.h>

#include <charconv>
#include <iterator>

namespace quillory {
namespace {

// Brackets in brackets, deeper than any person writes them.
constexpr std::size_t kDeepest = 200;

constexpr std::string_view kTest =
    "a place such as 245a, \"has\", \"count\", \"material\", \"valid\", \"not\" or (";
constexpr std::string_view kPlace = "a place, such as 245a, 650[2], 6XX, 600-699 or 008/35-37";
constexpr std::string_view kOperator =
    "one of: =, !=, <, <=, >, >=, contains, starts, ends, like, matches";
constexpr std::string_view kText = "a text, best in quotation marks";
constexpr std::string_view kJoin = "\"and\", \"or\" or the end";
constexpr std::string_view kJoinOrBracket = "\"and\", \"or\" or )";

struct NumberSign {
    std::string_view sign;
    NumberOperator op;
};
constexpr NumberSign kNumberSigns[] = {
    {"=", kNumberEqual},        {"!=", kNumberNotEqual}, {"<", kNumberLess},
    {"<=", kNumberLessOrEqual}, {">", kNumberGreater},   {">=", kNumberGreaterOrEqual},
};

const NumberSign* NumberSignOf(const Token& token) {
    for (const NumberSign& known : kNumberSigns) {
        if (token.IsSign(known.sign)) return &known;
    }
    return nullptr;
}

struct TextWord {
    std::string_view word;
    TextOperator op;
};
constexpr TextWord kTextWords[] = {
    {"contains", kTextContains}, {"starts", kTextStarts},   {"ends", kTextEnds},
    {"like", kTextLike},         {"matches", kTextMatches},
};

const TextWord* TextWordOf(const Token& token) {
    for (const TextWord& known : kTextWords) {
        if (token.IsWord(known.word)) return &known;
    }
    return nullptr;
}

bool IsJoiningWord(const Token& token) {
    return token.IsWord("and") || token.IsWord("or") || token.IsWord("not");
}

QueryNodePtr Negated(bool negated, QueryNodePtr node) {
    if (!negated || !node) return node;
    return std::make_unique<NotNode>(std::move(node));
}

std::string FoundText(const Token& token) {
    if (token.kind == kTokenEnd) return "the end";
    if (token.kind == kTokenSign || token.kind == kTokenText) return std::string(token.bytes);
    return "\"" + std::string(token.bytes) + "\"";
}

std::string ListOf(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names) list += (list.empty() ? "" : ", ") + name;
    return list;
}

std::string MaterialsNear(const std::string& name) {
    const auto nearest = NearestNames(name, MaterialNode::Names());
    if (!nearest.empty()) return "did you mean " + ListOf(nearest) + "?";
    return "the materials are " + ListOf(MaterialNode::Names());
}

}  // namespace

Token QueryParser::Take() {
    const Token token = next_;
    next_ = TokenAt(expression_, token.End());
    return token;
}

bool QueryParser::TakeSign(std::string_view sign) {
    if (!next_.IsSign(sign)) return false;
    Take();
    return true;
}

bool QueryParser::TakeWord(std::string_view word) {
    if (!next_.IsWord(word)) return false;
    Take();
    return true;
}

bool QueryParser::Fail(TextFault fault) {
    if (!fault_) fault_ = std::move(fault);
    return false;
}

std::nullptr_t QueryParser::FailAt(const Token& token, FaultCode code, std::string found,
                                   std::string allowed) {
    TextFault fault{{code}, token.offset, token.bytes.size()};
    fault.found = std::move(found);
    fault.allowed = std::move(allowed);
    Fail(std::move(fault));
    return nullptr;
}

std::nullptr_t QueryParser::Expected(std::string_view what) {
    if (next_.kind == kTokenUnclosed) {
        return FailAt(next_, FaultCode::kQueryTextNotClosed, std::string(next_.bytes.substr(0, 1)));
    }
    return FailAt(next_, FaultCode::kQueryExpected, FoundText(next_), std::string(what));
}

// A word without a place is what a search box takes.
std::nullptr_t QueryParser::ExpectedTest() {
    const Token after = TokenAt(expression_, next_.End());
    const bool isWord =
        next_.kind == kTokenText || (next_.kind == kTokenWord && !IsJoiningWord(next_));
    const bool isCompared = NumberSignOf(after) != nullptr || TextWordOf(after) != nullptr;
    if (!isWord || isCompared) return Expected(kTest);
    return FailAt(next_, FaultCode::kQueryWordAlone, FoundText(next_), std::string(kTest));
}

QueryNodePtr QueryParser::ParseJoined(bool all, QueryNodePtr (QueryParser::*parsePart)()) {
    std::vector<QueryNodePtr> parts;
    do {
        QueryNodePtr part = (this->*parsePart)();
        if (!part) return nullptr;
        parts.push_back(std::move(part));
    } while (TakeWord(all ? "and" : "or"));
    if (parts.size() == 1) return std::move(parts.front());
    return std::make_unique<JoinedNode>(all, std::move(parts));
}

QueryNodePtr QueryParser::ParseExpression() {
    return ParseJoined(false, &QueryParser::ParseConjunction);
}

QueryNodePtr QueryParser::ParseConjunction() {
    return ParseJoined(true, &QueryParser::ParseNegation);
}

QueryNodePtr QueryParser::ParseNegation() {
    bool negated = false;
    while (TakeWord("not")) negated = !negated;
    return Negated(negated, ParsePrimary());
}

QueryNodePtr QueryParser::ParsePrimary() {
    if (next_.IsSign("(")) return ParseBracket();
    if (TakeWord("has")) return ParseHas();
    if (TakeWord("count")) return ParseCount();
    if (TakeWord("material")) return ParseMaterial();
    if (TakeWord("valid")) return ParseValid();
    if (BeginsPlace(next_)) return ParseComparison();
    return ExpectedTest();
}

QueryNodePtr QueryParser::ParseBracket() {
    const Token bracket = Take();
    if (depth_ == kDeepest) {
        return FailAt(bracket, FaultCode::kQueryTooDeep, {}, std::to_string(kDeepest));
    }
    ++depth_;
    QueryNodePtr inner = ParseExpression();
    --depth_;
    if (!inner) return nullptr;
    if (!TakeSign(")")) return Expected(kJoinOrBracket);
    return inner;
}

QueryNodePtr QueryParser::ParseHas() {
    PlaceSet places;
    if (!ParsePlaces(places)) return nullptr;
    return std::make_unique<HasNode>(std::move(places));
}

QueryNodePtr QueryParser::ParseCount() {
    PlaceSet places;
    if (!TakeSign("(")) return Expected("( and a place, as in count(650) > 3");
    if (!ParsePlaces(places)) return nullptr;
    if (!TakeSign(")")) return Expected("a further place, or )");
    const NumberSign* sign = NumberSignOf(next_);
    if (sign == nullptr) return Expected("one of: =, !=, <, <=, >, >=");
    Take();
    const std::string_view digits = next_.bytes;
    std::uint64_t number = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (read.ec != std::errc() || read.ptr != digits.data() + digits.size()) {
        return Expected("a whole number");
    }
    Take();
    return std::make_unique<CountNode>(std::move(places), sign->op, number);
}

QueryNodePtr QueryParser::ParseMaterial() {
    const bool negated = next_.IsSign("!=");
    if (!negated && !next_.IsSign("=")) return Expected("= or !=");
    Take();
    const Token token = next_;
    std::string name;
    if (!ParseText(name, "the name of a material, such as map or \"visual materials\"")) {
        return nullptr;
    }
    auto names = MaterialNode::NamesFor(name);
    if (names.empty()) {
        return FailAt(token, FaultCode::kQueryNoMaterial, FoundText(token), MaterialsNear(name));
    }
    return Negated(negated, std::make_unique<MaterialNode>(std::move(names)));
}

QueryNodePtr QueryParser::ParseValid() {
    asksValidity_ = true;
    return std::make_unique<ValidNode>();
}

QueryNodePtr QueryParser::ParseComparison() {
    PlaceSet places;
    if (!ParsePlaces(places)) return nullptr;
    const NumberSign* sign = NumberSignOf(next_);
    const bool isNumeric =
        sign != nullptr && sign->op != kNumberEqual && sign->op != kNumberNotEqual;
    if (!isNumeric) return ParseTextTest(std::move(places));
    Take();
    return ParseNumberTest(std::move(places), sign->op);
}

QueryNodePtr QueryParser::ParseTextTest(PlaceSet places) {
    const TextWord* word = TextWordOf(next_);
    const bool negated = next_.IsSign("!=");
    if (word == nullptr && !negated && !next_.IsSign("=")) return Expected(kOperator);
    Take();
    const Token token = next_;
    std::string pattern;
    if (!ParseText(pattern, kText)) return nullptr;
    TextTest test(word == nullptr ? kTextEquals : word->op, pattern, options_.exact);
    const std::string fault = test.Fault();
    if (!fault.empty()) return FailAt(token, FaultCode::kQueryBadPattern, fault);
    return Negated(negated, std::make_unique<TextNode>(std::move(places), std::move(test)));
}

QueryNodePtr QueryParser::ParseNumberTest(PlaceSet places, NumberOperator op) {
    const Token token = next_;
    std::string text;
    if (!ParseText(text, "a number or a date")) return nullptr;
    const auto test = NumberTest::Of(op, text);
    if (!test) return FailAt(token, FaultCode::kQueryNotComparable, FoundText(token));
    return std::make_unique<NumberNode>(std::move(places), *test);
}

// A tag, the leader, or the subfield after a blank: "650[2] $x".
bool QueryParser::BeginsPlace(const Token& token) {
    constexpr std::string_view kFirsts = "0123456789Xx$";
    if (token.kind != kTokenWord) return false;
    if (kFirsts.find(token.bytes.front()) != kFirsts.npos) return true;
    const Token name{kTokenWord, 0, token.bytes.substr(0, token.bytes.find('/'))};
    return name.IsWord("leader") || name.IsWord("ldr");
}

bool QueryParser::ParsePlaces(PlaceSet& places) {
    if (!BeginsPlace(next_)) {
        Expected(kPlace);
        return false;
    }
    const std::size_t begin = next_.offset;
    std::size_t end = begin;
    while (BeginsPlace(next_) || next_.IsSign(",")) end = Take().End();
    PlaceSetReading reading = ParsePlaceSet(expression_.substr(begin, end - begin));
    reading.fault.offset += begin;
    if (reading.fault) return Fail(std::move(reading.fault));
    places = std::move(reading.places);
    return true;
}

bool QueryParser::ParseText(std::string& text, std::string_view what) {
    const bool isText =
        next_.kind == kTokenText || (next_.kind == kTokenWord && !IsJoiningWord(next_));
    if (!isText) {
        Expected(what);
        return false;
    }
    text = Take().Text();
    return true;
}

QueryReading QueryParser::Parse() {
    const std::size_t invalid = FindInvalidUtf8(expression_);
    if (invalid != expression_.npos) {
        const Token byte{kTokenWord, invalid, expression_.substr(invalid, 1)};
        FailAt(byte, FaultCode::kQueryNotUtf8, HexText(expression_[invalid]));
        return {std::nullopt, std::move(fault_)};
    }
    QueryNodePtr root = ParseExpression();
    if (root && next_.kind != kTokenEnd) Expected(kJoin);
    if (fault_) return {std::nullopt, std::move(fault_)};
    Query query(std::move(root), options_.charset);
    query.asksValidity_ = asksValidity_;
    return {std::move(query), {}};
}

QueryReading ParseQuery(std::string_view expression, const QueryOptions& options) {
    return QueryParser(expression, options).Parse();
}

}  // namespace quillory
