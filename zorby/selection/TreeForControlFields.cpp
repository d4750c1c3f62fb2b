#include <zorby/selection/TreeForControlFields.h>
#include <zorby/workforms/TemplateList.h>

#include <algorithm>
#include <charconv>

namespace zorby {

namespace {

constexpr std::string_view kTemplates = "templates:\\";

std::string Step(std::uint32_t number) {
    return std::to_string(number) + "\\";
}

// Reads a number and the backslash after it from the start of a text.
bool TakeNumber(std::string_view& text, std::uint32_t& number) {
    const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
    const auto length = static_cast<std::size_t>(end.ptr - text.data());
    if (length == 0 || length >= text.size() || text[length] != '\\') return false;
    text.remove_prefix(length + 1);
    return true;
}

const CTemplate* StandardTemplate(unsigned id) {
    const CTemplateList* list = CTemplateList::TheOneAndOnly();
    for (int i = 0; list && i < list->GetSize(); ++i) {
        if (list->GetAt(i)->GetOwnID() == static_cast<int>(id)) return list->GetAt(i);
    }
    return nullptr;
}

}  // namespace

void CTreeForControlFields::InitializeYourself(const ControlBox& place, WindowPort& window,
                                               std::string_view settings) {
    constexpr int kButtonHeight = 24;
    constexpr int kButtonWidth = 110;
    const int treeHeight = std::max(place.height - kButtonHeight - 6, 0);
    controls_ = {};
    controls_.SetWindow(window);
    controls_.Add(
        {ControlKind::kTree, kTreeId, {}, {place.left, place.top, place.width, treeHeight}});
    controls_.Add({ControlKind::kButton,
                   kClearId,
                   "&Clear Selected",
                   {place.left, place.top + treeHeight + 6, kButtonWidth, kButtonHeight}});
    Attach(&controls_.Tree(kTreeId));
    users_.clear();
    bases_.clear();
    CTemplate::UDTemplateNamesAndBaseTemplateNames(users_, bases_);
    SetOptions(1, 0, 0);
    SetOneRootOnly(1);
    PrePopulateSetup();
    materials_ = InsertItem(kTreeRoot, "Material types", 0);
    workforms_ = InsertItem(kTreeRoot, "Workforms", 0);
    SetExpandable(materials_);
    SetExpandable(workforms_);
    CheckSettings(settings);
}

void CTreeForControlFields::CheckSettings(std::string_view settings) {
    const bool isOfWorkforms = settings.starts_with(kTemplates);
    if (isOfWorkforms) settings.remove_prefix(kTemplates.size());
    std::vector<std::uint32_t> numbers;
    for (std::uint32_t number = 0; TakeNumber(settings, number);) numbers.push_back(number);
    if (numbers.empty()) return;
    const auto check = [&](TreeItem item) {
        if (std::ranges::find(numbers, GetItemData(item)) == numbers.end()) return;
        SetItemSelection(item, kChecked);
        UpdateParents(item);
    };
    Populate(isOfWorkforms ? workforms_ : materials_);
    if (isOfWorkforms) {
        for (const TreeItem material : GetChildren(workforms_)) {
            std::ranges::for_each(GetChildren(material), check);
        }
    } else {
        std::ranges::for_each(GetChildren(materials_), check);
    }
    ExpandSelected();
    ScrollFirstChecked();
}

void CTreeForControlFields::Populate(TreeItem item) {
    if (GetLevel(item) != 1) return;
    PopulateSecondLevelMaterialType(item);
    if (item != workforms_) return;
    for (const TreeItem material : std::vector<TreeItem>(GetChildren(item))) {
        PopulateThirdLevelTemplates(material);
    }
}

void CTreeForControlFields::PopulateSecondLevelMaterialType(TreeItem item) {
    if (!GetChildren(item).empty()) return;
    for (int number = kFirstMaterialType; number <= kLastMaterialType; ++number) {
        std::string name;
        CTemplateList::GetMaterialTypeName(static_cast<MaterialType>(number), name);
        if (!name.empty()) InsertItem(item, name, static_cast<std::uint32_t>(number));
    }
}

void CTreeForControlFields::PopulateThirdLevelTemplates(TreeItem item) {
    if (!GetChildren(item).empty()) return;
    const auto material = static_cast<MaterialType>(GetItemData(item));
    const CTemplateList* list = CTemplateList::TheOneAndOnly();
    for (int i = 0; list && i < list->GetSize(); ++i) {
        const CTemplate& workform = *list->GetAt(i);
        if (workform.GetMaterialType() != material) continue;
        InsertItem(item, workform.GetName(), static_cast<std::uint32_t>(workform.GetOwnID()));
    }
    for (std::size_t i = 0; i < users_.size(); ++i) {
        const CTemplate* base = StandardTemplate(bases_[i]);
        if (!base || base->GetMaterialType() != material) continue;
        InsertItem(item, "UD: " + users_[i].text, users_[i].value);
    }
}

void CTreeForControlFields::CollapseOtherNode(TreeItem item) const {
    while (GetLevel(item) > 1) item = GetParent(item);
    for (const TreeItem branch : GetChildren(kTreeRoot)) {
        if (branch != item) Collapse(branch);
    }
}

void CTreeForControlFields::DrawControls(int show) const {
    constexpr int kAll[] = {kTreeId, kClearId};
    controls_.Show(kAll, show != 0);
}

void CTreeForControlFields::GetSelNodePath(TreeItem item, std::vector<std::string>& paths) const {
    const std::vector<TreeItem>& siblings = GetChildren(GetParent(item));
    for (auto at = std::ranges::find(siblings, item); at != siblings.end(); ++at) {
        const std::string step = Step(GetItemData(*at));
        const bool isChecked = GetItemSelection(*at) == kChecked;
        if (isChecked && GetLevel(*at) == 3) {
            const std::uint32_t material = GetItemData(GetParent(*at));
            paths.push_back("\\" + std::string(kTemplates) + Step(material) + step);
        } else if (isChecked && GetParent(*at) == materials_) {
            paths.push_back("\\" + step);
        } else if (!GetChildren(*at).empty()) {
            GetSelNodePath(GetChildren(*at).front(), paths);
        }
    }
}

void CTreeForControlFields::GetCurrentSettings(std::string& text) const {
    text.clear();
    if (GetChildren(kTreeRoot).empty()) return;
    std::vector<std::string> paths;
    GetSelNodePath(materials_, paths);
    for (const std::string& path : paths) {
        const bool isOfWorkforms = path.compare(1, kTemplates.size(), kTemplates) == 0;
        if (isOfWorkforms && text.empty()) text = kTemplates;
        text += path.substr(path.rfind('\\', path.size() - 2) + 1);
    }
}

int CTreeForControlFields::OnCmdMsg(int id, int code, TreeItem item) {
    if (id == kTreeId) {
        if (code == CN_Expanding) CollapseOtherNode(item);
        return OnNotify(code, item);
    }
    if (id != kClearId || code != CN_Clicked) return 0;
    DeselectAll();
    NotifyChanged();
    return 1;
}

}  // namespace zorby
