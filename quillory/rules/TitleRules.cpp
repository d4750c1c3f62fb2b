#include <quillory/rules/Articles.h>
#include <quillory/rules/RuleFamilies.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace quillory {
namespace {

// A field with an indicator that counts nonfiling characters.
struct NonfilingField {
    unsigned tag;
    int indicator;
    // Whether its title keeps an article; headings are given without one.
    bool keepsArticle;
};

constexpr std::array kNonfilingFields = std::to_array<NonfilingField>({
    {130, 1, false},
    {222, 2, true},
    {240, 2, false},
    {242, 2, true},
    {243, 2, false},
    {245, 2, true},
    {440, 2, true},
    {630, 1, false},
    {730, 1, false},
    {740, 1, false},
    {830, 2, false},
});

// Where the rule of a tag stands, from 1; 0 for other tags.
constexpr auto kRuleOfTag = [] {
    std::array<std::uint8_t, kTags + 1> rules{};
    for (std::size_t i = 0; i < kNonfilingFields.size(); ++i) {
        rules[kNonfilingFields[i].tag] = static_cast<std::uint8_t>(i + 1);
    }
    return rules;
}();

std::string_view LanguageOf(const RecordInHand& record) {
    const CheckedField* fixed = record.Whole008();
    if (fixed == nullptr) return {};
    return fixed->content.substr(35, 3);
}

// Characters are counted otherwise in MARC-8 and UTF-8 where letters have marks.
bool IsPlain(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return ' ' <= c && c <= '~'; });
}

bool IsBoundary(std::string_view title, std::size_t size) {
    constexpr std::string_view kArticleEnds = " '-\"([";
    return kArticleEnds.find(title[size - 1]) != kArticleEnds.npos && title[size] != ' ';
}

std::string WouldBe(const Article& article) {
    return "the title begins with the article \"" + std::string(article.word) +
           "\", so it would be " + std::to_string(article.sizeWithSigns);
}

bool IsSizeOf(const Article& article, std::size_t size) {
    return !article.word.empty() && (size == article.size || size == article.sizeWithSigns);
}

// What is wrong with a count; empty if nothing is certain.
std::string FaultOfCount(std::string_view title, std::size_t count, std::string_view language,
                         bool keepsArticle) {
    if (count >= title.size()) {
        return "the title has " + std::to_string(title.size()) +
               (title.size() == 1 ? " character" : " characters");
    }
    if (count == 0 && !keepsArticle) return {};
    if (!IsPlain(title.substr(0, count))) return {};
    const Article own = ArticleOf(title, language);
    const bool isArticle = !own.word.empty() && !own.mayBeName;
    if (count == 0) return isArticle ? WouldBe(own) : std::string();
    if (IsSizeOf(own, count) || IsSizeOf(ArticleOfAnyLanguage(title), count)) return {};
    const bool isCertain = KnowsArticlesOf(language);
    if (isArticle && isCertain) return WouldBe(own);
    const std::string skipped = '"' + std::string(title.substr(0, count)) + '"';
    if (!IsBoundary(title, count)) {
        return "no word begins after " + skipped + "; without an article it would be 0";
    }
    return isCertain ? skipped + " is no article, so it would be 0" : std::string();
}

void CheckNonfiling(const RecordInHand& record, const CheckedField& field,
                    const NonfilingField& rule, std::string_view language, RemarkSink& remarks) {
    const char count = field.Indicator(rule.indicator);
    const std::string_view title = record.TextOf(field, 'a');
    if (count < '0' || '9' < count || title.empty()) return;
    std::string fault =
        FaultOfCount(title, static_cast<std::size_t>(count - '0'), language, rule.keepsArticle);
    if (fault.empty()) return;
    remarks.Add(RuleId::NonfilingCount, field.GetPlace().Indicator(rule.indicator),
                std::string(1, count), std::move(fault));
}

bool HasMainEntry(const RecordInHand& record) {
    return record.Has(100) || record.Has(110) || record.Has(111) || record.Has(130);
}

void CheckTitleAddedEntry(const RecordInHand& record, RemarkSink& remarks) {
    const CheckedField* title = record.First(245);
    if (title == nullptr) return;
    const char given = title->Indicator(1);
    const bool hasEntry = HasMainEntry(record);
    const char right = hasEntry ? '1' : '0';
    if ((given != '0' && given != '1') || given == right) return;
    remarks.Add(RuleId::TitleFirstIndicator, title->GetPlace().Indicator(1), [&] {
        return RemarkWords{std::string(1, given), hasEntry ? "with a main entry (1XX) it is 1"
                                                           : "without a main entry (1XX) it is 0"};
    });
}

bool HasSeriesHeading(const RecordInHand& record) {
    return record.Has(800) || record.Has(810) || record.Has(811) || record.Has(830);
}

}  // namespace

void CheckTitleFields(const RecordInHand& record, RemarkSink& remarks) {
    const std::string_view language = LanguageOf(record);
    const bool isTraced = HasSeriesHeading(record);
    for (const CheckedField& field : record.Fields()) {
        if (field.number == 490 && field.Indicator(1) == '1' && !isTraced) {
            remarks.Add(RuleId::SeriesNotTraced, field.GetPlace().Indicator(1));
        }
        if (const std::size_t rule = kRuleOfTag[field.number]; rule != 0) {
            CheckNonfiling(record, field, kNonfilingFields[rule - 1], language, remarks);
        }
    }
    CheckTitleAddedEntry(record, remarks);
}

}  // namespace quillory
