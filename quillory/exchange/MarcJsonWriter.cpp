#include <quillory/exchange/MarcJson.h>
#include <quillory/text/MarkupText.h>

namespace quillory {

void MarcJsonWriter::AppendComma() {
    if (!text_.ends_with('[')) text_ += ',';
}

void MarcJsonWriter::AppendName(std::string_view name) {
    text_ += "{\"";
    AppendJsonText(name, text_, *losses_);
    text_ += "\":";
}

void MarcJsonWriter::BeginRecord(std::string_view leader) {
    text_ += "{\"leader\":\"";
    AppendJsonText(leader, text_, *losses_);
    text_ += "\",\"fields\":[";
}

void MarcJsonWriter::AddControlField(const zorby::CommFormatField& field) {
    AppendComma();
    AppendName(field.tag);
    text_ += '"';
    AppendJsonText(field.content, text_, *losses_);
    text_ += "\"}";
}

void MarcJsonWriter::BeginDataField(std::string_view tag, char first, char second) {
    AppendComma();
    AppendName(tag);
    text_ += "{\"ind1\":\"";
    AppendJsonText({&first, 1}, text_, *losses_);
    text_ += "\",\"ind2\":\"";
    AppendJsonText({&second, 1}, text_, *losses_);
    text_ += "\",\"subfields\":[";
}

void MarcJsonWriter::AddSubfield(const Subfield& subfield) {
    AppendComma();
    AppendName(subfield.code);
    text_ += '"';
    AppendJsonText(subfield.text, text_, *losses_);
    text_ += "\"}";
}

void MarcJsonWriter::EndDataField() {
    text_ += "]}}";
}

void MarcJsonWriter::EndRecord() {
    text_ += "]}\n";
}

}  // namespace quillory
