#include <quillory/coded/Material.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace quillory {
namespace {

using namespace zorby;

struct MaterialForm {
    CFType type;
    std::string_view name;
    std::string_view letters;
};

constexpr MaterialForm kForms[] = {
    {CFLdr, "all", ""},
    {CF008Standard, "all", ""},
    {CF006Books, "books", "at"},
    {CF006ComputerFile, "computer files", "m"},
    {CF006Map, "maps", "ef"},
    {CF006MusicSound, "music", "cdij"},
    {CF006Continuing, "continuing resources", "s"},
    {CF006Visual, "visual materials", "gkor"},
    {CF006Mixed, "mixed materials", "p"},
    {CF007Map, "map", "a"},
    {CF007Electronic, "electronic resource", "c"},
    {CF007Globe, "globe", "d"},
    {CF007Tactile, "tactile material", "f"},
    {CF007Projected, "projected graphic", "g"},
    {CF007Microform, "microform", "h"},
    {CF007Nonprojected, "nonprojected graphic", "k"},
    {CF007MotionPicture, "motion picture", "m"},
    {CF007Kit, "kit", "o"},
    {CF007NotatedMusic, "notated music", "q"},
    {CF007RemoteSensing, "remote-sensing image", "r"},
    {CF007Sound, "sound recording", "s"},
    {CF007Text, "text", "t"},
    {CF007Video, "videorecording", "v"},
    {CF007Unspecified, "unspecified", "z"},
};

constexpr std::size_t kTypeOfRecord = 6;
// Type b was archival and manuscripts control until 1995; its records are mixed materials now.
constexpr char kArchivalType = 'b';

constexpr bool Is006(CFType type) {
    return CF006None < type && type < CF007None;
}

const MaterialForm* FindForm(CFType type) {
    const auto* form = std::find_if(std::begin(kForms), std::end(kForms),
                                    [type](const MaterialForm& f) { return f.type == type; });
    return form == std::end(kForms) ? nullptr : form;
}

using FormsByLetter = std::array<CFType, 256>;

constexpr FormsByLetter MakeFormsByLetter(bool of006, CFType none) {
    FormsByLetter forms{};
    forms.fill(none);
    for (const MaterialForm& form : kForms) {
        if (of006 ? !Is006(form.type) : form.type <= CF007None) continue;
        for (const char letter : form.letters) {
            forms[static_cast<unsigned char>(letter)] = form.type;
        }
    }
    return forms;
}

constexpr FormsByLetter kFormsOf006 = MakeFormsByLetter(true, CF006None);
constexpr FormsByLetter kFormsOf007 = MakeFormsByLetter(false, CF007None);

CFType FormOfLetter(char letter, const FormsByLetter& forms) {
    return forms[static_cast<unsigned char>(letter)];
}

// NUL for an empty field.
CFType FormOfField(std::string_view field, const FormsByLetter& forms) {
    return FormOfLetter(field.empty() ? '\0' : field.front(), forms);
}

constexpr bool IsContinuing(char level) {
    return level == 'b' || level == 'i' || level == 's';
}

std::vector<CFType> FormsBetween(CFType first, CFType last) {
    std::vector<CFType> forms;
    for (const MaterialForm& form : kForms) {
        if (first <= form.type && form.type <= last) forms.push_back(form.type);
    }
    return forms;
}

}  // namespace

MarcFormat MarcFormatOf(std::string_view leader) {
    switch (leader.size() > kTypeOfRecord ? leader[kTypeOfRecord] : '\0') {
        case 'z':
            return kFormatAuthority;
        case 'w':
            return kFormatClassification;
        case 'q':
            return kFormatCommunity;
        case 'u':
        case 'v':
        case 'x':
        case 'y':
            return kFormatHoldings;
        default:
            return kFormatBibliographic;
    }
}

bool IsBibliographic(std::string_view leader) {
    return MarcFormatOf(leader) == kFormatBibliographic;
}

CFType MaterialOfLeader(std::string_view leader) {
    if (leader.size() <= kBibliographicLevel) return CF006None;
    if (leader[kTypeOfRecord] == kArchivalType) return CF006Mixed;
    // A serial has no type of its own in the Leader: the bibliographic level tells it.
    const CFType form = FormOfLetter(leader[kTypeOfRecord], kFormsOf006);
    if (form == CF006Continuing) return CF006None;
    const bool isContinuing = IsContinuing(leader[kBibliographicLevel]);
    return form == CF006Books && isContinuing ? CF006Continuing : form;
}

CFType MaterialOf006(std::string_view field006) {
    return FormOfField(field006, kFormsOf006);
}

CFType CategoryOf007(std::string_view field007) {
    return FormOfField(field007, kFormsOf007);
}

const std::vector<CFType>& FormsOf006() {
    static const std::vector<CFType> forms = FormsBetween(CF006Books, CF006Visual);
    return forms;
}

const std::vector<CFType>& FormsOf007() {
    static const std::vector<CFType> forms = FormsBetween(CF007Map, CF007Kit);
    return forms;
}

std::string_view FormName(CFType form) {
    const MaterialForm* found = FindForm(form);
    return found == nullptr ? "" : found->name;
}

std::string_view FormLetters(CFType form) {
    const MaterialForm* found = FindForm(form);
    return found == nullptr ? "" : found->letters;
}

std::string MaterialText(std::string_view leader) {
    const std::string_view name = FormName(MaterialOfLeader(leader));
    if (!name.empty()) return std::string(name);
    switch (MarcFormatOf(leader)) {
        case kFormatAuthority:
            return "authority data";
        case kFormatClassification:
            return "classification data";
        case kFormatCommunity:
            return "community information";
        case kFormatHoldings:
            return "holdings";
        default:
            return "unknown material";
    }
}

}  // namespace quillory
