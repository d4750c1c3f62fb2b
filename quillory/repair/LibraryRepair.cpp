#include <quillory/coded/Elements.h>
#include <quillory/coded/Material.h>
#include <quillory/repair/LibraryRepair.h>
#include <quillory/repair/RepairMaterial.h>
#include <zorby/controlfields/AdditionalMaterial.h>
#include <zorby/controlfields/MainMaterial.h>
#include <zorby/workforms/TemplateList.h>

#include <algorithm>
#include <vector>

namespace quillory {
namespace {

using namespace zorby;

constexpr std::size_t kTypeOfRecord = 6;
constexpr std::size_t kFormOfItem008 = 23;
constexpr std::size_t kSectionSize = 18;

// For the library a field ends at a zero byte, so another that no element has stands for it.
constexpr char kInsteadOfZero = '\1';

// A view of the field, or of `copy`, if it has zero bytes.
std::string_view WithoutZeros(const std::string& field, std::string& copy) {
    if (field.find('\0') == field.npos) return field;
    copy = field;
    std::replace(copy.begin(), copy.end(), '\0', kInsteadOfZero);
    return copy;
}

// Takes what the library made of a field; what it left alone stays as it was.
void Take(const std::string& repaired, std::string& field) {
    const std::size_t size = std::min(field.size(), repaired.size());
    if (field.find('\0') == field.npos) {
        repaired.copy(field.data(), size);
        return;
    }
    for (std::size_t i = 0; i < size; ++i) {
        if (field[i] != '\0' || repaired[i] != kInsteadOfZero) field[i] = repaired[i];
    }
}

// The material section of an 008 in the positions of 006; that of none is empty.
std::string_view Section(std::string_view field008) {
    if (field008.size() <= kMaterialOffset008) return {};
    return field008.substr(kMaterialOffset008, kSectionSize);
}

bool HasDefaultsWithout007(MaterialType material) {
    return material == MTBook || material == MTSerial || material == MTMixed || material == MTMusic;
}

}  // namespace

bool LibraryRepair::Additional::GoesWith(CFType category) const {
    if (field006 == nullptr || field007 != nullptr) return false;
    const std::string& bytes = field006->after;
    return Belongs007To(field006->form, bytes.front(), bytes, category);
}

// Of a map, 008/23 belongs to the projection, and the library would take it for the form of item of
// a microform.
void LibraryRepair::RepairMap(MaterialType material, const MainFields& fields) {
    std::string leader = fields.leader;
    std::string field008 = fields.field008;
    if (field008.size() > kFormOfItem008) field008[kFormOfItem008] = ' ';
    RepairMain(material, CF006Map, {leader, field008, fields.field007});
    std::string none;
    RepairMain(material, CF006Map, {fields.leader, fields.field008, none});
}

void LibraryRepair::RepairMain(MaterialType material, CFType form, const MainFields& fields) {
    const bool has008 = fields.field008.size() > kFormOfItem008;
    const char formOfItem = has008 ? fields.field008[kFormOfItem008] : ' ';
    // The library finds its defaults by both formats, so without a 007 that of the workform counts.
    CFType type006 = CF006None;
    CFType type007 = CategoryOf007(fields.field007);
    if (type007 == CF007None && !HasDefaultsWithout007(material)) {
        CTemplateList::Get006007TypesForMaterialType(material, formOfItem, type006, type007);
    }
    main_.Create(form, type007, WithoutZeros(fields.leader, leader_), "",
                 WithoutZeros(fields.field007, field007_), WithoutZeros(fields.field008, field008_),
                 "");
    main_.SetInvalidValuesToDefault(nullptr, nullptr, material);
    main_.GetAll(leader_, field007_, field008_, field006_);
    Take(leader_, fields.leader);
    Take(field007_, fields.field007);
    Take(field008_, fields.field008);
}

void LibraryRepair::RepairMicroform(std::string& field007) {
    const char formOfItem = CCFMainMaterial::FormOfItemFrom007Byte1(field007[1]);
    std::string leader(24, ' ');
    std::string field008(40, ' ');
    field008[kFormOfItem008] = formOfItem == ' ' ? 'a' : formOfItem;
    RepairMain(MTBook, CF006Books, {leader, field008, field007});
}

void LibraryRepair::Repair(const Additional& one) {
    std::string& bytes006 = one.field006 == nullptr ? none_ : one.field006->after;
    std::string& bytes007 = one.field007 == nullptr ? none_ : one.field007->after;
    const MaterialType material =
        one.field006 == nullptr
            ? MaterialOf007(bytes007)
            : MaterialOf(one.field006->form, bytes006.front(), bytes006, bytes007);
    CCFAdditionalMaterial additional;
    additional.Create(material, MaterialOf006(bytes006), CategoryOf007(bytes007), "", "");
    additional.Set006Complete(WithoutZeros(bytes006, field006_));
    additional.Set007Complete(WithoutZeros(bytes007, field007_));
    additional.SetInvalidValuesToDefault(nullptr, nullptr);
    additional.GetAll(field006_, field007_);
    Take(field006_, bytes006);
    Take(field007_, bytes007);
}

void LibraryRepair::AddFurther(CodedField& field007) {
    const auto partner =
        std::find_if(additional_.begin(), additional_.end(),
                     [&](const Additional& one) { return one.GoesWith(field007.form); });
    if (partner != additional_.end()) {
        partner->field007 = &field007;
    } else {
        additional_.push_back({nullptr, &field007});
    }
}

void LibraryRepair::Run(CodedFields& fields) {
    none_.clear();
    std::string& leader = fields.Leader().after;
    CodedField* field008 = fields.Field008();
    std::string& bytes008 = field008 == nullptr ? none_ : field008->after;
    const CFType form = MaterialOfLeader(leader);
    const char typeOfRecord = leader[kTypeOfRecord];
    const std::string_view section = Section(bytes008);

    CodedField* main007 = nullptr;
    additional_.clear();
    for (CodedField& field : fields.Fields()) {
        if (IsFormOf006(field.form)) additional_.push_back({&field, nullptr});
    }
    for (CodedField& field : fields.Fields()) {
        if (!IsFormOf007(field.form)) continue;
        if (field.form == CF007Microform) {
            RepairMicroform(field.after);
        } else if (main007 == nullptr && Belongs007To(form, typeOfRecord, section, field.form)) {
            main007 = &field;
        } else {
            AddFurther(field);
        }
    }
    std::string& bytes007 = main007 == nullptr ? none_ : main007->after;
    const MaterialType material = MaterialOf(form, typeOfRecord, section, bytes007);
    if (form == CF006Map) {
        RepairMap(material, {leader, bytes008, bytes007});
    } else {
        RepairMain(material, form, {leader, bytes008, bytes007});
    }
    for (const Additional& one : additional_) Repair(one);
}

}  // namespace quillory
