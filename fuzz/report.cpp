#include <quillory/jobs/ReportFiles.h>
#include <quillory/reports/CheckReports.h>

#include <fuzz/Carry.h>
#include <iterator>
#include <string>
#include <string_view>

namespace quillory::fuzz {
namespace {

class SilentPort : public JobPort {
public:
    void Say(const Message&) override {}
};

using MakeReport = decltype(MakeTextCheckReport)*;

// The report of results, which are a file of lines. Throws FileError for what is no result.
std::string ReportOf(std::string_view results, MakeReport make) {
    static const MemoryFile file;
    SilentPort port;
    Reporter reporter(port, {});
    std::string bytes;
    const CheckReportOptions options{.rows = 3};
    const auto report = make(std::make_unique<Output>(Output::kToMemory, bytes), options, reporter);
    ReportFiles({.files = {file.Hold(results)}, .memory = "1M"}, *report, reporter);
    return bytes;
}

}  // namespace
}  // namespace quillory::fuzz

// What a check found, as lines of JSON. The lines that are made of them say the same.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace quillory;
    using fuzz::Expect;
    const std::string_view text = fuzz::TextOf(data, size);
    try {
        const std::string lines = fuzz::ReportOf(text, MakeJsonlCheckReport);
        Expect(fuzz::ReportOf(lines, MakeJsonlCheckReport) == lines, "a report is read as it was");
        constexpr fuzz::MakeReport kOthers[] = {MakeTextCheckReport, MakeHtmlCheckReport,
                                                MakeSarifCheckReport};
        const auto make = kOthers[size % std::size(kOthers)];
        Expect(!fuzz::ReportOf(lines, make).empty(), "a report says something");
    } catch (const FileError& error) {
        const bool namesLine =
            std::string_view(error.what()).find("line ") != std::string_view::npos;
        Expect(namesLine || text.starts_with("\x1F\x8B"), "what is no result is named by its line");
    }
    return 0;
}
