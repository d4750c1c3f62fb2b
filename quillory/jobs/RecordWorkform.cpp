#include <quillory/coded/Material.h>
#include <quillory/edits/FieldParts.h>
#include <quillory/faults/Errors.h>
#include <quillory/jobs/RecordWorkform.h>
#include <quillory/jobs/WorkformCatalog.h>
#include <quillory/jobs/WorkformFaults.h>
#include <quillory/places/Tag.h>
#include <quillory/store/Schema.h>
#include <zorby/workforms/TemplateList.h>

#include <string_view>

namespace quillory {
namespace {

using zorby::CTemplate;
using zorby::CTemplateList;

std::string_view FirstOf(std::string_view tag, const Record& record) {
    for (const auto& field : record.fields) {
        if (field.tag == tag) return field.content;
    }
    return {};
}

// The standard workform of what the record describes.
const CTemplate& BaseFor(const Record& record) {
    const zorby::CFType form006 = MaterialOfLeader(record.leader);
    const zorby::CFType form007 = CategoryOf007(FirstOf("007", record));
    const CTemplate* base = CTemplateList::GetTemplate(form006, form007);
    if (base == nullptr) base = CTemplateList::GetTemplate(form006, zorby::CF007None);
    return base != nullptr ? *base
                           : *CTemplateList::GetStandardTemplate(CTemplateList::kFallbackName);
}

char Stored(char indicator) {
    return indicator == ' ' ? '_' : indicator;
}

void AddField(std::string_view tag, std::string_view content, CTemplate& workform) {
    const unsigned number = TagNumber(tag);
    const FieldParts parts = PartsOf(content);
    if (number == kNoTag || number < kFirstDataTag || parts.head.size() != kIndicators) return;
    bool isFirst = true;
    for (const std::string_view part : parts.parts) {
        const std::string text = WorkformText(std::string(TextOf(part)));
        if (isFirst) {
            workform.AddDefaultData(number, Stored(parts.head[0]), Stored(parts.head[1]),
                                    CodeOf(part), text);
        } else {
            workform.AddDefaultData(CodeOf(part), text);
        }
        isFirst = false;
    }
}

void Fill(const Record& record, const CTemplate& base, CTemplate& workform) {
    const std::string_view field007 = FirstOf("007", record);
    std::string_view field008 = FirstOf("008", record);
    const std::string usual008 = base.GetMainMaterial().GetField008();
    if (field008.empty()) field008 = usual008;
    workform.ControlFieldsSetMain(base.GetMaterialType(), base.GetMainMaterial().Get006Type(),
                                  CategoryOf007(field007), record.leader, {}, field007, field008,
                                  FirstOf("006", record));
    workform.GetDefaultData().RemoveAll();
    for (const auto& field : record.fields) AddField(field.tag, field.content, workform);
}

}  // namespace

void SaveAsWorkform(const Record& record, const std::string& name, bool force,
                    const Reporter& reporter) {
    const Database database = OpenStore();
    WorkformCatalog catalog(database);
    const std::string stored = WorkformText(name);
    Transaction transaction(database);
    Fault fault = FaultOfName(stored, force, *catalog.Store());
    if (fault) throw UsageError(std::move(fault));
    const CTemplate& base = BaseFor(record);
    const zorby::TemplateHolder workform(new CTemplate);
    workform->CloneFrom(base);
    Fill(record, base, *workform);
    workform->SetName(stored);
    if (workform->SaveYourself(kAnybody, kUsable) == 0) throw UsageError(FaultOfLock(stored));
    transaction.Commit();
    reporter.Say("workform " + std::to_string(workform->GetOwnID()) + " \"" + name + "\" saved");
}

}  // namespace quillory
