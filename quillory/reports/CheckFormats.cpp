#include <quillory/reports/CheckFormats.h>

#include <algorithm>

namespace quillory {
namespace {

bool IsNamedFor(std::string_view output, const CheckFormatRow& row) {
    if (output.ends_with(".gz")) output.remove_suffix(3);
    return std::ranges::any_of(row.endings, [output](std::string_view ending) {
        return !ending.empty() && output.ends_with(ending);
    });
}

}  // namespace

std::vector<std::pair<std::string, CheckFormat>> NamesOf(std::span<const CheckFormatRow> formats) {
    std::vector<std::pair<std::string, CheckFormat>> names;
    names.reserve(formats.size());
    for (const CheckFormatRow& row : formats) names.emplace_back(row.name, row.format);
    return names;
}

std::unique_ptr<CheckReport> MakeReportIn(std::span<const CheckFormatRow> formats,
                                          const CheckReportOptions& options, Reporter& reporter) {
    const auto found = std::ranges::find_if(formats, [&options](const CheckFormatRow& row) {
        return options.format == kCheckByName ? IsNamedFor(options.output, row)
                                              : options.format == row.format;
    });
    const CheckFormatRow& row = found == formats.end() ? formats.front() : *found;
    return row.make(std::make_unique<Output>(options.output), options, reporter);
}

}  // namespace quillory
