#include <quillory/exchange/Recoder.h>
#include <quillory/exchange/Subfields.h>
#include <quillory/holdings/RecordHoldings.h>
#include <quillory/places/Tag.h>
#include <quillory/text/Trimmed.h>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace quillory {
namespace {

using zorby::CommFormatField;

// What a field says: its tag, its indicators and its subfields, in any order.
struct Statement {
    std::string_view tag;
    std::string_view indicators;
    std::vector<std::pair<char, std::string_view>> subfields;

    Statement(std::string_view fieldTag, std::string_view content)
        : tag(fieldTag), indicators(content.substr(0, kIndicators)) {
        ForEachSubfield(content, [this](char code, std::string_view text) {
            subfields.emplace_back(code, Trimmed(text));
        });
        std::ranges::sort(subfields);
    }
    bool operator==(const Statement&) const = default;
};

// Sorted by tag: in which order the two fields of a copy stand says nothing.
template <class Fields>
std::vector<Statement> Statements(const Fields& fields) {
    std::vector<Statement> statements;
    statements.reserve(fields.size());
    for (const auto& field : fields) statements.emplace_back(field.tag, field.content);
    std::ranges::stable_sort(statements, {}, &Statement::tag);
    return statements;
}

}  // namespace

RecordHoldings::RecordHoldings(const HoldingsSystem& from, const HoldingsSystem& to,
                               HoldingsFile* file)
    : from_(from), to_(to), reader_(from, to), file_(file) {}

void RecordHoldings::Write(Record& record, std::uint64_t number, Charset charset, Losses& losses) {
    made_.clear();
    if (MakeFromFile(record, number)) {
        Convert(charset == kCharsetAuto ? ActualCharset(record) : charset, losses);
        Replace(record, [this](const CommFormatField& field) {
            return from_.HasTag(field.tag) || to_.HasTag(field.tag);
        });
    } else if (MakeFromFields(record)) {
        Replace(record, [this](const CommFormatField& field) { return reader_.IsTaken(field); });
    }
}

bool RecordHoldings::MakeFromFile(const Record& record, std::uint64_t number) {
    zorby::CHoldingsDataRecordList copies;
    if (file_ == nullptr || !file_->AddCopies(record.ControlNumber(), number, copies)) return false;
    copies.SortByTagAndSubfield();
    for (int i = 0; i < copies.GetSize(); ++i) MakeFields(*copies.GetAt(i), {});
    return true;
}

bool RecordHoldings::MakeFromFields(const Record& record) {
    CopiesOfRecord taken;
    reader_.Take(record, taken);
    if (taken.fields.empty()) return false;
    std::vector<CommFormatField> old;
    for (std::size_t i = 0; i < taken.fields.size(); ++i) {
        MakeFields(*taken.copies.GetAt(static_cast<int>(i)), taken.fields[i]);
        old.insert(old.end(), taken.fields[i].begin(), taken.fields[i].end());
    }
    return Statements(old) != Statements(made_);
}

// The library writes nothing for a copy of which no more is left than parts of a composed subfield:
// the fields of the record stay then.
void RecordHoldings::MakeFields(const zorby::CHoldingsDataRecord& copy,
                                const std::vector<CommFormatField>& origin) {
    std::vector<CopyField> fields = FieldsOfCopy(copy, to_, origin);
    if (fields.empty()) {
        for (const CommFormatField& field : origin) {
            fields.push_back({std::string(field.tag), std::string(field.content)});
        }
    }
    // What a record has once is not said again with each copy.
    std::erase_if(fields, [this](const CopyField& field) {
        const bool isOnce =
            to_.type != nullptr && to_.type->FieldIsOnePerRecord(TagNumber(field.tag));
        return isOnce && std::ranges::any_of(made_, [&field](const CopyField& made) {
                   return made.tag == field.tag && made.content == field.content;
               });
    });
    std::ranges::move(fields, std::back_inserter(made_));
}

void RecordHoldings::Convert(Charset charset, Losses& losses) {
    if (charset == kCharsetUtf8) return;
    auto& converter = converters_[static_cast<std::size_t>(charset)];
    if (!converter) {
        converter = std::make_unique<TextConverter>(kCharsetUtf8, charset, kNormalFormC);
    }
    for (CopyField& field : made_) {
        std::string converted = field.content.substr(0, kIndicators);
        AppendConverted(std::string_view(field.content).substr(kIndicators), *converter, converted,
                        losses);
        field.content = std::move(converted);
    }
}

void RecordHoldings::Replace(Record& record,
                             const std::function<bool(const CommFormatField&)>& isOld) {
    record_.Clear();
    for (const CommFormatField& field : record.fields) {
        if (!isOld(field)) record_.FieldAppend(field.tag, field.content);
    }
    for (const auto& [tag, content] : made_) {
        const int number = std::stoi(tag);
        int occurrence = 0;
        record_.FieldNew(number, occurrence);
        const auto place = static_cast<unsigned>(number);
        record_.FieldSetIndicators(place, occurrence, content[0], content[1]);
        record_.FieldAddSubfield(place, occurrence, 0, content.substr(kIndicators), 0);
    }
    record.fields.clear();
    for (const std::string& field : record_) {
        const std::string_view view = field;
        record.fields.push_back({view.substr(0, kTagSize), view.substr(kTagSize)});
    }
    record.bytes = {};
}

}  // namespace quillory
