#include <quillory/exchange/MarcXml.h>
#include <quillory/exchange/Recoder.h>
#include <quillory/exchange/RecordText.h>
#include <quillory/text/Ascii.h>

#include <algorithm>

namespace quillory {
namespace {

std::string_view BlanksAtEnd(std::string_view text) {
    return text.substr(text.find_last_not_of(kWhiteSpace) + 1);
}

std::string_view WithoutWhiteSpace(std::string_view text) {
    text.remove_suffix(BlanksAtEnd(text).size());
    text.remove_prefix(std::min(text.find_first_not_of(kWhiteSpace), text.size()));
    return text;
}

// What a second record adds to a file is the record alone.
RecordText Written(const Form& form, const Record& record) {
    RecordText text;
    Output output(Output::kToMemory, text.bytes);
    const auto writer = form.makeWriter(output, {});
    Losses unused;
    std::size_t before = 0;
    for (int i = 0; i < 2; ++i) {
        output.Flush();
        before = text.bytes.size();
        const WriteResult result = writer->Write(record, unused);
        if (!result.written) {
            return {{}, result.faults.empty() ? Fault{} : result.faults.front()};
        }
    }
    output.Flush();
    text.bytes.erase(0, before);
    return text;
}

// A record element belongs to the format by its own name space, whatever stands around it.
void SetNamespace(std::string& element) {
    constexpr std::string_view kElement = "<record";
    element.insert(kElement.size(), " xmlns=\"" + std::string(kMarcXmlNamespace) + '"');
}

}  // namespace

RecordText TextAmongOthers(const Form& form, const Record& record, std::string_view former) {
    RecordText text = Written(form, record);
    if (text.fault || form.name == "marc") return text;
    text.bytes = WithoutWhiteSpace(text.bytes);
    if (form.name == "marcxml" && !former.starts_with("<record>")) SetNamespace(text.bytes);
    text.bytes += BlanksAtEnd(former);
    return text;
}

std::string_view GapAfter(const Form& form, std::string_view before, bool isArray) {
    if (form.name == "marcxml") return "\n  ";
    if (isArray) return ",\n";
    if (form.name == "jsonl") return before.ends_with('\n') ? "" : "\n";
    if (form.name == "mrk") {
        constexpr std::string_view kLineEnds = "\n\n";
        const std::string_view end = BlanksAtEnd(before);
        const auto lines = std::ranges::count(end, '\n');
        return kLineEnds.substr(std::min<std::size_t>(static_cast<std::size_t>(lines), 2));
    }
    return {};
}

}  // namespace quillory
