#include <zorby/charset/Compare.h>
#include <zorby/text/General.h>
#include <zorby/text/WildPattern.h>

#include <gtest/gtest.h>

#include <optional>
#include <random>

using namespace zorby;

namespace {

struct Found {
    int start = -1;
    int end = -1;
    int position = 0;

    bool operator==(const Found&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Found& found) {
    return out << found.start << "-" << found.end << ", then " << found.position;
}

std::optional<Found> Find(const std::string& text, const std::string& pattern, int wholeWords = 0,
                          int position = 0, int useWildcards = 1) {
    Found found;
    found.position = position;
    if (CGeneral::FindWild(text, pattern, wholeWords, found.position, found.start, found.end,
                           useWildcards) == 0) {
        return std::nullopt;
    }
    return found;
}

// The rules of the search, word by word and slowly.
class Model {
public:
    Model(std::string text, std::string pattern, bool wholeWords)
        : text_(std::move(text)), pattern_(std::move(pattern)), wholeWords_(wholeWords) {}

    std::optional<Found> Find(int position) {
        found_ = {-1, -1, position};
        if (pattern_.empty() || position >= Size()) return std::nullopt;
        while (true) {
            leadingStar_ = trailingStar_ = literalSeen_ = false;
            questionRun_ = 0;
            bool needStart = true;
            for (std::size_t at = 0; at < pattern_.size();) {
                if (!Place(TakePiece(at), needStart)) return std::nullopt;
            }
            found_.end = found_.position - 1 < 0 ? found_.position : found_.position - 1;
            if (found_.end < found_.start) found_.end = found_.start;
            if (literalSeen_) found_.start -= questionRun_;
            if (found_.start < 0) found_.start = 0;
            if (!literalSeen_ && questionRun_ != 0 && Covers()) {
                if (++found_.position < Size()) continue;
                return std::nullopt;
            }
            if (!wholeWords_) {
                if (leadingStar_) found_.start = 0;
                if (trailingStar_) found_.end = Size();
                return found_;
            }
            if (found_.start >= Size()) return std::nullopt;
            if (IsWord()) return found_;
            found_.position += 1 - questionRun_;
            if (found_.position >= Size()) return std::nullopt;
        }
    }

private:
    int Size() const { return static_cast<int>(text_.size()); }

    std::string TakePiece(std::size_t& at) const {
        const std::size_t start = at;
        const char first = pattern_[at];
        if (first == '*' || first == '?') {
            while (at < pattern_.size() && pattern_[at] == first) ++at;
            return first == '*' ? "*" : pattern_.substr(start, at - start);
        }
        while (at < pattern_.size() && (std::string("*?").find(pattern_[at]) == std::string::npos ||
                                        pattern_[at - 1] == '\\')) {
            ++at;
        }
        std::string literal = "=" + pattern_.substr(start, at - start);
        for (const char* escaped : {"\\*", "\\?"}) {
            for (std::size_t i = 1; (i = literal.find(escaped, i)) != std::string::npos; ++i) {
                literal.erase(i, 1);
            }
        }
        return literal;
    }

    bool Place(const std::string& piece, bool& needStart) {
        if (piece[0] == '=') {
            const std::size_t at =
                text_.find(piece.substr(1), static_cast<std::size_t>(found_.position));
            if (at == std::string::npos) return false;
            trailingStar_ = false;
            if (needStart) found_.start = static_cast<int>(at);
            needStart = false;
            literalSeen_ = true;
            found_.position = static_cast<int>(at + piece.size() - 1);
            return true;
        }
        if (!literalSeen_) found_.start = found_.position;
        if (piece == "*") {
            if (!literalSeen_) leadingStar_ = true;
            trailingStar_ = true;
            return true;
        }
        const int count = static_cast<int>(piece.size());
        if (!literalSeen_) questionRun_ = count;
        found_.position += count;
        return found_.position <= Size();
    }

