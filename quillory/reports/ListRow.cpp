#include <quillory/coded/Material.h>
#include <quillory/reports/ListRow.h>

#include <algorithm>
#include <array>
#include <utility>

namespace quillory {
namespace {

using PartsOfField = std::pair<std::string_view, std::string_view>;  // tag and codes

constexpr std::array<PartsOfField, 6> kAuthors{{{"100", "abcq"},
                                                {"110", "abn"},
                                                {"111", "acn"},
                                                {"700", "abcq"},
                                                {"710", "abn"},
                                                {"711", "acn"}}};
constexpr std::array<PartsOfField, 2> kImprints{{{"264", "c"}, {"260", "c"}}};

std::string FirstText(PlaceTexts& texts, const Record& record, auto&& places) {
    for (const auto& [tag, codes] : places) {
        std::string text = texts.FieldText(record, tag, codes);
        if (!text.empty()) return text;
    }
    return {};
}

// "Twain, Mark," before a date that is left out.
std::string WithoutComma(std::string text) {
    while (!text.empty() && (text.back() == ',' || text.back() == ' ')) text.pop_back();
    return text;
}

std::string DateIn008(const Record& record) {
    constexpr std::size_t kFirst = 7;
    constexpr std::size_t kSize = 4;
    for (const auto& field : record.fields) {
        if (field.tag != "008" || field.content.size() < kFirst + kSize) continue;
        const std::string_view date = field.content.substr(kFirst, kSize);
        const auto isOfDate = [](char c) { return ('0' <= c && c <= '9') || c == 'u'; };
        return std::ranges::all_of(date, isOfDate) ? std::string(date) : std::string();
    }
    return {};
}

}  // namespace

ListRow ListRows::RowOf(const Record& record) {
    RecordSummary summary = summarizer_.Summarize(record);
    ListRow row{std::move(summary.title), WithoutComma(FirstText(texts_, record, kAuthors)),
                DateIn008(record), MaterialText(record.leader), std::move(summary.controlNumber)};
    if (row.date.empty()) row.date = FirstText(texts_, record, kImprints);
    return row;
}

}  // namespace quillory
