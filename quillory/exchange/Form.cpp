#include <quillory/exchange/Form.h>
#include <quillory/exchange/MarcJson.h>
#include <quillory/exchange/MarcReader.h>
#include <quillory/exchange/MarcXml.h>
#include <quillory/exchange/Microlif.h>
#include <quillory/exchange/Mrk.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <stdexcept>
#include <string>
#include <utility>

namespace quillory {
namespace {

constexpr std::array<std::pair<std::string_view, Form>, 13> kEndings{{
    {".mrc", kFormMarc},
    {".marc", kFormMarc},
    {".iso", kFormMarc},
    {".iso2709", kFormMarc},
    {".mrk", kFormMrk},
    {".mrk8", kFormMrk},
    {".lif", kFormMicrolif},
    {".001", kFormMicrolif},
    {".xml", kFormMarcXml},
    {".marcxml", kFormMarcXml},
    {".jsonl", kFormJsonLines},
    {".ndjson", kFormJsonLines},
    {".json", kFormJsonLines},
}};

}  // namespace

bool IsAlwaysUtf8(Form form) {
    return form == kFormMarcXml || form == kFormJsonLines;
}

Form FormOfName(std::string_view name) {
    if (name.ends_with(".gz")) name.remove_suffix(3);
    std::string lower(name);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    for (const auto& [ending, form] : kEndings) {
        if (lower.ends_with(ending)) return form;
    }
    return kFormUnknown;
}

Form FormOfContent(Input& input) {
    constexpr std::size_t kLook = 256;
    std::string_view head = input.Peek(kLook);
    head.remove_prefix(std::min(head.find_first_not_of(kRecordFiller), head.size()));
    if (head.starts_with("LDR") || head.starts_with("HDR")) return kFormMicrolif;
    if (head.starts_with('<')) return kFormMarcXml;
    if (head.starts_with('{') || head.starts_with('[')) return kFormJsonLines;
    const auto digits = std::min(head.find_first_not_of("0123456789"), head.size());
    if (head.starts_with("=LDR") || (head.starts_with('=') && head.substr(4).starts_with("  "))) {
        return kFormMrk;
    }
    return digits >= 5 ? kFormMarc : kFormUnknown;
}

std::unique_ptr<RecordReader> MakeReader(Form form, Input& input, bool lenient) {
    switch (form) {
        case kFormMrk:
            return std::make_unique<MrkReader>(input);
        case kFormMicrolif:
            return std::make_unique<MicrolifReader>(input);
        case kFormMarcXml:
            return std::make_unique<MarcXmlReader>(input);
        case kFormJsonLines:
            return std::make_unique<MarcJsonReader>(input);
        default:
            return std::make_unique<MarcReader>(input, lenient);
    }
}

std::unique_ptr<RecordWriter> MakeWriter(Form form, Output& output, Oversize oversize) {
    switch (form) {
        case kFormMrk:
            return std::make_unique<MrkWriter>(output);
        case kFormMicrolif:
            return std::make_unique<MicrolifWriter>(output);
        case kFormMarcXml:
            return std::make_unique<MarcXmlWriter>(output);
        case kFormJsonLines:
            return std::make_unique<MarcJsonWriter>(output);
        default:
            return std::make_unique<MarcWriter>(output, oversize);
    }
}

}  // namespace quillory
