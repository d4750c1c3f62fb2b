#include <quillory/edits/OperationMakers.h>
#include <quillory/edits/TextOperation.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/queries/RegularExpression.h>
#include <quillory/queries/TextTest.h>
#include <quillory/text/LetterCase.h>
#include <quillory/text/Utf8.h>

#include <algorithm>
#include <cctype>
#include <memory>
#include <optional>
#include <vector>

namespace quillory {
namespace {

enum class PatternKind { Text, Like, Regex };

struct ReplaceOptions {
    std::string pattern;
    std::string with;
    PatternKind kind = PatternKind::Text;
    bool ignoresCase = false;
    bool wholeWords = false;
    bool firstOnly = false;
};

bool IsWordAt(std::string_view text) {
    const Utf8Char c = DecodeUtf8(text);
    return c.valid && IsOfWord(c.codePoint);
}

bool IsWordBefore(std::string_view text) {
    return IsWordAt(LastCharacter(text));
}

// The pattern as a regular expression that is found where its characters are.
std::string Literally(std::string_view text) {
    std::string pattern;
    for (const char c : text) {
        const bool isLetter = c < 0 || c == ' ' || std::isalnum(static_cast<unsigned char>(c)) != 0;
        if (!isLetter) pattern += '\\';
        pattern += c;
    }
    return pattern;
}

// A part of what comes in place of a match: a text, and a group of the match after it.
struct ReplacementPart {
    std::string text;
    std::optional<std::size_t> group;
};

std::vector<ReplacementPart> PartsOfReplacement(std::string_view with, std::size_t groups) {
    std::vector<ReplacementPart> parts(1);
    for (std::size_t i = 0; i < with.size(); ++i) {
        if (with[i] != '\\') {
            parts.back().text += with[i];
            continue;
        }
        ++i;
        const char c = i < with.size() ? with[i] : '\0';
        const auto group = static_cast<std::size_t>(c - '0');
        if (c == '\\') {
            parts.back().text += c;
        } else if ('0' <= c && c <= '9' && group <= groups) {
            parts.back().group = group;
            parts.emplace_back();
        } else {
            throw ParameterError(
                "with",
                {FaultCode::kNoSuchGroup, {}, std::string("\\") + c, std::to_string(groups)});
        }
    }
    return parts;
}

// A match in a text, and the groups of it.
using Match = std::vector<TextRange>;

// An empty match is passed over with the character after it.
std::size_t SizeAt(std::string_view text, std::size_t at) {
    return at < text.size() ? DecodeUtf8(text.substr(at)).size : 1;
}

// The library's search knows bytes alone: a match takes whole characters.
Match WholeCharacters(TextRange range, std::string_view text) {
    const auto isInside = [text](std::size_t at) {
        return at < text.size() && IsContinuation(text[at]);
    };
    while (range.begin > 0 && isInside(range.begin)) --range.begin;
    while (isInside(range.end)) ++range.end;
    return {range};
}

// What is looked for, in one of its kinds.
class Pattern {
public:
    // Throws ParameterError.
    explicit Pattern(const ReplaceOptions& options) {
        if (options.kind == PatternKind::Like) {
            like_.emplace(kTextLike, options.pattern, !options.ignoresCase);
            return;
        }
        const bool isRegex = options.kind == PatternKind::Regex;
        expression_.emplace(isRegex ? options.pattern : Literally(options.pattern),
                            !options.ignoresCase);
        const std::string fault = expression_->Fault();
        if (!fault.empty()) throw ParameterError("regex", {FaultCode::kQueryBadPattern, {}, fault});
    }

    std::size_t Groups() const { return expression_ ? expression_->Groups() : 0; }

    std::vector<Match> MatchesIn(std::string_view text) const {
        std::vector<Match> matches;
        if (like_) {
            for (const TextRange& range : like_->RangesIn(text, false)) {
                matches.push_back(WholeCharacters(range, text));
            }
            return matches;
        }
        Match match;
        for (std::size_t from = 0; from <= text.size() && expression_->Find(text, from, match);) {
            const auto [begin, end] = match.front();
            from = end > begin ? end : end + SizeAt(text, end);
            const bool touchesLast = !matches.empty() && matches.back().front().end == end;
            if (end > begin || !touchesLast) matches.push_back(match);
        }
        return matches;
    }

private:
    mutable std::optional<TextTest> like_;  // keeps a buffer
    std::optional<RegularExpression> expression_;
};

// A pattern and what comes in its place.
class Replacer {
public:
    // Throws ParameterError.
    explicit Replacer(const ReplaceOptions& options) : options_(options), pattern_(options) {
        with_ = options.kind == PatternKind::Regex
                    ? PartsOfReplacement(options.with, pattern_.Groups())
                    : std::vector<ReplacementPart>{{options.with, {}}};
    }

