#include <quillory/coded/Material.h>
#include <quillory/edits/NewCodedFields.h>
#include <quillory/text/QmText.h>
#include <zorby/workforms/TemplateList.h>

#include <algorithm>
#include <span>

namespace quillory {
namespace {

using namespace zorby;

constexpr std::size_t kBytes006 = 18;

std::vector<MaterialType> Materials() {
    std::vector<MaterialType> materials;
    for (int number = kFirstMaterialType; number <= kLastMaterialType; ++number) {
        materials.push_back(static_cast<MaterialType>(number));
    }
    return materials;
}

std::string NameOf(MaterialType material) {
    std::string name;
    CTemplateList::GetMaterialTypeName(material, name);
    return QmToUtf8(name);
}

std::string Filled(char letter, std::size_t size) {
    std::string content(size, kFill);
    content.front() = letter;
    return content;
}

// Of the material that has this letter, or else of one that has the same form.
std::string Default006Of(CFType form, char letter) {
    std::string found = Filled(letter, kBytes006);
    bool isOwn = false;
    for (const MaterialType material : Materials()) {
        const std::string content = CTemplateList::Default006(material);
        if (content.size() != kBytes006 || MaterialOf006(content) != form) continue;
        const bool isFirst = found[1] == kFill;
        const bool isBetter = content.front() == letter && (!isOwn || material == MTMap);
        if (!isFirst && !isBetter) continue;
        found = letter + content.substr(1);
        isOwn = content.front() == letter;
    }
    return found;
}

std::string CaptionOf(const Element& element, char code, const CodeLists& lists) {
    return lists.Find(element, {&code, 1}).text;
}

const Element& ElementAt(CFType form, int first) {
    return *std::ranges::find(ElementsOf(form), first, &Element::first);
}

void AddMicroforms(const CodeLists& lists, std::vector<NewCodedField>& fields) {
    constexpr int kFormOfItem = 6;
    for (const char form : {'a', 'b', 'c'}) {
        fields.push_back({CaptionOf(ElementAt(CF006Books, kFormOfItem), form, lists),
                          CTemplateList::Default007(MTBook, form)});
    }
}

bool HasContent(std::span<const NewCodedField> fields, std::string_view content) {
    return std::ranges::find(fields, content, &NewCodedField::content) != fields.end();
}

}  // namespace

std::vector<NewCodedField> New006Fields(const CodeLists& lists) {
    std::vector<NewCodedField> fields;
    for (const CFType form : FormsOf006()) {
        for (const char letter : FormLetters(form)) {
            fields.push_back(
                {CaptionOf(ElementAt(form, 0), letter, lists), Default006Of(form, letter)});
        }
    }
    return fields;
}

std::vector<NewCodedField> New007Fields(const CodeLists& lists) {
    std::vector<NewCodedField> fields;
    for (const MaterialType material : Materials()) {
        const std::string content = CTemplateList::Default007(material, ' ');
        const bool isUsable = CategoryOf007(content) != CF007None && !HasContent(fields, content);
        if (isUsable) fields.push_back({NameOf(material), content});
    }
    AddMicroforms(lists, fields);
    for (const CFType form : FormsOf007()) {
        const char letter = FormLetters(form).front();
        const bool isThere = std::ranges::any_of(
            fields, [letter](const auto& field) { return field.content.front() == letter; });
        if (isThere) continue;
        fields.push_back({CaptionOf(ElementAt(form, 0), letter, lists),
                          Filled(letter, static_cast<std::size_t>(LengthOfForm(form)))});
    }
    std::ranges::stable_sort(fields, {}, [](const NewCodedField& field) {
        return std::ranges::find(FormsOf007(), CategoryOf007(field.content)) - FormsOf007().begin();
    });
    return fields;
}

std::string New008Field(std::string_view leader) {
    const CFType form = MaterialOfLeader(leader);
    for (const MaterialType material : Materials()) {
        CFType form006 = CF006None;
        CFType form007 = CF007None;
        CTemplateList::Get006007TypesForMaterialType(material, ' ', form006, form007);
        const bool isMeant = form006 != CF006None && form006 == form;
        if (isMeant) return CTemplateList::Default008(material);
    }
    return CTemplateList::Default008(MTBook);
}

std::string NewContentOf(CFType form, char letter) {
    if (IsFormOf006(form)) return Default006Of(form, letter);
    for (const MaterialType material : Materials()) {
        std::string content = CTemplateList::Default007(material, ' ');
        if (CategoryOf007(content) == form) return content;
    }
    if (form == CF007Microform) return CTemplateList::Default007(MTBook, 'a');
    return Filled(letter, static_cast<std::size_t>(LengthOfForm(form)));
}

}  // namespace quillory
