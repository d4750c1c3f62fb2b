#include <quillory/cataloging/Pattern.h>
#include <quillory/coded/Material.h>
#include <quillory/edits/FieldParts.h>
#include <quillory/faults/Errors.h>
#include <quillory/jobs/WorkformCatalog.h>
#include <quillory/jobs/WorkformContent.h>
#include <quillory/jobs/WorkformFaults.h>
#include <quillory/jobs/WorkformFields.h>
#include <quillory/places/Tag.h>
#include <quillory/store/Schema.h>

#include <string_view>
#include <utility>

namespace quillory {
namespace {

using zorby::CTemplate;

std::string ContentOf(const PatternField& field) {
    std::string content = field.indicators;
    for (const auto& [code, text] : field.subfields) content += Part(code, text);
    return content;
}

bool IsOfMaterial(const Record& record, const CTemplate& workform) {
    const std::string leader = workform.GetMainMaterial().GetLeader();
    return MaterialOfLeader(record.leader) == MaterialOfLeader(leader);
}

}  // namespace

WorkformContent ContentOf(zorby::TemplateHolder workform) {
    const Pattern pattern(std::move(workform));
    WorkformContent content;
    content.name = pattern.Name();
    content.record.leader = pattern.Leader();
    content.record.fields.reserve(pattern.ControlFields().size() + pattern.Fields().size());
    for (const ControlField& field : pattern.ControlFields()) {
        content.record.fields.push_back({TagText(field.tag), field.content});
    }
    for (const PatternField& field : pattern.Fields()) {
        content.record.fields.push_back({TagText(field.tag), ContentOf(field)});
    }
    return content;
}

SavedWorkform SaveWorkform(const WorkformContent& content, int from, int replaced) {
    const Database database = OpenStore();
    WorkformCatalog catalog(database);
    WorkformStore& store = *catalog.Store();
    const std::string name = WorkformText(content.name);
    Transaction transaction(database);
    const auto known = store.FindByName(name);
    Fault fault = FaultOfName(name, known && known->id == replaced, store);
    if (fault) throw UsageError(std::move(fault));
    const zorby::TemplateHolder before = catalog.Get(from);
    const Record record = RecordOf(content.record);
    const CTemplate& like = IsOfMaterial(record, *before) ? *before : StandardFor(record);
    const zorby::TemplateHolder workform(new CTemplate);
    workform->CloneFrom(like);
    SavedWorkform saved;
    saved.leftOut = FillWorkform(record, like, *workform);
    CopyHelps(before->IsSavedTemplate() != 0 ? *before : like, content.helps, *workform);
    AddHelps(content.helps, *before, *workform);
    workform->SetName(name);
    fault = FaultOfControlFields(*workform);
    if (fault) throw UsageError(std::move(fault));
    saved.id = workform->SaveYourself(kAnybody, kUsable) == 0 ? 0 : workform->GetOwnID();
    const bool isRenamed = replaced != 0 && saved.id != replaced;
    if (saved.id == 0 || (isRenamed && !store.Delete(replaced))) {
        throw UsageError(FaultOfLock(name));
    }
    transaction.Commit();
    return saved;
}

void DeleteWorkform(int id) {
    const Database database = OpenStore();
    WorkformStore store(database);
    const auto known = store.FindById(id);
    if (known && !store.Delete(id)) throw UsageError(FaultOfLock(known->name));
}

}  // namespace quillory
