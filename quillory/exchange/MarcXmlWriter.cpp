#include <quillory/exchange/MarcXml.h>
#include <quillory/text/MarkupText.h>

#include <algorithm>
#include <cstddef>

namespace quillory {
namespace {

using namespace std::string_view_literals;

// Whether it stands as it is in an attribute of XML.
constexpr bool StandsForItself(char c) {
    return c >= ' ' && c < 0x7F && c != '<' && c != '>' && c != '&' && c != '"';
}

}  // namespace

MarcXmlWriter::MarcXmlWriter(Output& output, const WriterOptions& options) : MarkupWriter(output) {
    if (options.isPart) return;
    output_.Write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<collection xmlns=\"");
    output_.Write(kMarcXmlNamespace);
    output_.Write("\">\n");
}

void MarcXmlWriter::Finish() {
    output_.Write("</collection>\n");
}

void MarcXmlWriter::BeginRecord(std::string_view leader) {
    text_.Clear();
    text_ += "  <record>\n    <leader>"sv;
    AppendXmlText(leader, text_, *losses_);
    text_ += "</leader>\n"sv;
}

void MarcXmlWriter::AddControlField(const zorby::CommFormatField& field) {
    text_ += "    <controlfield tag=\""sv;
    AppendXmlText(field.tag, text_, *losses_);
    text_ += "\">"sv;
    AppendXmlText(field.content, text_, *losses_);
    text_ += "</controlfield>\n"sv;
}

void MarcXmlWriter::BeginDataField(std::string_view tag, char first, char second) {
    const bool isPlain = tag.size() == zorby::kTagSize &&
                         std::ranges::all_of(tag, StandsForItself) && StandsForItself(first) &&
                         StandsForItself(second);
    if (isPlain) {
        constexpr auto kForm = "    <datafield tag=\"...\" ind1=\".\" ind2=\".\">\n"sv;
        constexpr std::size_t kTagAt = kForm.find('.');
        constexpr std::size_t kFirstAt = kForm.find('.', kTagAt + zorby::kTagSize);
        constexpr std::size_t kSecondAt = kForm.find('.', kFirstAt + 1);
        char* const at = text_.Append(kForm);
        tag.copy(at + kTagAt, zorby::kTagSize);
        at[kFirstAt] = first;
        at[kSecondAt] = second;
        return;
    }
    text_ += "    <datafield tag=\""sv;
    AppendXmlText(tag, text_, *losses_);
    text_ += "\" ind1=\""sv;
    AppendXmlText({&first, 1}, text_, *losses_);
    text_ += "\" ind2=\""sv;
    AppendXmlText({&second, 1}, text_, *losses_);
    text_ += "\">\n"sv;
}

// `subfield` begins with a code, which is nearly always one byte.
void MarcXmlWriter::BeginSubfield(std::string_view& subfield) {
    const char first = subfield.front();
    if (StandsForItself(first)) {
        constexpr auto kForm = "      <subfield code=\".\">"sv;
        text_.Append(kForm)[kForm.find('.')] = first;
        subfield.remove_prefix(1);
        return;
    }
    const std::string_view code = SubfieldCodeOf(subfield);
    text_ += "      <subfield code=\""sv;
    AppendXmlSign(code, text_, *losses_);
    text_ += "\">"sv;
    subfield.remove_prefix(code.size());
}

void MarcXmlWriter::AddDataField(std::string_view tag, char first, char second,
                                 std::string_view subfields) {
    BeginDataField(tag, first, second);
    while (!subfields.empty()) {
        subfields.remove_prefix(1);
        BeginSubfield(subfields);
        subfields.remove_prefix(AppendXmlSubfield(subfields, text_, *losses_));
        text_ += "</subfield>\n"sv;
    }
    text_ += "    </datafield>\n"sv;
}

std::string_view MarcXmlWriter::EndRecord() {
    text_ += "  </record>\n"sv;
    return text_.Text();
}

}  // namespace quillory
