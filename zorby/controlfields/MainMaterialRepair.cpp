#include <zorby/controlfields/MainMaterial.h>
#include <zorby/controlfields/detail/RepairChecker.h>
#include <zorby/workforms/TemplateList.h>

namespace zorby {
namespace {

constexpr std::size_t kFormOfItem008 = 23;

}  // namespace

void CCFMainMaterial::SetInvalidValuesToDefault(ReplacedPartCallback callback, void* context,
                                                MaterialType material) {
    using detail::CheckPartsAgainstDefaults;
    using detail::FirstRow;
    using detail::kAnyMaterial;
    const CFType type006 = type006_;
    const CFType type007 = type007_;
    const auto check = [&](auto defaultText, const tagCFOFFSETENTRY* table, std::span<char> buffer,
                           MaterialType tested, bool isMicroform, FirstRow firstRow) {
        CheckPartsAgainstDefaults({defaultText, table, buffer, callback, type006, context, tested,
                                   isMicroform, firstRow});
    };
    check([=] { return CTemplateList::DefaultLdr(type006, type007); }, leaderTable_,
          {leader_.data(), kLeaderSize}, kAnyMaterial, true, FirstRow::Tested);
    check([=] { return CTemplateList::Default008(type006, type007); }, table008_,
          {field008_.data(), k008Size}, kAnyMaterial, true, FirstRow::Tested);
    if (table007_ != nullptr) {
        const std::string text = CTemplateList::Default007(material, field008_[kFormOfItem008]);
        const bool isMicroform = IsMicroform(type006, table006_, {image006_.data(), k006Size});
        if (!text.empty()) {
            check([&text] { return text; }, table007_, {field007_.data(), k007Size}, material,
                  isMicroform, FirstRow::Tested);
        }
    }
    const bool isByMaterial = type006 == CF006ComputerFile && type007 == CF007Electronic;
    check(
        [=] {
            return isByMaterial ? CTemplateList::Default006(material)
                                : CTemplateList::Default006(type006, type007);
        },
        table006_, {image006_.data(), k006Size}, material, true, FirstRow::Skipped);
}

void CCFMainMaterial::NonMusicalSoundRecordingFixup() {
    std::string type;
    std::string literaryText;
    Get(CFPLdrTypeOfRecordMusic, type);
    if (type != "i") {
        Set(CFP006MusicSoundLiteraryText, "  ");
        return;
    }
    Get(CFP006MusicSoundLiteraryText, literaryText);
    if (literaryText == "  ") Set(CFP006MusicSoundLiteraryText, "z ");
}

}  // namespace zorby
