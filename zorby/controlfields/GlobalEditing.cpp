#include <zorby/controlfields/GlobalEditing.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <mutex>
#include <new>
#include <optional>
#include <utility>
#include <vector>

namespace zorby {
namespace {

using Entries = std::vector<std::unique_ptr<const CCFGlobalEditingEntry>>;

struct List {
    std::mutex lock;
    std::optional<Entries> entries;
};

List& TheList() {
    static List list;
    return list;
}

constexpr int kNoPage = 0;
constexpr CCFDialogLayout kDateOfPublication = {
    kNoPage, "Date of publication", CFP008DateGroup, CFControlDateGroup, {}, {}};
constexpr CCFDialogLayout kTypeOfSoundRecording = {
    kNoPage, "Type of sound recording", CFPLdrTypeOfRecordSound, CFControlSRTypeGroup, {}, {}};

bool IsAdditionalOnly(MaterialType material) {
    return material == MTText || material == MTUnspecified || material == MTTactile ||
           material == MTNotatedMusic;
}

// A recording of type i alone leaves no choice of type.
bool HasTypeOfSoundRecording(MaterialType material) {
    return MTSoundDisc <= material && material <= MTSoundOther;
}

void Append(Entries& entries, const CCFDialogLayout& row, const CTemplate* workform) {
    entries.push_back(std::make_unique<const CCFGlobalEditingEntry>(row, workform));
}

void AppendForm(Entries& entries, const CCFDialogLayoutArray& form, const CTemplate* workform) {
    for (int i = 0; const CCFDialogLayout* row = form.GetAt(i); ++i) {
        const CFPart part = row->PartNumber();
        if (part == CFP008TypeOfDate || part == CFP006MusicSoundLiteraryText) continue;
        Append(entries, *row, workform);
    }
}

void AppendMaterial(Entries& entries, MaterialType material, const CTemplate* workform) {
    AppendForm(entries, CCFDialogLayoutArray(material, 0), workform);
    Append(entries, kDateOfPublication, workform);
    if (HasTypeOfSoundRecording(material)) Append(entries, kTypeOfSoundRecording, workform);
}

// Merges two neighbouring runs into `merged`, in which the first run wins a draw.
template <class Iterator>
void MergeRuns(Iterator first, Iterator second, Iterator end, Entries& merged) {
    for (Iterator left = first, right = second; left != second || right != end;) {
        const bool takesRight =
            left == second || (right != end && CCFGlobalEditingEntry::CCFGlobalEditingEntryCompare(
                                                   **left, **right) > 0);
        merged.push_back(std::move(takesRight ? *right++ : *left++));
    }
}

// A merge sort that ends, with every entry still there, under any comparison; those of the standard
// library ask for a strict order.
void Sort(Entries& entries) {
    const auto at = [&entries](std::size_t index) {
        return std::next(entries.begin(),
                         static_cast<std::ptrdiff_t>(std::min(index, entries.size())));
    };
    for (std::size_t run = 1; run < entries.size(); run *= 2) {
        Entries merged;
        merged.reserve(entries.size());
        for (std::size_t start = 0; start < entries.size(); start += 2 * run) {
            MergeRuns(at(start), at(start + run), at(start + 2 * run), merged);
        }
        entries.swap(merged);
    }
}

Entries SortedEntries(const CCFGlobalEditingEntryArray::TemplateSource& standardTemplate) {
    Entries entries;
    for (int i = kFirstMaterialType; i <= kLastMaterialType; ++i) {
        const auto material = static_cast<MaterialType>(i);
        if (IsAdditionalOnly(material)) continue;
        AppendMaterial(entries, material, standardTemplate(material));
    }
    Sort(entries);
    return entries;
}

}  // namespace

int CCFGlobalEditingEntryArray::InitializeFrom(const TemplateSource& standardTemplate) {
    List& list = TheList();
    const std::lock_guard guard(list.lock);
    list.entries.reset();
    try {
        list.entries = SortedEntries(standardTemplate);
    } catch (const std::bad_alloc&) {
        return 1;
    }
    return 0;
}

void CCFGlobalEditingEntryArray::DestroyYourself() {
    List& list = TheList();
    const std::lock_guard guard(list.lock);
    list.entries.reset();
}

int CCFGlobalEditingEntryArray::GetSize() {
    List& list = TheList();
    const std::lock_guard guard(list.lock);
    return list.entries ? static_cast<int>(list.entries->size()) : 0;
}

const CCFGlobalEditingEntry* CCFGlobalEditingEntryArray::GetAt(int index) {
    List& list = TheList();
    const std::lock_guard guard(list.lock);
    if (!list.entries || index < 0) return nullptr;
    const auto i = static_cast<std::size_t>(index);
    return i < list.entries->size() ? (*list.entries)[i].get() : nullptr;
}

int CCFGlobalEditingEntryArray::GetIndex(const CCFGlobalEditingEntry* entry) {
    List& list = TheList();
    const std::lock_guard guard(list.lock);
    if (!list.entries) return -1;
    const auto found = std::find_if(list.entries->begin(), list.entries->end(),
                                    [entry](const auto& e) { return e.get() == entry; });
    return found == list.entries->end()
               ? -1
               : static_cast<int>(std::distance(list.entries->begin(), found));
}

int CCFGlobalEditingEntryArray::AddEntry(const CCFDialogLayout& row, const CTemplate* workform) {
    List& list = TheList();
    const std::lock_guard guard(list.lock);
    if (!list.entries) return 0;
    Append(*list.entries, row, workform);
    return 1;
}

int CCFGlobalEditingEntryArray::AddDL(const CCFDialogLayoutArray& form, const CTemplate* workform) {
    List& list = TheList();
    const std::lock_guard guard(list.lock);
    if (!list.entries) return 0;
    AppendForm(*list.entries, form, workform);
    return 1;
}

}  // namespace zorby
