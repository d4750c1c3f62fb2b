#include <quillory/rules/Articles.h>
#include <quillory/text/Ascii.h>

#include <algorithm>
#include <array>
#include <string>

namespace quillory {
namespace {

struct LanguageArticles {
    std::string_view language;
    std::string_view articles;  // divided by blanks
    bool isWhole = true;        // no other spellings, and no articles in a row
};

// After the list of initial articles in the MARC 21 Format for Bibliographic Data, Appendix F:
// languages of the Latin script, and articles in letters of ASCII.
constexpr std::array kLanguages = std::to_array<LanguageArticles>({
    {"afr", "die 'n"},
    {"ara", "al- el-", false},
    {"cat", "el els en l' la les lo los un una unes uns"},
    {"dan", "de den det en et"},
    {"dut", "de een eene het 'n 't"},
    {"eng", "a an the"},
    {"epo", "la"},
    {"fre", "l' la le les un une"},
    {"ger", "das dem den der des die ein eine einem einen einer eines 's"},
    {"gla", "am an na", false},
    {"gle", "an na", false},
    {"glg", "a as o os unha un"},
    {"gre", "ho he to hoi hai ta"},
    {"haw", "he ka ke na o", false},
    {"heb", "ha- he-", false},
    {"hun", "a az egy"},
    {"ita", "gl' gli i il l' la le lo un un' una uno"},
    {"mao", "he nga te", false},
    {"mlt", "il- l-", false},
    {"nno", "den det dei ein ei eit"},
    {"nob", "de den det en et ei"},
    {"nor", "de dei den det ei en et eit"},
    {"oci", "l' la las le lo los un una"},
    {"por", "a as o os um uma umas uns"},
    {"rum", "o un una"},
    {"spa", "el la las lo los un una unas unos"},
    {"swe", "de den det en ett"},
    {"tgl", "ang mga", false},
    {"wel", "y yr"},
    {"yid", "a an der di dem dos"},
});

// Null for a language whose articles are not known. First letters tell most languages apart.
const LanguageArticles* FindLanguage(std::string_view language) {
    if (language.empty()) return nullptr;
    const auto* found = std::ranges::find_if(kLanguages, [language](const auto& known) {
        return known.language.front() == language.front() && known.language == language;
    });
    return found == kLanguages.end() ? nullptr : found;
}

// Names and phrases that begin with a word that is an article elsewhere. Some are common words too,
// or the beginning of longer ones.
constexpr auto kNoArticles = std::to_array<std::string_view>({
    "a & ",        "a and ",      "a cappella", "a capella",    "a contrario", "a fortiori",
    "a is ",       "a la ",       "a level",    "a posteriori", "a priori",    "a propos",
    "a to ",       "den haag",    "des moines", "el cairo",     "el escorial", "el greco",
    "el paso",     "el salvador", "l'aquila",   "la fontaine",  "la habana",   "la haya",
    "la haye",     "la mancha",   "la paz",     "la plata",     "la rioja",    "la rochefoucauld",
    "la rochelle", "la spezia",   "las palmas", "las vegas",    "le caire",    "le corbusier",
    "le havre",    "le mans",     "los alamos", "los angeles",
});

constexpr std::string_view kSignsBefore = "\"'[(<. ";
constexpr std::string_view kSignsAfter = "\"'[(<.-";

bool BeginsWith(std::string_view text, std::string_view word) {
    return text.size() >= word.size() &&
           std::ranges::equal(text.substr(0, word.size()), word, {}, LowerAscii);
}

bool IsJoined(std::string_view article) {
    return article.back() == '\'' || article.back() == '-';
}

// The article stands at the front and is followed by a blank, "]" and a blank, or the word that it
// is joined to.
bool IsAt(std::string_view text, std::string_view article) {
    if (text.size() <= article.size() + 1 || LowerAscii(text.front()) != article.front()) {
        return false;
    }
    if (!BeginsWith(text, article)) return false;
    const std::string_view rest = text.substr(article.size());
    return IsJoined(article) ? rest.front() != ' ' : rest.front() == ' ' || rest.starts_with("] ");
}

// For a text that is not empty.
bool MayBeName(std::string_view text) {
    const char first = LowerAscii(text.front());
    return std::ranges::any_of(kNoArticles, [&](std::string_view phrase) {
        return phrase.front() == first && BeginsWith(text, phrase);
    });
}

std::string_view FindArticle(std::string_view text, std::string_view articles) {
    std::string_view longest;
    while (!articles.empty()) {
        const std::string_view article = articles.substr(0, articles.find(' '));
        articles.remove_prefix(std::min(article.size() + 1, articles.size()));
        if (article.size() > longest.size() && IsAt(text, article)) {
            longest = text.substr(0, article.size());
        }
    }
    return longest;
}

// Where the first word begins, after the signs before it.
std::size_t StartOf(std::string_view title) {
    const auto isSign = [](char c) {
        return std::ranges::find(kSignsBefore, c) != kSignsBefore.end();
    };
    return static_cast<std::size_t>(std::ranges::find_if_not(title, isSign) - title.begin());
}

// The last of the signs before it may be part of the article: "'t".
Article FindAt(std::string_view title, std::size_t start, std::string_view articles) {
    std::string_view word;
    if (start != 0 && IsJoined(title.substr(0, start))) {
        word = FindArticle(title.substr(start - 1), articles);
    }
    if (word.empty()) word = FindArticle(title.substr(start), articles);
    if (word.empty()) return {};
    const auto end = static_cast<std::size_t>(word.data() - title.data()) + word.size();
    const std::size_t size = std::min(title.find_first_not_of("] ", end), title.size());
    return {word, size, std::min(title.find_first_not_of(kSignsAfter, size), title.size()),
            MayBeName(title.substr(start))};
}

}  // namespace

bool KnowsArticlesOf(std::string_view language) {
    const LanguageArticles* known = FindLanguage(language);
    return known != nullptr && known->isWhole;
}

Article ArticleOf(std::string_view title, std::string_view language) {
    const LanguageArticles* known = FindLanguage(language);
    return known == nullptr ? Article{} : FindAt(title, StartOf(title), known->articles);
}

Article ArticleOfAnyLanguage(std::string_view title) {
    const std::size_t start = StartOf(title);
    Article longest;
    for (const LanguageArticles& language : kLanguages) {
        const Article article = FindAt(title, start, language.articles);
        if (article.word.size() > longest.word.size()) longest = article;
    }
    return longest;
}

}  // namespace quillory
