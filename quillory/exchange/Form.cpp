#include <quillory/exchange/Form.h>
#include <quillory/exchange/MarcJson.h>
#include <quillory/exchange/MarcReader.h>
#include <quillory/exchange/MarcWriter.h>
#include <quillory/exchange/MarcXml.h>
#include <quillory/exchange/Microlif.h>
#include <quillory/exchange/Mrk.h>
#include <quillory/text/Ascii.h>

#include <algorithm>
#include <string>
#include <type_traits>

namespace quillory {
namespace {

template <class Reader>
std::unique_ptr<RecordReader> Read(Input& input, bool lenient) {
    return std::make_unique<Reader>(input, lenient);
}

template <class Writer>
std::unique_ptr<RecordWriter> Write(Output& output, const WriterOptions& options) {
    if constexpr (std::is_constructible_v<Writer, Output&, WriterOptions>) {
        return std::make_unique<Writer>(output, options);
    } else {
        return std::make_unique<Writer>(output);
    }
}

// clang-format off
constexpr Form kForms[] = {
    {"marc", "", "ISO 2709", ".mrc .marc .iso .iso2709", false,
     MarcReader::Fits, Read<MarcReader>, Write<MarcWriter>},
    {"mrk", "", "the line form", ".mrk .mrk8", false,
     MrkReader::Fits, Read<MrkReader>, Write<MrkWriter>},
    {"microlif", "", "old MicroLIF text", ".lif .001", false,
     MicrolifReader::Fits, Read<MicrolifReader>, Write<MicrolifWriter>},
    {"marcxml", "xml", "MARC 21 XML", ".xml .marcxml", true,
     MarcXmlReader::Fits, Read<MarcXmlReader>, Write<MarcXmlWriter>},
    {"jsonl", "json", "MARC-in-JSON", ".jsonl .ndjson .json", true,
     MarcJsonReader::Fits, Read<MarcJsonReader>, Write<MarcJsonWriter>},
};
// clang-format on

bool HasEndingOf(const Form& form, std::string_view fileName) {
    std::string_view rest = form.endings;
    while (!rest.empty()) {
        const std::size_t size = std::min(rest.find(' '), rest.size());
        if (fileName.ends_with(rest.substr(0, size))) return true;
        rest.remove_prefix(std::min(size + 1, rest.size()));
    }
    return false;
}

template <class Condition>
const Form* FirstWhere(Condition&& condition) {
    const auto* form = std::ranges::find_if(kForms, condition);
    return form == std::end(kForms) ? nullptr : form;
}

}  // namespace

std::span<const Form> Forms() {
    return kForms;
}

const Form* FormNamed(std::string_view name) {
    return FirstWhere([name](const Form& form) {
        return form.name == name || (!name.empty() && form.alias == name);
    });
}

const Form* FormOfFileName(std::string_view fileName) {
    if (fileName.ends_with(".gz")) fileName.remove_suffix(3);
    std::string lower(fileName);
    std::ranges::transform(lower, lower.begin(), LowerAscii);
    return FirstWhere([&lower](const Form& form) { return HasEndingOf(form, lower); });
}

const Form* FormOfContent(Input& input) {
    constexpr std::size_t kFirstLook = 256;
    constexpr std::size_t kLastLook = std::size_t{64} << 10;
    for (std::size_t look = kFirstLook;; look *= 4) {
        const std::string_view window = input.Peek(look).substr(0, look);
        const std::size_t filler = std::min(window.find_first_not_of(kRecordFiller), window.size());
        const bool isToGrow = filler + kFirstLook > look && window.size() == look;
        if (isToGrow && look < kLastLook) continue;
        const std::string_view head = window.substr(filler);
        return FirstWhere([head](const Form& form) { return form.fits(head); });
    }
}

}  // namespace quillory