    char At(int index) const { return text_[static_cast<std::size_t>(index)]; }
    bool IsPunctuation(int index) const {
        return CSIsPunctuation(static_cast<unsigned char>(At(index))) != 0;
    }

    bool Covers() const {
        for (int i = found_.start; i < found_.end; ++i) {
            if (IsPunctuation(i)) return true;
        }
        return false;
    }

    bool StartsAt(int start) const {
        if (start == 0 || At(start - 1) == ' ') return true;
        if (std::string(",.$-").find(At(start - 1)) != std::string::npos) {
            return start - 1 == 0 || At(start - 2) == ' ';
        }
        return IsPunctuation(start - 1);
    }

    bool EndsAt(int end) const {
        if (end + 1 == Size() || At(end + 1) == ' ') return true;
        if (std::string(",.$-").find(At(end + 1)) != std::string::npos) {
            return end + 1 == Size() - 1 || At(end + 2) == ' ';
        }
        return IsPunctuation(end + 1);
    }

    bool IsWord() {
        if (found_.end >= Size()) return false;
        while (!StartsAt(found_.start)) {
            if (!leadingStar_ || --found_.start < 0) return false;
        }
        while (!EndsAt(found_.end)) {
            if (!trailingStar_ || ++found_.end >= Size()) return false;
        }
        return true;
    }

