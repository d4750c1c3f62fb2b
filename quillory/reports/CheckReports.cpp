#include <quillory/reports/CheckReports.h>

#include <algorithm>
#include <array>

namespace quillory {
namespace {

struct FormatRow {
    CheckFormat format;
    std::string_view name;
    std::array<std::string_view, 2> endings;  // of the names of outputs, also before ".gz"
    std::unique_ptr<CheckReport> (*make)(std::unique_ptr<Output>, const CheckReportOptions&,
                                         Reporter&);
};

// The first is that of an output with any other name.
constexpr std::array<FormatRow, 4> kFormats{{
    {kCheckText, "text", {}, MakeTextCheckReport},
    {kCheckJsonl, "jsonl", {".jsonl"}, MakeJsonlCheckReport},
    {kCheckHtml, "html", {".html", ".htm"}, MakeHtmlCheckReport},
    {kCheckSarif, "sarif", {".sarif", ".sarif.json"}, MakeSarifCheckReport},
}};

bool IsNamedFor(std::string_view output, const FormatRow& row) {
    if (output.ends_with(".gz")) output.remove_suffix(3);
    return std::ranges::any_of(row.endings, [output](std::string_view ending) {
        return !ending.empty() && output.ends_with(ending);
    });
}

const FormatRow& FormatOf(const CheckReportOptions& options) {
    const auto row = std::ranges::find_if(kFormats, [&options](const FormatRow& format) {
        return options.format == kCheckByName ? IsNamedFor(options.output, format)
                                              : options.format == format.format;
    });
    return row == kFormats.end() ? kFormats.front() : *row;
}

}  // namespace

std::vector<std::pair<std::string, CheckFormat>> CheckFormatNames() {
    std::vector<std::pair<std::string, CheckFormat>> names;
    names.reserve(kFormats.size());
    for (const FormatRow& row : kFormats) names.emplace_back(row.name, row.format);
    return names;
}

std::unique_ptr<CheckReport> MakeCheckReport(const CheckReportOptions& options,
                                             Reporter& reporter) {
    return FormatOf(options).make(std::make_unique<Output>(options.output), options, reporter);
}

std::string_view VerdictText(Verdict verdict) {
    switch (verdict) {
        case kMayGo:
            return "ok";
        case kMayGoWithWarnings:
            return "warnings";
        default:
            return "errors";
    }
}

}  // namespace quillory
