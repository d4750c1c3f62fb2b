#include <quillory/coded/Material.h>
#include <quillory/reports/RecordScreen.h>
#include <quillory/reports/RecordWording.h>

#include <utility>

namespace quillory {
namespace {

std::string WithoutEnd(std::string line) {
    line.pop_back();
    return line;
}

}  // namespace

const RecordWords& RecordWording::Of(const CheckedRecord& record, bool withLines) {
    if (record.words != nullptr) return *record.words;
    RecordSummary summary = summarizer_.Summarize(record.item.record);
    words_.controlNumber = std::move(summary.controlNumber);
    words_.title = std::move(summary.title);
    words_.material = MaterialText(record.item.record.leader);
    const Item& item = record.item;
    words_.fault = item.fault && !item.continues ? FaultText(*item.fault) : "";
    words_.lines.clear();
    if (withLines) MakeLines(record.item.record);
    return words_;
}

void RecordWording::MakeLines(const Record& record) {
    Record shown = record;
    Losses unused;
    recoder_.Recode(shown, unused);
    std::string line;
    AppendLeader(record.leader, {}, line);
    words_.lines.push_back({{}, WithoutEnd(line)});
    for (const zorby::CommFormatField& field : shown.fields) {
        line.clear();
        AppendField(field, {}, line);
        words_.lines.push_back({std::string(field.tag), WithoutEnd(line)});
    }
}

}  // namespace quillory
