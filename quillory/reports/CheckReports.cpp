#include <quillory/coded/Material.h>
#include <quillory/reports/CheckReports.h>

#include <utility>

namespace quillory {
namespace {

CheckFormat FormatOf(const CheckReportOptions& options) {
    if (options.format != kCheckByName) return options.format;
    const std::string_view name = options.output;
    for (const std::string_view end : {".html", ".htm", ".html.gz"}) {
        if (name.ends_with(end)) return kCheckHtml;
    }
    for (const std::string_view end : {".jsonl", ".jsonl.gz"}) {
        if (name.ends_with(end)) return kCheckJsonl;
    }
    return kCheckText;
}

}  // namespace

std::unique_ptr<CheckReport> MakeCheckReport(const CheckReportOptions& options,
                                             Reporter& reporter) {
    auto output = std::make_unique<Output>(options.output);
    switch (FormatOf(options)) {
        case kCheckJsonl:
            return MakeJsonlCheckReport(std::move(output), reporter);
        case kCheckHtml:
            return MakeHtmlCheckReport(std::move(output), options.rows, reporter);
        default:
            return MakeTextCheckReport(std::move(output), reporter);
    }
}

std::string KindText(zorby::E_ERROR_CODE code) {
    switch (code) {
        case zorby::EC_ManyMainEntriesPersonal:
            return "too many main entries (100)";
        case zorby::EC_ManyMainEntriesCorporate:
            return "too many main entries (110)";
        case zorby::EC_ManyMainEntriesMeeting:
            return "too many main entries (111)";
        case zorby::EC_ManyMainEntriesUniformTitle:
            return "too many main entries (130)";
        case zorby::EC_SubfieldTooLong:
            return "subfield is too long";
        case zorby::EC_FieldTooLong:
            return "field is too long";
        case zorby::EC_NotMARC:
            return "not a MARC field or subfield";
        case zorby::EC_NotRepeatable:
            return "not a repeatable field or subfield";
        default: {
            Finding finding;
            finding.code = code;
            return ShortText(finding);
        }
    }
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
