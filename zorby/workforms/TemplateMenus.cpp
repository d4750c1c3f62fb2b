#include <zorby/format/MARCFormat.h>
#include <zorby/text/General.h>
#include <zorby/text/detail/ValidSubfieldCodes.h>
#include <zorby/workforms/Template.h>

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace zorby {
namespace {

constexpr unsigned kHighestTag = 999;
constexpr unsigned kFirstControlTag = 5;
constexpr unsigned kLastControlTag = 8;
constexpr char kSearsValue = '7';
constexpr char kBlankValue = '_';

// A menu that is being made: elements with codes of one character.
using Elements = std::vector<std::pair<char, std::string>>;

std::unique_ptr<CMARCInfo> SortedMenu(const Elements& elements) {
    auto menu = std::make_unique<CMARCInfo>(0, 1, static_cast<int>(elements.size()));
    int index = 0;
    for (const auto& [code, text] : elements) menu->SetElement(index++, &code, text);
    menu->Sort();
    return menu;
}

Elements IndicatorValues(unsigned tag, int which, EDISPLAYOPTIONS option) {
    Elements elements;
    for (const auto* value = CMARCFormat::GetIndicatorValueMatchFirst(tag, which); value != nullptr;
         value = CMARCFormat::GetIndicatorValueMatchNext(tag, which)) {
        std::string name;
        value->Name(option, name);
        elements.emplace_back(value->GetValue(), name);
    }
    return elements;
}

std::string UndefinedValueName(unsigned tag, int which, EDISPLAYOPTIONS option) {
    CInfoAboutIndicatorValue undefined;
    undefined.Create(tag, which, kBlankValue, "Undefined");
    std::string name;
    undefined.Name(option, name);
    return name;
}

}  // namespace

std::unique_ptr<CTagArray> CTemplate::FieldsAvailableToAdd(const CTagArray& existing,
                                                           int allowRepeats, unsigned extraTag) {
    auto tags = CMARCFormat::AllTags(0, kHighestTag);
    std::erase_if(*tags, [&](unsigned tag) {
        return allowRepeats == 0 && existing.Find(tag) != 0 && FieldRepeatable(tag) == 0;
    });
    if (extraTag != 0 && tags->Find(extraTag) == 0) tags->push_back(extraTag);
    return tags;
}

std::unique_ptr<CTagArray> CTemplate::FieldsAvailableToAddViaMenu(const CTagArray& existing,
                                                                  unsigned extraTag) {
    return FieldsAvailableToAdd(existing, 0, extraTag);
}

std::unique_ptr<CTagArray> CTemplate::FieldsAvailableToAddViaEdit(const CTagArray& existing,
                                                                  int allowRepeats, int allowAny,
                                                                  unsigned extraTag) {
    auto tags = FieldsAvailableToAdd(existing, allowRepeats, extraTag);
    if (allowAny == 0) return tags;
    for (unsigned tag = 1; tag <= kHighestTag; ++tag) {
        const bool isControlField = kFirstControlTag <= tag && tag <= kLastControlTag;
        if (isControlField || (allowRepeats == 0 && FieldRepeatable(tag) == 0)) continue;
        tags->push_back(tag);
    }
    return tags;
}

void CTemplate::SubfieldsAvailableToAdd(unsigned tag, std::string_view used, int allowRepeats,
                                        char extraCode, std::string& codes) {
    CMARCFormat::AllSubfieldCodes(tag, codes);
    std::erase_if(codes, [&](char code) {
        return allowRepeats == 0 && used.find(code) != std::string_view::npos &&
               SubfieldRepeatable(tag, code) == 0;
    });
    if (extraCode != '\0' && codes.find(extraCode) == std::string::npos) codes += extraCode;
}

void CTemplate::SubfieldsAvailableToAddViaMenu(unsigned tag, std::string_view used, char extraCode,
                                               std::string& codes) {
    SubfieldsAvailableToAdd(tag, used, 0, extraCode, codes);
}

void CTemplate::SubfieldsAvailableToAddViaEdit(unsigned tag, std::string_view used,
                                               int allowRepeats, int allowAny, char extraCode,
                                               std::string& codes) {
    SubfieldsAvailableToAdd(tag, used, allowRepeats, extraCode, codes);
    if (allowAny != 0) codes += kValidSubfieldCodes;
}

int CTemplate::IsAnyValidSubfield(char code) {
    return CMARCFormat::IsAnyValidSubfield(code);
}

std::unique_ptr<CMARCInfo> CTemplate::MARCInfoFieldTagAndName(const CTagArray& tags,
                                                              EDISPLAYOPTIONS option) {
    if (tags.empty()) return nullptr;
    auto menu = std::make_unique<CMARCInfo>(1, 0, static_cast<int>(tags.size()));
    int index = 0;
    for (const std::uint32_t tag : tags) {
        std::string name;
        CMARCFormat::FieldName(tag, option, name);
        menu->SetElement(index++, &tag, name);
    }
    menu->Sort();
    return menu;
}

std::unique_ptr<CMARCInfo> CTemplate::MARCInfoSubfieldCodeAndName(unsigned tag,
                                                                  std::string_view codes,
                                                                  EDISPLAYOPTIONS option) {
    if (codes.empty()) return nullptr;
    Elements elements;
    for (const char code : codes) {
        std::string name;
        CMARCFormat::SubfieldName(tag, code, option, name);
        elements.emplace_back(code, name);
    }
    return SortedMenu(elements);
}

std::unique_ptr<CMARCInfo> CTemplate::MARCInfoIndicatorCodeAndText(unsigned tag, int which,
                                                                   EDISPLAYOPTIONS option,
                                                                   bool addSears) {
    Elements elements = IndicatorValues(tag, which, option);
    if (elements.empty()) {
        elements.emplace_back(kBlankValue, UndefinedValueName(tag, which, option));
    } else if (addSears && which == 2 &&
               CGeneral::IsSubjectWithSecondInd(static_cast<int>(tag)) != 0) {
        elements.emplace_back(kSearsValue, "Sears specified in $2");
    }
    return SortedMenu(elements);
}

void CTemplate::MARCInfoIndicators(unsigned tag, std::unique_ptr<CMARCInfo>& list1,
                                   std::unique_ptr<CMARCInfo>& list2, std::string& explanation1,
                                   std::string& explanation2, std::string& name1,
                                   std::string& name2, EDISPLAYOPTIONS option) const {
    list1 = MARCInfoIndicatorCodeAndText(tag, 1, option, true);
    list2 = MARCInfoIndicatorCodeAndText(tag, 2, option, true);
    MARCInfoIndicatorExplanationFor(tag, 1, explanation1);
    MARCInfoIndicatorExplanationFor(tag, 2, explanation2);
    MARCInfoIndicatorNameFor(tag, 1, option, name1);
    MARCInfoIndicatorNameFor(tag, 2, option, name2);
}

}  // namespace zorby
