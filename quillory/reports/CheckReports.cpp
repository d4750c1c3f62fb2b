#include <quillory/reports/CheckFormats.h>

#include <array>

namespace quillory {
namespace {

// The first is that of an output with any other name.
constexpr std::array<CheckFormatRow, 4> kFormats{{
    {kCheckText, "text", {}, MakeTextCheckReport},
    {kCheckJsonl, "jsonl", {".jsonl"}, MakeJsonlCheckReport},
    {kCheckHtml, "html", {".html", ".htm"}, MakeHtmlCheckReport},
    {kCheckSarif, "sarif", {".sarif", ".sarif.json"}, MakeSarifCheckReport},
}};

}  // namespace

std::vector<std::pair<std::string, CheckFormat>> CheckFormatNames() {
    return NamesOf(kFormats);
}

std::unique_ptr<CheckReport> MakeCheckReport(const CheckReportOptions& options,
                                             Reporter& reporter) {
    return MakeReportIn(kFormats, options, reporter);
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
