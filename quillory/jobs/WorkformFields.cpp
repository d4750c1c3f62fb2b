#include <quillory/coded/Material.h>
#include <quillory/edits/FieldParts.h>
#include <quillory/jobs/WorkformCatalog.h>
#include <quillory/jobs/WorkformFields.h>
#include <quillory/places/Tag.h>
#include <zorby/workforms/TemplateList.h>

#include <algorithm>
#include <map>
#include <memory>
#include <string_view>
#include <utility>

namespace quillory {
namespace {

using zorby::CTemplate;
using zorby::CTemplateList;

constexpr std::size_t kMost006 = 18;  // bytes of a field for which a workform has room
constexpr std::size_t kMost007 = 23;
constexpr std::size_t kMost008 = 40;

// The contents of the fields of a tag that come after so many of them.
class FieldsOfTag {
public:
    FieldsOfTag(std::string_view tag, const Record& record) {
        for (const auto& field : record.fields) {
            if (field.tag == tag) contents_.push_back(field.content);
        }
    }
    std::size_t Size() const { return contents_.size(); }
    // Empty for one that is not there.
    std::string_view At(std::size_t index) const {
        return index < contents_.size() ? contents_[index] : std::string_view();
    }

private:
    std::vector<std::string_view> contents_;
};

// The first of a material; for maps not the atlas, which comes before.
const CTemplate* FirstOf(zorby::CFType form006) {
    if (form006 == zorby::CF006Map) return CTemplateList::GetTemplate(zorby::MTMap);
    const CTemplateList& list = *CTemplateList::TheOneAndOnly();
    for (int i = 0; i < list.GetSize(); ++i) {
        if (list.GetAt(i)->GetMainMaterial().Get006Type() == form006) return list.GetAt(i);
    }
    return nullptr;
}

// Many a standard workform is for items with a 007 alone.
const CTemplate* StandardOf(zorby::CFType form006, zorby::CFType form007) {
    for (const zorby::CFType form : {form007, zorby::CF007None}) {
        if (const CTemplate* found = CTemplateList::GetTemplate(form006, form)) return found;
    }
    return FirstOf(form006);
}

char Stored(char indicator) {
    return indicator == ' ' ? '_' : indicator;
}

void AddDataField(const zorby::CommFormatField& field, CTemplate& workform) {
    const unsigned number = TagNumber(field.tag);
    const FieldParts parts = PartsOf(field.content);
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

bool IsDataField(const zorby::CommFormatField& field) {
    const unsigned number = TagNumber(field.tag);
    const FieldParts parts = PartsOf(field.content);
    return number != kNoTag && number >= kFirstDataTag && parts.head.size() == kIndicators &&
           !parts.parts.empty();
}

// Whether a workform can hold all of a field, of which so many of its tag come before.
bool HasRoomFor(const zorby::CommFormatField& field, std::size_t before) {
    if (field.tag == "006") return field.content.size() <= kMost006;
    if (field.tag == "007") return field.content.size() <= kMost007;
    if (field.tag == "008") return field.content.size() <= kMost008 && before == 0;
    return IsDataField(field);
}

// The first 006 and 007 belong to the main material.
void AddMaterials(const FieldsOfTag& fields006, const FieldsOfTag& fields007,
                  zorby::CCFAdditionalMaterialsList& materials) {
    materials.RemoveAll();
    for (std::size_t i = 1; i < std::max(fields006.Size(), fields007.Size()); ++i) {
        const zorby::CFType form006 = MaterialOf006(fields006.At(i));
        const zorby::CFType form007 = CategoryOf007(fields007.At(i));
        const CTemplate* standard = StandardOf(form006, form007);
        auto material = std::make_unique<zorby::CCFAdditionalMaterial>();
        material->Create(standard == nullptr ? zorby::MTUnspecified : standard->GetMaterialType(),
                         form006, form007, {}, {});
        material->Set006Complete(fields006.At(i));
        material->Set007Complete(fields007.At(i));
        materials.Add(std::move(material));
    }
}

void FillControlFields(const Record& record, const CTemplate& base, CTemplate& workform) {
    const FieldsOfTag fields006("006", record);
    const FieldsOfTag fields007("007", record);
    std::string_view field008 = FieldsOfTag("008", record).At(0);
    const std::string usual008 = base.GetMainMaterial().GetField008();
    if (field008.empty()) field008 = usual008;
    workform.ControlFieldsSetMain(base.GetMaterialType(), base.GetMainMaterial().Get006Type(),
                                  CategoryOf007(fields007.At(0)), record.leader, {},
                                  fields007.At(0), field008, fields006.At(0));
    AddMaterials(fields006, fields007, workform.GetAMList());
}

}  // namespace

bool NamesOneRecord(std::string_view tag) {
    return tag == "001" || tag == "003" || tag == "005";
}

const CTemplate& StandardFor(const Record& record) {
    const CTemplate* found = StandardOf(MaterialOfLeader(record.leader),
                                        CategoryOf007(FieldsOfTag("007", record).At(0)));
    return found != nullptr ? *found
                            : *CTemplateList::GetStandardTemplate(CTemplateList::kFallbackName);
}

std::vector<Place> FillWorkform(const Record& record, const CTemplate& base, CTemplate& workform) {
    FillControlFields(record, base, workform);
    workform.GetDefaultData().RemoveAll();
    std::vector<Place> leftOut;
    std::map<std::string_view, std::uint32_t> counts;
    for (const auto& field : record.fields) {
        const std::uint32_t before = counts[field.tag]++;
        if (NamesOneRecord(field.tag)) continue;
        if (!HasRoomFor(field, before)) {
            leftOut.push_back(Place::OfField(field.tag, before + 1));
        } else if (IsDataField(field)) {
            AddDataField(field, workform);
        }
    }
    return leftOut;
}

}  // namespace quillory
