#include <zorby/controlfields/AdditionalMaterialsList.h>
#include <zorby/controlfields/MainMaterial.h>
#include <zorby/controlfields/detail/RepairChecker.h>
#include <zorby/controlfields/detail/StandardWorkforms.h>

namespace zorby {
namespace {

constexpr std::size_t kFormOfItem006 = 6;
constexpr char kMicroform = 'h';

}  // namespace

void CCFAdditionalMaterial::SetInvalidValuesToDefault(ReplacedPartCallback callback,
                                                      void* context) {
    const MaterialType material = material_;
    CheckPartsAgainstDefaults({[material] { return Default006For(material); },
                               type006_ == CF006None ? nullptr : table006_, field006_, callback,
                               type006_, context, material, false, FirstRow::Tested});
    const MaterialType of007 = type007_ == CF007RemoteSensing ? MTRemoteSensing : material;
    CheckPartsAgainstDefaults({[of007] { return Default007For(of007, '\0'); },
                               table007_,
                               {field007_.data(), k007Size},
                               callback,
                               type007_,
                               context,
                               material,
                               CCFMainMaterial::IsMicroform(type006_, table006_, Field006()),
                               FirstRow::Tested});
    MatchFormOfItemToMicroform(callback, context);
}

// This writes position 6 whatever the format of the 006 is.
void CCFAdditionalMaterial::MatchFormOfItemToMicroform(ReplacedPartCallback callback,
                                                       void* context) {
    if (field007_[0] != kMicroform) return;
    const char formOfItem = CCFMainMaterial::FormOfItemFrom007Byte1(field007_[1]);
    if (field006_[kFormOfItem006] == formOfItem) return;
    field006_[kFormOfItem006] = formOfItem;
    if (callback != nullptr) callback(CFP006BooksFormOfItem, context);
}

void CCFAdditionalMaterial::NonMusicalSoundRecordingFixup() {
    std::string type;
    std::string literaryText;
    Get(CFP006MusicSoundTypeOfRecordMusic, type);
    if (type != "i") return;
    Get(CFP006MusicSoundLiteraryText, literaryText);
    if (literaryText == "  ") Set(CFP006MusicSoundLiteraryText, "z ");
}

void CCFAdditionalMaterialsList::NonMusicalSoundRecordingFixup() {
    for (const auto& entry : entries_) entry->NonMusicalSoundRecordingFixup();
}

}  // namespace zorby
