#pragma once

#include <quillory/queries/Query.h>
#include <quillory/queries/Token.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// Reads an expression by recursive descent. The grammar, with words in any case:
//
//   expression   conjunction { "or" conjunction }
//   conjunction  negation { "and" negation }
//   negation     { "not" } ( "(" expression ")" | test )
//   test         "valid"
//              | "has" places
//              | "count" "(" places ")" comparison number
//              | "material" ( "=" | "!=" ) text
//              | places ( "=" | "!=" | "contains" | "starts" | "ends" | "like" | "matches" ) text
//              | places ( "<" | "<=" | ">" | ">=" ) number or date
//
// A function gives null after it has met a fault, of which the first is kept.
class QueryParser {
public:
    QueryParser(std::string_view expression, const QueryOptions& options)
        : expression_(expression), options_(options), next_(TokenAt(expression, 0)) {}

    QueryReading Parse();

private:
    QueryNodePtr ParseExpression();
    QueryNodePtr ParseConjunction();
    QueryNodePtr ParseNegation();
    QueryNodePtr ParsePrimary();
    QueryNodePtr ParseJoined(bool all, QueryNodePtr (QueryParser::*parsePart)());
    QueryNodePtr ParseBracket();
    QueryNodePtr ParseHas();
    QueryNodePtr ParseCount();
    QueryNodePtr ParseMaterial();
    QueryNodePtr ParseValid();
    QueryNodePtr ParseComparison();
    QueryNodePtr ParseTextTest(PlaceSet places);
    QueryNodePtr ParseNumberTest(PlaceSet places, NumberOperator op);

    bool ParsePlaces(PlaceSet& places);
    bool ParseText(std::string& text, std::string_view what);

    // Moves on if the next token is this one.
    bool TakeSign(std::string_view sign);
    bool TakeWord(std::string_view word);
    Token Take();
    static bool BeginsPlace(const Token& token);

    // Keeps a fault, unless there is one. Result: false, or null.
    bool Fail(TextFault fault);
    std::nullptr_t Expected(std::string_view what);
    std::nullptr_t ExpectedTest();
    std::nullptr_t FailAt(const Token& token, FaultCode code, std::string found,
                          std::string allowed = {});

    std::string_view expression_;
    QueryOptions options_;
    Token next_;
    std::size_t depth_ = 0;
    bool asksValidity_ = false;
    TextFault fault_;
};

}  // namespace quillory
