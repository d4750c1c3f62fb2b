#include <quillory/exchange/MarcXml.h>
#include <quillory/text/MarkupText.h>

namespace quillory {

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
    text_ += "  <record>\n    <leader>";
    AppendXmlText(leader, text_, *losses_);
    text_ += "</leader>\n";
}

void MarcXmlWriter::AddControlField(const zorby::CommFormatField& field) {
    text_ += "    <controlfield tag=\"";
    AppendXmlText(field.tag, text_, *losses_);
    text_ += "\">";
    AppendXmlText(field.content, text_, *losses_);
    text_ += "</controlfield>\n";
}

void MarcXmlWriter::BeginDataField(std::string_view tag, char first, char second) {
    text_ += "    <datafield tag=\"";
    AppendXmlText(tag, text_, *losses_);
    text_ += "\" ind1=\"";
    AppendXmlText({&first, 1}, text_, *losses_);
    text_ += "\" ind2=\"";
    AppendXmlText({&second, 1}, text_, *losses_);
    text_ += "\">\n";
}

void MarcXmlWriter::AddSubfield(const Subfield& subfield) {
    text_ += "      <subfield code=\"";
    AppendXmlSign(subfield.code, text_, *losses_);
    text_ += "\">";
    AppendXmlText(subfield.text, text_, *losses_);
    text_ += "</subfield>\n";
}

void MarcXmlWriter::EndDataField() {
    text_ += "    </datafield>\n";
}

void MarcXmlWriter::EndRecord() {
    text_ += "  </record>\n";
}

}  // namespace quillory
