#include <quillory/checks/LibraryRepair.h>
#include <quillory/checks/RepairMaterial.h>
#include <quillory/coded/Elements.h>
#include <quillory/coded/Material.h>
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

std::string WithoutZeros(const std::string& field) {
    std::string bytes = field;
    std::replace(bytes.begin(), bytes.end(), '\0', kInsteadOfZero);
    return bytes;
}

// Takes what the library made of a field; what it left alone stays as it was.
void Take(const std::string& repaired, std::string& field) {
    const std::size_t size = std::min(field.size(), repaired.size());
    for (std::size_t i = 0; i < size; ++i) {
        if (field[i] != '\0' || repaired[i] != kInsteadOfZero) field[i] = repaired[i];
    }
}

// The material section of an 008 in the positions of 006; that of none is empty.
std::string_view Section(std::string_view field008) {
    if (field008.size() <= kMaterialOffset008) return {};
    return field008.substr(kMaterialOffset008, kSectionSize);
}

struct MainFields {
    std::string& leader;
    std::string& field008;  // empty if there is none
    std::string& field007;
};

void RepairMain(MaterialType material, CFType form, const MainFields& fields) {
    const bool has008 = fields.field008.size() > kFormOfItem008;
    const char formOfItem = has008 ? fields.field008[kFormOfItem008] : ' ';
    // Without a 007 the format of the workform counts, by which the library finds its defaults.
    CFType type006 = CF006None;
    CFType type007 = CategoryOf007(fields.field007);
    if (type007 == CF007None) {
        CTemplateList::Get006007TypesForMaterialType(material, formOfItem, type006, type007);
    }
    CCFMainMaterial main;
    main.Create(form, type007, WithoutZeros(fields.leader), "", WithoutZeros(fields.field007),
                WithoutZeros(fields.field008), "");
    main.SetInvalidValuesToDefault(nullptr, nullptr, material);
    std::string leader, field007, field008, second006;
    main.GetAll(leader, field007, field008, second006);
    Take(leader, fields.leader);
    Take(field007, fields.field007);
    Take(field008, fields.field008);
}

void RepairAdditional(MaterialType material, std::string& field006, std::string& field007) {
    CCFAdditionalMaterial additional;
    additional.Create(material, MaterialOf006(field006), CategoryOf007(field007), "", "");
    additional.Set006Complete(WithoutZeros(field006));
    additional.Set007Complete(WithoutZeros(field007));
    additional.SetInvalidValuesToDefault(nullptr, nullptr);
    std::string repaired006, repaired007;
    additional.GetAll(repaired006, repaired007);
    Take(repaired006, field006);
    Take(repaired007, field007);
}

void RepairMicroform(std::string& field007) {
    const char formOfItem = CCFMainMaterial::FormOfItemFrom007Byte1(field007[1]);
    std::string leader(24, ' ');
    std::string field008(40, ' ');
    field008[kFormOfItem008] = formOfItem == ' ' ? 'a' : formOfItem;
    RepairMain(MTBook, CF006Books, {leader, field008, field007});
}

// A further 006, a 007, or both.
struct Additional {
    CodedField* field006 = nullptr;
    CodedField* field007 = nullptr;

    bool GoesWith(CFType category) const {
        if (field006 == nullptr || field007 != nullptr) return false;
        const std::string& bytes = field006->after;
        return Belongs007To(field006->form, bytes.front(), bytes, category);
    }

    void Repair() const {
        std::string none;
        std::string& bytes006 = field006 == nullptr ? none : field006->after;
        std::string& bytes007 = field007 == nullptr ? none : field007->after;
        const MaterialType material =
            field006 == nullptr ? MaterialOf007(bytes007)
                                : MaterialOf(field006->form, bytes006.front(), bytes006, bytes007);
        RepairAdditional(material, bytes006, bytes007);
    }
};

void AddTo(std::vector<Additional>& additional, CodedField& field007) {
    const auto partner =
        std::find_if(additional.begin(), additional.end(),
                     [&](const Additional& a) { return a.GoesWith(field007.form); });
    if (partner != additional.end()) {
        partner->field007 = &field007;
    } else {
        additional.push_back({nullptr, &field007});
    }
}

}  // namespace

void RepairByLibrary(CodedFields& fields) {
    std::string none008, none007;
    std::string& leader = fields.Leader().after;
    CodedField* field008 = fields.Field008();
    std::string& bytes008 = field008 == nullptr ? none008 : field008->after;
    const CFType form = MaterialOfLeader(leader);
    const char typeOfRecord = leader[kTypeOfRecord];
    const std::string_view section = Section(bytes008);

    CodedField* main007 = nullptr;
    std::vector<Additional> additional;
    for (CodedField& field : fields.Fields()) {
        if (IsFormOf006(field.form)) additional.push_back({&field, nullptr});
    }
    for (CodedField& field : fields.Fields()) {
        if (!IsFormOf007(field.form)) continue;
        if (field.form == CF007Microform) {
            RepairMicroform(field.after);
        } else if (main007 == nullptr && Belongs007To(form, typeOfRecord, section, field.form)) {
            main007 = &field;
        } else {
            AddTo(additional, field);
        }
    }
    std::string& bytes007 = main007 == nullptr ? none007 : main007->after;
    RepairMain(MaterialOf(form, typeOfRecord, section, bytes007), form,
               {leader, bytes008, bytes007});
    for (const Additional& one : additional) one.Repair();
}

}  // namespace quillory
