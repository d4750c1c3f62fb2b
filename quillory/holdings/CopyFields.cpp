#include <quillory/holdings/CopyFields.h>
#include <quillory/places/Tag.h>
#include <zorby/record/Pmarc.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr std::size_t kIndicators = 2;

}  // namespace

std::vector<CopyField> FieldsOfCopy(const zorby::CHoldingsDataRecord& copy,
                                    const HoldingsSystem& system,
                                    const std::vector<zorby::CommFormatField>& origin) {
    zorby::CPmarc marc;
    copy.AddToPseudoMARC(marc);
    std::vector<CopyField> made;
    for (const std::string& field : marc) {
        if (field.size() <= kTagSize + kIndicators) continue;
        CopyField own{field.substr(0, kTagSize), field.substr(kTagSize)};
        const auto same = std::ranges::find(origin, own.tag, &zorby::CommFormatField::tag);
        const bool keepsIndicators =
            system.Rules().indicators == nullptr || !system.HasTag(own.tag);
        if (same != origin.end() && keepsIndicators) {
            own.content.replace(0, kIndicators, same->content.substr(0, kIndicators));
        }
        made.push_back(std::move(own));
    }
    return made;
}

}  // namespace quillory
