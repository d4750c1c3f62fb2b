#include <quillory/queries/PlaceSet.h>
#include <quillory/queries/Query.h>
#include <quillory/queries/SearchWords.h>
#include <quillory/text/Ascii.h>

#include <algorithm>
#include <array>
#include <vector>

namespace quillory {
namespace {

std::vector<std::string> WordsOf(std::string_view typed) {
    std::vector<std::string> words;
    while (true) {
        typed.remove_prefix(std::min(typed.find_first_not_of(kWhiteSpace), typed.size()));
        if (typed.empty()) return words;
        const bool isQuoted = typed.front() == '"';
        if (isQuoted) typed.remove_prefix(1);
        const std::size_t size =
            std::min(isQuoted ? typed.find('"') : typed.find_first_of(kWhiteSpace), typed.size());
        if (size > 0) words.emplace_back(typed.substr(0, size));
        typed.remove_prefix(std::min(size + 1, typed.size()));
    }
}

bool HasSign(std::string_view word) {
    return word.find_first_of("=<>") != word.npos;
}

// A text that is no expression is meant as one if it begins with a place and goes on with a test,
// or if that place can be nothing else, as in "245a contians x". A number alone is a word.
bool IsMeantAsExpression(const std::vector<std::string>& words) {
    static constexpr std::array<std::string_view, 6> kTests{"contains", "starts",  "ends",
                                                            "like",     "matches", "has"};
    const auto isTest = [](const std::string& word) {
        return HasSign(word) || std::ranges::find(kTests, word) != kTests.end();
    };
    const PlaceSet first = ParsePlaceSet(words.front()).places;
    if (words.size() < 2 || first.Empty()) return false;
    const PlacePattern& place = first.patterns.front();
    return place.HasCodes() || place.IsCoded() ||
           std::any_of(words.begin() + 1, words.end(), isTest);
}

}  // namespace

std::string ExpressionOf(std::string_view typed) {
    const std::vector<std::string> words = WordsOf(typed);
    if (words.empty()) return {};
    if (ParseQuery(typed).query || IsMeantAsExpression(words)) return std::string(typed);
    std::string expression;
    for (std::string word : words) {
        for (std::size_t at = 0; (at = word.find('"', at)) != word.npos; at += 2) {
            word.insert(at, 1, '"');
        }
        expression += (expression.empty() ? "" : " and ") + ("XXX contains \"" + word + '"');
    }
    return expression;
}

}  // namespace quillory