    // Nothing if no match is replaced.
    std::optional<std::string> Replace(std::string_view text) const {
        std::string replaced;
        std::size_t done = 0;  // bytes of the text that are in `replaced`
        bool found = false;
        for (const Match& match : pattern_.MatchesIn(text)) {
            const auto [begin, end] = match.front();
            const bool isPassedOver = options_.wholeWords && !IsWhole(text, begin, end);
            if (isPassedOver || begin < done) continue;
            replaced += text.substr(done, begin - done);
            AppendReplacement(text, match, replaced);
            done = end;
            found = true;
            if (options_.firstOnly) break;
        }
        if (!found) return std::nullopt;
        return replaced.append(text.substr(done));
    }

private:
    static bool IsWhole(std::string_view text, std::size_t begin, std::size_t end) {
        const bool opens = begin == 0 || !IsWordBefore(text.substr(0, begin));
        return opens && (end == text.size() || !IsWordAt(text.substr(end)));
    }

    void AppendReplacement(std::string_view text, const Match& match, std::string& out) const {
        for (const ReplacementPart& part : with_) {
            out += part.text;
            if (!part.group) continue;
            const auto [begin, end] = match[*part.group];
            out += text.substr(begin, end - begin);
        }
    }

    ReplaceOptions options_;
    Pattern pattern_;
    std::vector<ReplacementPart> with_;
};

// Looks for the pattern in the normal form of the text: some systems write diacritics apart.
class Replace : public TextOperation {
public:
    Replace(PlaceSet places, const ReplaceOptions& options) : TextOperation(std::move(places)) {
        replacers_.push_back(std::make_unique<Replacer>(options));
        ReplaceOptions apart = options;
        apart.pattern = Normalized(options.pattern, kNormalFormD);
        apart.with = Normalized(options.with, kNormalFormD);
        if (apart.pattern != options.pattern) {
            replacers_.push_back(std::make_unique<Replacer>(apart));
        }
    }

protected:
    std::string Changed(std::string_view text, std::string_view) const override {
        for (const auto& replacer : replacers_) {
            if (auto replaced = replacer->Replace(text)) return std::move(*replaced);
        }
        return std::string(text);
    }

private:
    std::vector<std::unique_ptr<Replacer>> replacers_;
};

struct PatternChoice {
    std::string_view name;
    PatternKind kind;
};
constexpr PatternChoice kPatterns[] = {
    {"text", PatternKind::Text}, {"like", PatternKind::Like}, {"regex", PatternKind::Regex}};

// The one that is given.
const PatternChoice& ChoiceOf(const Parameters& parameters) {
    const auto isGiven = [&](const auto& choice) { return parameters.Has(choice.name); };
    if (std::ranges::count_if(kPatterns, isGiven) != 1) {
        throw ParameterError("text", {FaultCode::kOneOnly, {}, {}, "text, like and regex"});
    }
    return *std::ranges::find_if(kPatterns, isGiven);
}

}  // namespace

MadeOperation MakeReplace(const Parameters& parameters, const EditTools&) {
    using enum PlaceKind;
    PlaceSet places =
        PlacesOfKind(parameters, "place", {Field, ControlField, Subfield},
                     "subfields such as 245ab, fields such as 5XX, or control fields such as 001");
    const PatternChoice& choice = ChoiceOf(parameters);
    const std::string pattern = parameters.FieldText(choice.name);
    if (pattern.empty()) throw ParameterError(choice.name, {FaultCode::kNoFieldText});
    return std::make_unique<Replace>(
        std::move(places), ReplaceOptions{pattern, parameters.FieldText("with"), choice.kind,
                                          parameters.Flag("ignore-case"), parameters.Flag("words"),
                                          parameters.Flag("first")});
}

}  // namespace quillory
