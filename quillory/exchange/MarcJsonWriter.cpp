#include <quillory/exchange/MarcJson.h>

namespace quillory {

void MarcJsonWriter::BeginRecord(std::string_view leader) {
    text_.clear();
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

void MarcJsonWriter::AddDataField(std::string_view tag, char first, char second,
                                  std::string_view subfields) {
    json_->BeginObject();
    json_->Name(tag);
    json_->BeginObject();
    json_->Member("ind1", std::string_view(&first, 1));
    json_->Member("ind2", std::string_view(&second, 1));
    json_->Name("subfields");
    json_->BeginArray();
    ForEachPart(subfields, [this](std::string_view part) { AddSubfield(SubfieldOf(part)); });
    json_->EndArray();
    json_->EndObject();
    json_->EndObject();
}

void MarcJsonWriter::AddSubfield(const Subfield& subfield) {
    json_->BeginObject();
    json_->Member(subfield.code, subfield.text);
    json_->EndObject();
}

std::string_view MarcJsonWriter::EndRecord() {
    json_->EndArray();
    json_->EndObject();
    text_ += '\n';
    return text_;
}

}  // namespace quillory
