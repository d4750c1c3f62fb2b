#include <quillory/exchange/MarkupWriter.h>

#include <algorithm>
#include <cstdio>

namespace quillory {
namespace {

using zorby::CommFormatField;

bool IsPrintable(char c) {
    return c >= 0x20 && c < 0x7F;
}

// Why a record can't be written; empty if it can.
std::string Unwritable(std::string_view leader, const Record& record) {
    const auto bad = std::find_if_not(leader.begin(), leader.end(), IsPrintable);
    if (bad != leader.end()) {
        char text[64];
        std::snprintf(text, sizeof text, "byte 0x%02X in leader/%02d",
                      static_cast<unsigned>(static_cast<unsigned char>(*bad)),
                      static_cast<int>(bad - leader.begin()));
        return text;
    }
    for (const CommFormatField& field : record.fields) {
        if (ShapeOf(field) != kBrokenShape) continue;
        return "field " + std::string(field.tag) +
               " is not made of two indicators and subfields with codes";
    }
    return {};
}

}  // namespace

// Others are white space to a reader of XML, or none at all.
char MarkupWriter::WritableIndicator(char indicator) {
    if (IsPrintable(indicator)) return indicator;
    losses_->Add(kLossIndicator, static_cast<unsigned char>(indicator));
    return ' ';
}

void MarkupWriter::AddDataField(const CommFormatField& field) {
    BeginDataField(field.tag, WritableIndicator(field.content[0]),
                   WritableIndicator(field.content[1]));
    std::string_view subfields = field.content.substr(2);
    while (!subfields.empty()) AddSubfield(TakeSubfield(subfields));
    EndDataField();
}

WriteResult MarkupWriter::Write(const Record& record, Losses& losses) {
    const std::string_view leader = MendLeader(record.leader, leader_);
    const std::string reason = Unwritable(leader, record);
    if (!reason.empty()) return {false, false, reason};
    losses_ = &losses;
    text_.clear();
    BeginRecord(leader);
    for (const CommFormatField& field : record.fields) {
        if (ShapeOf(field) == kDataShape) {
            AddDataField(field);
        } else {
            AddControlField(field);
        }
    }
    EndRecord();
    output_.Write(text_);
    return {true, leader.data() == leader_.data(), {}};
}

}  // namespace quillory
