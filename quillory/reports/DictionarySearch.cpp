#include <quillory/places/Tag.h>
#include <quillory/reports/DictionaryNames.h>
#include <quillory/reports/DictionarySearch.h>
#include <quillory/reports/ScreenText.h>
#include <quillory/text/QmText.h>
#include <zorby/charset/Compare.h>
#include <zorby/format/MARCFormat.h>

#include <algorithm>
#include <sstream>

namespace quillory {
namespace {

using zorby::EDISPLAYOPTIONS;

// In the library's one-byte code, as its names are.
std::vector<std::string> Words(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) {
        std::string qm;
        zorby::CSMakeLower(Utf8ToQm(word, qm) ? qm : qm = word);
        words.push_back(qm);
    }
    return words;
}

bool HasWords(std::string name, const std::vector<std::string>& words) {
    zorby::CSMakeLower(name);
    return std::all_of(words.begin(), words.end(),
                       [&name](const std::string& word) { return name.find(word) != name.npos; });
}

// " - Title statement": the field to which a hit belongs.
std::string OfField(unsigned tag) {
    return " - " + FieldName(tag, zorby::EDO_NameOnly);
}

SearchHit HitOf(const zorby::CInfoAboutField& field, EDISPLAYOPTIONS display) {
    return {TagText(field.GetTag()), FieldName(field.GetTag(), display)};
}

SearchHit HitOf(const zorby::CInfoAboutSubfield& subfield, EDISPLAYOPTIONS display) {
    const unsigned tag = subfield.GetTag();
    return {TagText(tag) + subfield.GetCode(),
            SubfieldName(tag, subfield.GetCode(), display) + OfField(tag)};
}

SearchHit HitOf(const zorby::CInfoAboutIndicatorValue& value, EDISPLAYOPTIONS) {
    return {TagText(value.GetTag()) + "/" + std::to_string(value.GetWhich()),
            IndicatorText(value.GetValue()) + " " + QmToUtf8(value.GetName()) +
                OfField(value.GetTag())};
}

template <class List>
void AddHits(const List& list, const std::vector<std::string>& words, EDISPLAYOPTIONS display,
             SearchHits& hits) {
    for (int i = 0; i < list.GetSize(); ++i) {
        const auto& item = *list.GetAt(i);
        if (HasWords(item.GetName(), words)) hits.push_back(HitOf(item, display));
    }
}

}  // namespace

SearchHits SearchDictionary(const std::string& text, EDISPLAYOPTIONS display) {
    SearchHits hits;
    const zorby::CMARCFormat* format = zorby::CMARCFormat::TheOneAndOnly();
    const std::vector<std::string> words = Words(text);
    if (format == nullptr || words.empty()) return hits;
    AddHits(format->GetFields(), words, display, hits);
    AddHits(format->GetSubfields(), words, display, hits);
    AddHits(format->GetIndicatorValues(), words, display, hits);
    return hits;
}

std::string ToText(const SearchHits& hits) {
    constexpr std::size_t kPlaceWidth = 8;
    std::string text;
    for (const SearchHit& hit : hits) text += Padded(hit.place, kPlaceWidth) + hit.name + "\n";
    return text;
}

void ToJson(const SearchHit& hit, JsonWriter& json) {
    json.BeginObject();
    json.Member("place", hit.place);
    json.Member("name", hit.name);
    json.EndObject();
}

}  // namespace quillory
