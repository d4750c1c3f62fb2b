#include <quillory/exchange/MarkupWriter.h>
#include <quillory/faults/FaultCode.h>

#include <algorithm>

namespace quillory {
namespace {

bool IsPrintable(char c) {
    return c >= 0x20 && c < 0x7F;
}

}  // namespace

// Why a record can't be written, if it can't; finds out what its fields are made of.
std::optional<Fault> MarkupWriter::Unwritable(std::string_view leader, const Record& record) {
    const auto bad = std::ranges::find_if_not(leader, IsPrintable);
    if (bad != leader.end()) {
        const int at = static_cast<int>(bad - leader.begin());
        return Fault{FaultCode::kUnprintableByte, Place::OfLeader().Positions(at, at),
                     HexText(*bad)};
    }
    const std::span fields = record.fields;
    shapes_.clear();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        shapes_.push_back(ShapeOf(fields[i]));
        if (shapes_.back() != kBrokenShape) continue;
        return Fault{FaultCode::kNotMadeOfSubfields, PlaceAfter(fields.first(i), fields[i].tag)};
    }
    return std::nullopt;
}

// To a reader of XML other bytes are white space, or no characters.
char MarkupWriter::WritableIndicator(char indicator) {
    if (IsPrintable(indicator)) return indicator;
    losses_->Add(kLossIndicator, static_cast<unsigned char>(indicator));
    return ' ';
}

WriteResult MarkupWriter::Write(const Record& record, Losses& losses) {
    const std::string_view leader = MendLeader(record.leader, leader_);
    if (const auto fault = Unwritable(leader, record)) return NotWritten(*fault);
    losses_ = &losses;
    BeginRecord(leader);
    for (std::size_t i = 0; i < record.fields.size(); ++i) {
        const auto& [tag, content] = record.fields[i];
        if (shapes_[i] == kDataShape) {
            AddDataField(tag, WritableIndicator(content[0]), WritableIndicator(content[1]),
                         content.substr(kIndicators));
        } else {
            AddControlField(record.fields[i]);
        }
    }
    output_.Write(EndRecord());
    return {true, leader.data() == leader_.data(), {}};
}

}  // namespace quillory
