#include <quillory/exchange/Subfields.h>
#include <quillory/holdings/CopyFields.h>
#include <quillory/places/Tag.h>
#include <zorby/record/Pmarc.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr std::string_view kLocation = "852";

// The prefix of a call number comes before the number itself, as it is read.
std::string WithPrefixFirst(const std::string& content) {
    std::string before;
    std::string prefix;
    std::string rest;
    ForEachSubfield(content, [&](char code, std::string_view text) {
        const bool isNumber = code == 'h' || code == 'i' || code == 'j';
        std::string& part = code == 'k' ? prefix : isNumber || !rest.empty() ? rest : before;
        part.append(1, zorby::kDelimiter).append(1, code).append(text);
    });
    return content.substr(0, kIndicators) + before + prefix + rest;
}

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
        if (own.tag == kLocation) own.content = WithPrefixFirst(own.content);
        made.push_back(std::move(own));
    }
    return made;
}

}  // namespace quillory
