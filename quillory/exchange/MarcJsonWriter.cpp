#include <quillory/exchange/MarcJson.h>

namespace quillory {

void MarcJsonWriter::BeginRecord(std::string_view leader) {
    json_.emplace(text_, *losses_);
    json_->BeginObject();
    json_->Member("leader", leader);
    json_->Name("fields");
    json_->BeginArray();
}

void MarcJsonWriter::AddControlField(const zorby::CommFormatField& field) {
    json_->BeginObject();
    json_->Member(field.tag, field.content);
    json_->EndObject();
}

void MarcJsonWriter::BeginDataField(std::string_view tag, char first, char second) {
    json_->BeginObject();
    json_->Name(tag);
    json_->BeginObject();
    json_->Member("ind1", std::string_view(&first, 1));
    json_->Member("ind2", std::string_view(&second, 1));
    json_->Name("subfields");
    json_->BeginArray();
}

void MarcJsonWriter::AddSubfield(const Subfield& subfield) {
    json_->BeginObject();
    json_->Member(subfield.code, subfield.text);
    json_->EndObject();
}

void MarcJsonWriter::EndDataField() {
    json_->EndArray();
    json_->EndObject();
    json_->EndObject();
}

void MarcJsonWriter::EndRecord() {
    json_->EndArray();
    json_->EndObject();
    text_ += '\n';
}

}  // namespace quillory
