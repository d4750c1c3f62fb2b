#include <quillory/exchange/Subfields.h>
#include <quillory/store/Summary.h>
#include <quillory/text/SearchText.h>

namespace quillory {
namespace {

constexpr std::string_view kControlNumberTag = "001";
constexpr std::string_view kTitleTag = "245";
constexpr std::string_view kTitleCodes = "abnp";
constexpr std::size_t kLeaderType = 6;  // type of record, and bibliographic level after it

std::string TitleOf(std::string_view content) {
    std::string title;
    ForEachSubfield(content, [&title](char code, std::string_view text) {
        if (kTitleCodes.find(code) != kTitleCodes.npos) title.append(text) += ' ';
    });
    title = TidyText(title);
    constexpr std::string_view kSlash = " /";
    if (title.ends_with(kSlash)) title.resize(title.size() - kSlash.size());
    return title;
}

const zorby::CommFormatField* FieldOf(const Record& record, std::string_view tag) {
    for (const zorby::CommFormatField& field : record.fields) {
        if (field.tag == tag) return &field;
    }
    return nullptr;
}

}  // namespace

RecordSummary Summarizer::Summarize(const Record& record) {
    parts_.leader = record.leader;
    parts_.bytes = {};
    parts_.fields.clear();
    for (const std::string_view tag : {kControlNumberTag, kTitleTag}) {
        if (const auto* field = FieldOf(record, tag)) parts_.fields.push_back(*field);
    }
    recoder_.Recode(parts_, unused_);
    unused_.Clear();
    RecordSummary summary;
    summary.type = TidyText(record.leader.substr(kLeaderType, 2));
    for (const zorby::CommFormatField& field : parts_.fields) {
        if (field.tag == kTitleTag) {
            summary.title = TitleOf(field.content);
        } else {
            summary.controlNumber = TidyText(field.content);
        }
    }
    return summary;
}

}  // namespace quillory