    std::string text_;
    std::string pattern_;
    bool wholeWords_;
    Found found_;
    bool leadingStar_ = false;
    bool trailingStar_ = false;
    bool literalSeen_ = false;
    int questionRun_ = 0;
};

TEST(WildPattern, FindsWhatTheRulesSay) {
    struct FindCase {
        const char* text;
        const char* pattern;
        int wholeWords;
        std::optional<Found> found;
    };
    const std::optional<Found> none;
    const FindCase cases[] = {
        {"xaby", "ab", 0, Found{1, 2, 3}},
        {"xaby", "*b", 0, Found{0, 2, 3}},
        {"xaby", "a*", 0, Found{1, 4, 2}},
        {"xaby", "?b", 0, Found{1, 2, 3}},
        {"xaby", "AB", 0, none},
        {"a--b", "a?b", 0, Found{0, 3, 4}},
        {"ab", "a?b", 0, none},
        {"xa*b", R"(a\*b)", 0, Found{1, 3, 4}},
        {"axb", R"(a\*b)", 0, none},
        {"a?*", R"(\?\*)", 0, Found{1, 2, 3}},
        {R"(a\b)", R"(\)", 0, Found{1, 1, 2}},
        {R"(a\*b)", R"(\\*)", 0, Found{1, 2, 3}},
        {"abc", "*", 0, Found{0, 3, 0}},
        {"a,bcd", "???", 0, none},
        {"ab,cdef", "???", 0, Found{0, 2, 3}},  // punctuation may come last
        {"a,bcdef", "???", 0, Found{4, 6, 7}},
        {"concat", "cat", 1, none},
        {"the cat sat", "cat", 1, Found{4, 6, 7}},
        {"cat,", "cat", 1, Found{0, 2, 3}},
        {"cat,s", "cat", 1, none},
        {"1,000", "1", 1, none},
        {"$1 or (1)", "1", 1, Found{1, 1, 2}},
        {"a concat x", "*cat", 1, Found{2, 7, 8}},
        {"a category", "cat*", 1, Found{2, 9, 5}},
        {"a scat(egory)", "*c?t*", 1, Found{2, 5, 6}},
        {"ab abc", "???", 1, Found{3, 5, 6}},
        {"", "a", 0, none},
        {"a", "", 0, none},
    };
    for (const FindCase& test : cases) {
        EXPECT_EQ(Find(test.text, test.pattern, test.wholeWords), test.found)
            << test.text << " / " << test.pattern;
    }
    EXPECT_EQ(Find(R"(a\*b)", R"(a\*b)", 0, 0, 0), (Found{0, 3, 4}));
    EXPECT_EQ(Find("aba", "a", 0, -5), (Found{0, 0, 1}));
    EXPECT_EQ(Find("aba", "a", 0, 1), (Found{2, 2, 3}));
}

TEST(WildPattern, NothingToSearchLeavesTheResultsAlone) {
    int position = 2;
    int start = 7;
    int end = 8;
    EXPECT_EQ(CGeneral::FindWild("ab", "a", 0, position, start, end, 1), 0);
    EXPECT_EQ(CGeneral::FindWild("abc", "", 0, position, start, end, 1), 0);
    EXPECT_EQ(position, 2);
    EXPECT_EQ(start, 7);
    EXPECT_EQ(end, 8);
}

TEST(WildPattern, AgreesWithTheSlowModel) {
    std::mt19937 random(7);
    const auto some = [&](std::string_view alphabet, int most) {
        std::string made;
        for (int left = std::uniform_int_distribution(0, most)(random); left > 0; --left) {
            made += alphabet[std::uniform_int_distribution<std::size_t>(
                0, alphabet.size() - 1)(random)];
        }
        return made;
    };
    int matches = 0;
    for (int i = 0; i < 40000; ++i) {
        const std::string text = some("aab  ,.*?\\(\x8a", 16);
        const std::string pattern = some("aab *?\\,", 6);
        const bool wholeWords = i % 2 == 1;
        Model model(text, pattern, wholeWords);
        int position = 0;
        while (position < 20) {
            const auto expected = model.Find(position);
            const auto found = Find(text, pattern, wholeWords ? 1 : 0, position);
            ASSERT_EQ(found, expected)
                << "\"" << text << "\" / \"" << pattern << "\" from " << position;
            if (!found) break;
            ++matches;
            position = std::max(found->position, position + 1);
        }
    }
    EXPECT_GT(matches, 10000);
}

// Literals whose rarest byte is everywhere, so that the search changes its way.
TEST(WildPattern, AgreesWithTheSlowModelInRepeatingTexts) {
    std::mt19937 random(3);
    const auto repeating = [&](std::size_t length) {
        std::string made(length, 'q');
        for (int flaws = 2; flaws > 0; --flaws) made[random() % length] = 'a';
        return made;
    };
    for (int i = 0; i < 300; ++i) {
        const std::string text = repeating(600);
        const std::string pattern = repeating(1 + random() % 300);
        EXPECT_EQ(Find(text, pattern), Model(text, pattern, false).Find(0)) << text << pattern;
    }
}

// Some of these take minutes where time grows with the square of the lengths.
TEST(WildPattern, HostilePatternsEnd) {
    constexpr std::size_t kLong = 1 << 17;
    const std::string same(kLong, 'q');
    const std::string half = same.substr(kLong / 2);
    std::string stars;
    while (stars.size() < kLong / 2) stars += "*q";
    std::string mixed;
    while (mixed.size() < kLong / 2) mixed += "?*";
    const std::string patterns[] = {
        half + "a" + half.substr(kLong / 4),
        half.substr(1) + "a",
        "a" + half,
        stars + "a",
        mixed + "a",
        mixed,
        stars,
        std::string(kLong / 2, '?'),
        std::string(kLong / 2, '?') + "q",
        "*q",
        "q*",
        "q",
        std::string(kLong, '*') + "a",
        std::string(kLong, '\\') + "*",
    };
    std::string punctuated;
    while (punctuated.size() < kLong) punctuated += half.substr(0, 1000) + "(";
    std::string nearly;
    while (nearly.size() < kLong) nearly += half.substr(0, 5000) + "r";
    for (const std::string& pattern : patterns) {
        for (const std::string& text : {same, punctuated, nearly, same + "z"}) {
            for (const int wholeWords : {0, 1}) {
                const auto found = Find(text, pattern, wholeWords);
                EXPECT_TRUE(!found || found->start <= found->end) << pattern.substr(0, 9);
            }
        }
    }
    EXPECT_FALSE(Find(nearly, half.substr(0, 5000) + "q" + half.substr(0, 5000)));
}

}  // namespace
