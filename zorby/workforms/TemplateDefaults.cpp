#include <zorby/controlfields/detail/StandardWorkforms.h>
#include <zorby/platform/ClockPort.h>
#include <zorby/workforms/TemplateList.h>

#include <algorithm>

namespace zorby {
namespace {

// The 008 from its material section on has the layout of the 006 from position 0 on.
constexpr std::size_t k008Size = 40;
constexpr std::size_t k006Size = 18;
constexpr std::size_t kFrom006To008 = 17;
constexpr std::size_t kFormOfItem006 = 6;
constexpr std::size_t kFormOfItem008 = 23;
constexpr const char* kBlankMicroform = "             ";

std::string Leader(const CTemplate* workform) {
    return workform == nullptr ? "" : workform->GetMainMaterial().GetLeader();
}

std::string Field007(const CTemplate* workform) {
    return workform == nullptr ? "" : workform->GetMainMaterial().GetField007();
}

std::string Second006(const CTemplate* workform) {
    return workform == nullptr ? "" : workform->GetMainMaterial().GetSecond006();
}

std::string Field008(const CTemplate* workform) {
    return workform == nullptr ? "" : workform->GetMainMaterial().GetField008();
}

std::string Field006Of008(const CTemplate* workform) {
    const std::string field008 = Field008(workform);
    const std::size_t kept = std::min(k008Size - kFrom006To008, field008.size());
    return field008.substr(field008.size() - kept, k006Size);
}

std::string DatedToday(std::string field008) {
    char date[] = "yymmdd";
    const std::tm today = CurrentClockPort().LocalTime();
    std::strftime(date, sizeof date, "%y%m%d", &today);
    const std::string_view digits = date;
    return field008.replace(0, std::min(digits.size(), field008.size()), digits.data(),
                            std::min(digits.size(), field008.size()));
}

bool MayBeElectronic(MaterialType material) {
    return material == MTBook || material == MTSerial || material == MTMusic || material == MTMixed;
}

}  // namespace

void CTemplateList::GetMaterialTypeName(MaterialType material, std::string& name) {
    if (const CTemplate* workform = GetTemplate(material)) {
        name = workform->GetName();
        return;
    }
    switch (material) {
        case MTText:
            name = "Text";
            break;
        case MTUnspecified:
            name = "Unspecified";
            break;
        case MTTactile:
            name = "Tactile Material";
            break;
        case MTNotatedMusic:
            name = "Notated Music";
            break;
        default:
            break;
    }
}

void CTemplateList::Get006007TypesForMaterialType(MaterialType material, char form, CFType& type006,
                                                  CFType& type007) {
    const CTemplate* workform = GetTemplate(material);
    type006 = workform == nullptr ? CF006None : workform->GetMainMaterial().Get006Type();
    type007 = workform == nullptr ? CF007None : workform->GetMainMaterial().Get007Type();
    if (workform != nullptr && MayBeElectronic(material) && (form == 's' || form == 'o')) {
        type007 = CF007Electronic;
    }
}

std::string CTemplateList::Default007(MaterialType material, char form) {
    switch (form) {
        case 'a':
            return Default007From007Byte1('d', nullptr);
        case 'b':
            return Default007From007Byte1('e', nullptr);
        case 'c':
            return Default007From007Byte1('g', nullptr);
        default:
            break;
    }
    if (MayBeElectronic(material)) return form == 's' ? "cr bn ---uuuuu" : kBlankMicroform;
    switch (material) {
        case MTComputerFileOther:
            return "cr cma        ";
        case MTText:
            return "ta";
        case MTUnspecified:
            return "zz";
        case MTTactile:
            return "fu|uuuuuuu";
        case MTNotatedMusic:
            return "qu";
        default:
            return Field007(GetTemplate(material));
    }
}

std::string CTemplateList::Default007From007Byte1(char designation, const char* existing) {
    const std::string field007 = [designation]() -> std::string {
        switch (designation) {
            case 'a':
                return "ha bpu---bucu";
            case 'b':
                return "hb bdu---bucu";
            case 'c':
                return "hc bdu---bucu";
            case 'e':
                return "he bmb---bucu";
            case 'f':
                return "hf bmb---bucu";
            case 'g':
                return "hg aob---bncn";
            case 'h':
                return "hh bdu---bucu";
            case 'j':
                return "hj bdu---bucu";
            case 'z':
                return "hz uuu---uucu";
            default:
                return "hd bdu---bucu";
        }
    }();
    const std::string_view field = existing == nullptr ? "" : existing;
    const std::size_t position = field.size() == k008Size ? kFormOfItem008 : kFormOfItem006;
    const bool isNoMicroform = position < field.size() && field[position] == ' ';
    return isNoMicroform ? std::string(field007.size(), ' ') : field007;
}

std::string CTemplateList::Default007(E_ERROR_CODE error) {
    switch (error) {
        case EC_No007Microfilm:
            return Default007(MTBook, 'a');
        case EC_No007Microfiche:
            return Default007(MTBook, 'b');
        case EC_No007Microopaque:
            return Default007(MTBook, 'c');
        case EC_No007Filmslip:
            return "gd cu  u ";
        case EC_No007Slide:
            return "gs cu  u ";
        case EC_No007Transparency:
            return "gt cu  u ";
        case EC_No007OtherProjected:
            return "gz cu  u ";
        case EC_No007Electronic:
            return Default007(MTBook, 's');
        default:
            return "";
    }
}

std::string CTemplateList::DefaultLdr(CFType type006, CFType type007) {
    return Leader(GetTemplate(type006, type007));
}

std::string CTemplateList::Default006(MaterialType material) {
    if (material == MTText || material == MTTactile || material == MTNotatedMusic) return "";
    std::string field006 = Field006Of008(GetTemplate(material));
    if (!field006.empty()) {
        field006[0] = CCFAdditionalMaterial::ByteZeroForMaterialType(material);
    }
    return field006;
}

std::string CTemplateList::Default006(CFType type006, CFType type007) {
    return type006 == CF006None ? "" : Field006Of008(GetTemplate(type006, type007));
}

std::string CTemplateList::Default006Additional(MaterialType material) {
    return Second006(GetTemplate(material));
}

std::string CTemplateList::Default008(MaterialType material) {
    return DatedToday(Field008(GetTemplate(material)));
}

std::string CTemplateList::Default008(CFType type006, CFType type007) {
    return DatedToday(Field008(GetTemplate(type006, type007)));
}

std::string Default006For(MaterialType material) {
    return CTemplateList::Default006(material);
}

std::string Default006For(CFType type006, CFType type007) {
    return CTemplateList::Default006(type006, type007);
}

std::string Default007For(MaterialType material, char form) {
    return CTemplateList::Default007(material, form);
}

std::string Default008For(CFType type006, CFType type007) {
    return Field008(CTemplateList::GetTemplate(type006, type007));
}

std::string DefaultLdrFor(CFType type006, CFType type007) {
    return CTemplateList::DefaultLdr(type006, type007);
}

void NameOfMaterial(MaterialType material, std::string& name) {
    CTemplateList::GetMaterialTypeName(material, name);
}

}  // namespace zorby
