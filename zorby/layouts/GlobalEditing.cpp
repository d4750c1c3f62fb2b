#include <zorby/layouts/GlobalEditing.h>
#include <zorby/workforms/TemplateList.h>

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

// All materials that have a workform, in the order of the targets, and those for which the type of
// a recording may be chosen.
constexpr MaterialType kMaterials[] = {MTBook,
                                       MTComputerFile,
                                       MTComputerFileDisk,
                                       MTComputerFileOther,
                                       MTGlobe,
                                       MTAtlas,
                                       MTMap,
                                       MTKit,
                                       MTMixed,
                                       MTMusic,
                                       MTSerial,
                                       MTSoundDisc,
                                       MTSoundTape,
                                       MTSoundRecord,
                                       MTSoundOther,
                                       MTMotionPicture,
                                       MTVideoTape,
                                       MTVideoDisc,
                                       MTVideoOther,
                                       MTProjectedGraphic,
                                       MTNonprojectedGraphic,
                                       MTThreeDObject,
                                       MTRemoteSensing,
                                       MTBookComputerFile,
                                       MTVideoPlain,
                                       MTSoundNonmusical};
constexpr MaterialType kMaterialsWithSoundType[] = {MTSoundDisc, MTSoundTape, MTSoundRecord,
                                                    MTSoundOther};

// For the date group, serials come after remote-sensing images.
std::vector<MaterialType> MaterialsOfDateGroup() {
    std::vector<MaterialType> materials(std::begin(kMaterials), std::end(kMaterials));
    const auto serial = std::find(materials.begin(), materials.end(), MTSerial);
    const auto remote = std::find(materials.begin(), materials.end(), MTRemoteSensing);
    std::rotate(serial, std::next(serial), std::next(remote));
    return materials;
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

// Merges two neighbouring runs into `merged`. If two entries are equal, that of the first run comes
// first.
template <class Iterator>
void MergeRuns(Iterator first, Iterator second, Iterator end, Entries& merged) {
    for (Iterator left = first, right = second; left != second || right != end;) {
        const bool takesRight =
            left == second || (right != end && CCFGlobalEditingEntry::CCFGlobalEditingEntryCompare(
                                                   **left, **right) > 0);
        merged.push_back(std::move(takesRight ? *right++ : *left++));
    }
}

// A merge sort ends under any comparison and keeps every entry. The sorts of the standard library
// require a strict order.
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
    for (const MaterialType material : kMaterials) {
        AppendForm(entries, CCFDialogLayoutArray(material, 0), standardTemplate(material));
    }
    for (const MaterialType material : MaterialsOfDateGroup()) {
        Append(entries, kDateOfPublication, standardTemplate(material));
    }
    for (const MaterialType material : kMaterialsWithSoundType) {
        Append(entries, kTypeOfSoundRecording, standardTemplate(material));
    }
    Sort(entries);
    return entries;
}

}  // namespace

int CCFGlobalEditingEntryArray::InitializeYourself() {
    return InitializeFrom(
        [](MaterialType material) { return CTemplateList::GetTemplate(material); });
}

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

const CCFDialogLayout& CCFGlobalEditingEntry::GetRow() const {
    return *row_;
}

const CTemplate* CCFGlobalEditingEntry::GetTemplate() const {
    return workform_;
}

}  // namespace zorby
