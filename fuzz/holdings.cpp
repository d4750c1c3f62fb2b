#include <zorby/holdings/HoldingsSelector.h>
#include <zorby/ini/KeysNValues.h>
#include <zorby/platform/ProfileFilePort.h>
#include <zorby/settings/Profile.h>
#include <zorby/text/General.h>

#include <fuzz/HoldingsDictionary.h>
#include <fuzz/Persisted.h>
#include <fuzzer/FuzzedDataProvider.h>

namespace zorby {
namespace {

using fuzz::Expect;

void CheckType(const CInfoAboutHoldingsType& type) {
    const std::string tags = type.GetCurrentHoldingsFields();
    for (int i = 0; i < type.GetSize(); ++i) {
        const CInfoAboutHoldingsField& field = *type.GetAt(i);
        Expect(type.FindField(field.GetTag()), "a tag is found");
        Expect(type.GetFieldInfo(field.GetHoldingsID()) != nullptr, "an element is found");
        Expect(type.FindFieldAndSubfield(field.GetTag(), field.GetSubfield()) != nullptr,
               "a subfield is found");
        Expect(type.GetHoldingsTypeID() == HT_MANDARIN_EZ ||
                   tags.find(std::to_string(field.GetTag())) != std::string::npos,
               "a tag is told");
    }
}

void CheckFile(const std::string& bytes) {
    CInfoAboutHoldingsTypeList list;
    if (!fuzz::Load(bytes, list)) return;
    fuzz::ExpectRoundTrip<CInfoAboutHoldingsTypeList>(list);
    for (int i = 0; i < list.GetSize(); ++i) CheckType(*list.GetAt(i));
}

void AskEverything() {
    std::string fields;
    std::string callNumber;
    std::string barCode;
    CHoldingsSelector::GetCurrentHoldingsFields(fields, callNumber, barCode);
    EHOLDINGSTYPE type = HT_NONE;
    CHoldingsSelector::GetCurrentHoldingsType(type);
    const bool isKnown = CHoldingsSelector::GetCurrentHoldingsType() != nullptr;
    Expect((type == HT_CUSTOM) == !isKnown, "without a type holdings count as custom");
    Expect((CHoldingsSelector::GetCurrentHoldingsTypeName() == "Custom") == !isKnown,
           "without a type the name is Custom");
    Expect(CHoldingsSelector::GetDynixIndicators().find(' ') == std::string::npos,
           "indicators have no blank");
    Expect(!CHoldingsSelector::GetCustomBarCode().empty(), "a bar code has a place");
    for (const unsigned tag : {852U, 949U}) {
        if (CHoldingsSelector::IsHoldingsFieldForCapitalization(tag, 'a')) {
            const std::string custom = CHoldingsSelector::GetCustomHoldingsFieldsAndSubfields();
            Expect(custom.find(std::to_string(tag)) != std::string::npos, "fields name the tag");
        }
    }
    CHoldingsSelector::GetUDFields();
}

// A value takes the backslash with which the next key begins: three of them in a row are one that
// ends the value, and then the separator.
std::string BarCodeReadBack(std::string_view settings, const std::string& number) {
    CKeysNValues keys;
    keys.Set(settings, true);
    keys.SetKey("NextBarCode", number);
    CKeysNValues again;
    again.Set(keys.Get(), true);
    std::string value;
    again.GetKey("NextBarCode", value);
    Expect(value == number || value == number + "\\", "no more than a backslash is taken");
    return value;
}

void CheckSettings(FuzzedDataProvider& data) {
    MemoryProfileFiles files;
    SetProfileFilePort(&files);
    ZorbyProfileChangeUserID(1);
    const std::string number = std::to_string(data.ConsumeIntegral<unsigned>());
    WriteZorbyProfileString(ZP_NewHoldings, data.ConsumeRemainingBytesAsString());
    std::string text;  // as it is kept: up to the first NUL
    GetZorbyProfileString(ZP_NewHoldings, text);
    AskEverything();
    CHoldingsSelector::SetNextBarCode(number);
    Expect(CHoldingsSelector::GetNextBarCode() == BarCodeReadBack(text, number),
           "the next bar code is kept");
    CHoldingsSelector::SetNextAccNo(number);
    Expect(CHoldingsSelector::GetNextAccNo() == number, "the next accession number is kept");
    AskEverything();
    SetProfileFilePort(nullptr);
}

void PutAFewTypesInForce() {
    CInfoAboutHoldingsTypeList list;
    for (const int number : {1, 7, 8, 10, 14, 16}) {
        auto type = std::make_unique<CInfoAboutHoldingsType>();
        type->Create(std::string(1, static_cast<char>('A' + number)),
                     static_cast<EHOLDINGSTYPE>(number), 0, 0);
        type->AddField("Bar code", 852, 'p', '\0', HID_DYNIX_BAR_CODE, 0, "");
        list.AddType(std::move(type));
    }
    fuzz::PutInForce(list);
}

}  // namespace
}  // namespace zorby

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    using namespace zorby;
    if (!CInfoAboutHoldingsTypeList::TheOneAndOnly()) PutAFewTypesInForce();
    FuzzedDataProvider data(bytes, size);
    if (data.ConsumeBool()) {
        CheckFile(data.ConsumeRemainingBytesAsString());
    } else {
        CheckSettings(data);
    }
    return 0;
}
