#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/WorkformCatalog.h>
#include <quillory/store/HomeFolder.h>
#include <quillory/store/Schema.h>
#include <quillory/text/NearestNames.h>
#include <quillory/text/QmText.h>
#include <quillory/text/SearchText.h>
#include <zorby/archive/ArchiveException.h>
#include <zorby/workforms/TemplateList.h>

#include <algorithm>
#include <charconv>

namespace quillory {
namespace {

WorkformEntry EntryOf(int id, const std::string& name) {
    return {id, name, QmToUtf8(name)};
}

std::vector<std::string> TextsOf(const std::vector<WorkformEntry>& entries) {
    std::vector<std::string> texts;
    texts.reserve(entries.size());
    for (const WorkformEntry& entry : entries) texts.push_back(entry.text);
    return texts;
}

std::string Quoted(const std::vector<std::string>& names) {
    std::string quoted;
    for (const std::string& name : names) quoted += (quoted.empty() ? "\"" : ", \"") + name + '"';
    return quoted;
}

// 0 for a text that is not a number.
int IdIn(const std::string& text) {
    int id = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, id);
    return error == std::errc() && stop == end ? id : 0;
}

template <class Test>
std::vector<WorkformEntry> Matching(const std::vector<WorkformEntry>& entries, Test test) {
    std::vector<WorkformEntry> matching;
    std::copy_if(entries.begin(), entries.end(), std::back_inserter(matching), test);
    return matching;
}

[[noreturn]] void ThrowUnknown(const std::string& text, const std::vector<WorkformEntry>& all) {
    const std::string near = Quoted(NearestNames(text, TextsOf(all)));
    const FaultCode code = near.empty() ? FaultCode::kNoWorkform : FaultCode::kNoWorkformButNear;
    throw UsageError({code, {}, text, near});
}

}  // namespace

WorkformCatalog::WorkformCatalog(const Reporter& reporter) {
    std::string obstacle;
    if (HasHomeFolder()) database_ = OpenStoreIfThere(obstacle);
    if (!obstacle.empty()) reporter.Say(obstacle + "; without the workforms that it may hold");
    if (database_) store_.emplace(*database_);
    workforms_.emplace(Store());
}

WorkformCatalog::WorkformCatalog(const Database& database) {
    store_.emplace(database);
    workforms_.emplace(Store());
}

std::vector<WorkformEntry> WorkformCatalog::Standard() const {
    std::vector<WorkformEntry> entries;
    const zorby::CTemplateList* list = zorby::CTemplateList::TheOneAndOnly();
    for (int i = 0; list != nullptr && i < list->GetSize(); ++i) {
        entries.push_back(EntryOf(list->GetAt(i)->GetOwnID(), list->GetAt(i)->GetName()));
    }
    return entries;
}

std::vector<WorkformEntry> WorkformCatalog::Users() const {
    std::vector<WorkformEntry> entries;
    if (!store_) return entries;
    for (const WorkformInfo& info : store_->List(kUserWorkforms)) {
        entries.push_back(EntryOf(info.id, info.name));
    }
    return entries;
}

WorkformEntry WorkformCatalog::Find(const std::string& nameOrId) const {
    std::vector<WorkformEntry> all = Standard();
    for (WorkformEntry& entry : Users()) all.push_back(std::move(entry));
    std::string name;
    if (Utf8ToQm(nameOrId, name)) {
        const auto exact = Matching(all, [&](const auto& entry) { return entry.name == name; });
        if (!exact.empty()) return exact.front();
    }
    if (const int id = IdIn(nameOrId); id > 0) {
        const auto numbered = Matching(all, [id](const auto& entry) { return entry.id == id; });
        if (!numbered.empty()) return numbered.front();
    }
    const std::string folded = Folded(nameOrId);
    const auto alike =
        Matching(all, [&](const auto& entry) { return Folded(entry.text) == folded; });
    if (alike.empty()) ThrowUnknown(nameOrId, all);
    if (alike.size() > 1) {
        throw UsageError({FaultCode::kSeveralWorkforms, {}, nameOrId, Quoted(TextsOf(alike))});
    }
    return alike.front();
}

zorby::TemplateHolder WorkformCatalog::Get(int id) const {
    try {
        zorby::TemplateHolder workform(zorby::CTemplateList::GetTemplate(id));
        if (workform) return workform;
        throw UsageError({FaultCode::kNoWorkform, {}, std::to_string(id)});
    } catch (const zorby::CArchiveException& damage) {
        throw FileError(
            StorePath(),
            {FaultCode::kDamagedWorkform, {}, std::to_string(id) + ": " + damage.what()});
    }
}

std::string WorkformText(const std::string& utf8) {
    std::string text;
    if (Utf8ToQm(utf8, text)) return text;
    throw UsageError({FaultCode::kNotWorkformText, {}, utf8});
}

bool IsStandardName(const std::string& name) {
    std::vector<std::string> names;
    zorby::CTemplateList::GetTemplateNames(names, name.c_str());
    return !names.empty();
}

}  // namespace quillory
