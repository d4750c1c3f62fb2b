#include <quillory/coded/Material.h>
#include <quillory/repair/LibraryRepair.h>
#include <quillory/repair/MaterialCodes.h>
#include <zorby/controlfields/AdditionalMaterial.h>
#include <zorby/workforms/TemplateList.h>

#include <algorithm>

namespace quillory {
namespace {

using namespace zorby;

constexpr std::size_t kFormOfItem008 = 23;

// The library reads a field up to its first zero byte. So it is given another byte instead of each,
// which no element allows either.
constexpr char kInsteadOfZero = '\1';

// A view of the field, or of `copy`, if the field has zero bytes.
std::string_view WithoutZeros(const std::string& field, std::string& copy) {
    if (field.find('\0') == field.npos) return field;
    copy = field;
    std::replace(copy.begin(), copy.end(), '\0', kInsteadOfZero);
    return copy;
}

// Takes what the library made of a field. A zero byte that it did not replace stays one.
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

bool HasWorkformWithout007(MaterialType material) {
    return material == MTBook || material == MTSerial || material == MTMixed || material == MTMusic;
}

}  // namespace

void LibraryRepair::Run(CodedFields& fields) {
    materials_.Sort(fields);
    for (CodedField* microform : materials_.Microforms()) RepairMicroform(microform->bytes);
    RepairMain();
    for (const AdditionalFields& additional : materials_.Additional()) Repair(additional);
}

// As the 007 of a book in this microform.
void LibraryRepair::RepairMicroform(std::string& field007) {
    const char formOfItem = CCFMainMaterial::FormOfItemFrom007Byte1(field007[1]);
    std::string leader(24, ' ');
    std::string field008(40, ' ');
    field008[kFormOfItem008] = formOfItem == ' ' ? 'a' : formOfItem;
    Repair(MTBook, CF006Books, {leader, field008, field007});
}

void LibraryRepair::RepairMain() {
    const MainFields fields{materials_.Leader().bytes, BytesOf(materials_.Field008()),
                            BytesOf(materials_.Field007())};
    const MaterialCodes codes = MaterialCodes::OfRecord(fields.leader, fields.field008);
    const MaterialType material = MaterialOf(codes, fields.field007);
    if (codes.form == CF006Map) {
        RepairMap(material, fields);
    } else {
        Repair(material, codes.form, fields);
    }
}

// The library takes 008/23 for a form of item, and one that is a microform's gives the 007 a
// microform's default. In the 008 of a map the byte is part of the projection. So the 007 is
// repaired beside a copy of the 008 with a blank there, and then Leader and 008 without the 007.
void LibraryRepair::RepairMap(MaterialType material, const MainFields& fields) {
    std::string leader = fields.leader;
    std::string field008 = fields.field008;
    if (field008.size() > kFormOfItem008) field008[kFormOfItem008] = ' ';
    Repair(material, CF006Map, {leader, field008, fields.field007});
    Repair(material, CF006Map, {fields.leader, fields.field008, none_});
}

void LibraryRepair::Repair(MaterialType material, CFType form, const MainFields& fields) {
    const bool has008 = fields.field008.size() > kFormOfItem008;
    const char formOfItem = has008 ? fields.field008[kFormOfItem008] : ' ';
    // The library finds the workform by the forms of 006 and 007 together. A record without a 007
    // goes by the 007 of its material's workform.
    CFType form006 = CF006None;
    CFType form007 = CategoryOf007(fields.field007);
    if (form007 == CF007None && !HasWorkformWithout007(material)) {
        CTemplateList::Get006007TypesForMaterialType(material, formOfItem, form006, form007);
    }
    main_.Create(form, form007, WithoutZeros(fields.leader, leader_), "",
                 WithoutZeros(fields.field007, field007_), WithoutZeros(fields.field008, field008_),
                 "");
    main_.SetInvalidValuesToDefault(nullptr, nullptr, material);
    main_.GetAll(leader_, field007_, field008_, field006_);
    Take(leader_, fields.leader);
    Take(field007_, fields.field007);
    Take(field008_, fields.field008);
}

void LibraryRepair::Repair(const AdditionalFields& fields) {
    std::string& field006 = BytesOf(fields.field006);
    std::string& field007 = BytesOf(fields.field007);
    const MaterialType material =
        fields.field006 == nullptr
            ? MaterialOf007(field007)
            : MaterialOf(MaterialCodes::Of006(fields.field006->form, field006), field007);
    CCFAdditionalMaterial additional;
    additional.Create(material, MaterialOf006(field006), CategoryOf007(field007), "", "");
    additional.Set006Complete(WithoutZeros(field006, field006_));
    additional.Set007Complete(WithoutZeros(field007, field007_));
    additional.SetInvalidValuesToDefault(nullptr, nullptr);
    additional.GetAll(field006_, field007_);
    Take(field006_, field006);
    Take(field007_, field007);
}

std::string& LibraryRepair::BytesOf(CodedField* field) {
    return field == nullptr ? none_ : field->bytes;
}

}  // namespace quillory
