#include <quillory/exchange/Input.h>
#include <quillory/jobs/WorkformCatalog.h>
#include <quillory/jobs/WorkformDefaults.h>
#include <quillory/places/Tag.h>

#include <algorithm>
#include <vector>

namespace quillory {
namespace {

struct Setting {
    unsigned tag = 0;
    char code = 0;
    std::string data;
};

Setting ParseSetting(const std::string& text) {
    const std::size_t tagEnd = std::min(text.find_first_not_of("0123456789"), text.size());
    const bool hasSign = tagEnd == kTagSize && text.substr(tagEnd).starts_with('$');
    const std::size_t code = kTagSize + (hasSign ? 1 : 0);  // may be a digit
    const bool hasForm = tagEnd >= kTagSize && code + 1 < text.size() && text[code + 1] == '=';
    Setting setting;
    if (hasForm) {
        setting.tag = static_cast<unsigned>(std::stoi(text.substr(0, kTagSize)));
        setting.code = text[code];
    }
    if (setting.tag < kFirstDataTag || zorby::CTemplate::IsAnyValidSubfield(setting.code) == 0) {
        throw FileError("\"" + text +
                        "\" is no default text: 245a=TEXT is one for subfield a of field 245, from "
                        "010 to 999");
    }
    setting.data = WorkformText(text.substr(code + 2));
    return setting;
}

struct Subfield {
    unsigned tag;  // 0 continues a field
    char first;
    char second;
    char code;
    std::string data;
};
using Subfields = std::vector<Subfield>;

Subfields SubfieldsOf(const zorby::CInfoAboutDefaultDataList& list) {
    Subfields subfields;
    for (int i = 0; i < list.GetSize(); ++i) {
        const zorby::CInfoAboutDefaultData& data = *list.GetAt(i);
        subfields.push_back({data.GetTag(), data.GetIndicatorRaw(1), data.GetIndicatorRaw(2),
                             data.GetSubCode(), data.GetDefaultData()});
    }
    return subfields;
}

char IndicatorOf(const zorby::CTemplate& workform, unsigned tag, int which) {
    const char value = workform.FieldIndicator(tag, which);
    return value == '\0' ? '_' : value;
}

void Apply(const Setting& setting, const zorby::CTemplate& workform, Subfields& subfields) {
    const auto field = std::find_if(subfields.begin(), subfields.end(),
                                    [&](const Subfield& item) { return item.tag == setting.tag; });
    if (field == subfields.end()) {
        const auto place =
            std::find_if(subfields.begin(), subfields.end(),
                         [&](const Subfield& item) { return item.tag > setting.tag; });
        subfields.insert(place,
                         {setting.tag, IndicatorOf(workform, setting.tag, 1),
                          IndicatorOf(workform, setting.tag, 2), setting.code, setting.data});
        return;
    }
    const auto end = std::find_if(field + 1, subfields.end(),
                                  [](const Subfield& item) { return item.tag != 0; });
    const auto known =
        std::find_if(field, end, [&](const Subfield& item) { return item.code == setting.code; });
    if (known != end) {
        known->data = setting.data;
    } else {
        subfields.insert(end, {0, 0, 0, setting.code, setting.data});
    }
}

}  // namespace

void SetDefaultData(const std::string& setting, zorby::CTemplate& workform) {
    zorby::CInfoAboutDefaultDataList& list = workform.GetDefaultData();
    Subfields subfields = SubfieldsOf(list);
    Apply(ParseSetting(setting), workform, subfields);
    list.RemoveAll();
    for (const Subfield& item : subfields) {
        if (item.tag != 0) {
            list.AddDefaultData(item.tag, item.first, item.second, item.code, item.data);
        } else {
            list.AddDefaultData(item.code, item.data);
        }
    }
}

}  // namespace quillory
