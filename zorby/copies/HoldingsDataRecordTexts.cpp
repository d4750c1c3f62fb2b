#include <zorby/copies/HoldingsDataRecordList.h>
#include <zorby/copies/detail/HoldingsIDRoles.h>

#include <string>
#include <string_view>

namespace zorby {
namespace {

constexpr char kBetweenRecords = '\1';  // the host splits here; no value can contain it

void AppendJoined(std::string& all, char separator, std::string_view text) {
    if (text.empty()) return;
    if (!all.empty()) all += separator;
    all += text;
}

}  // namespace

std::string CHoldingsDataRecord::GetRecVCallNumber() const {
    std::string callNumber;
    for (const EHOLDINGSID id : HoldingsRowOf(holdingsType_).callNumber.parts) {
        if (id != EHOLDINGSID{}) AppendJoined(callNumber, ' ', Get(id));
    }
    return callNumber;
}

std::string CHoldingsDataRecord::GetRecVBarCode() const {
    std::string barCodes;
    for (const auto& element : elements_) {
        if (IsBarCode(element->GetID())) AppendJoined(barCodes, ' ', element->GetText());
    }
    return barCodes;
}

std::string CHoldingsDataRecordList::GetRecVCallNumbers() const {
    std::string all;
    for (const auto& record : records_) {
        if (record) AppendJoined(all, kBetweenRecords, record->GetRecVCallNumber());
    }
    return all;
}

std::string CHoldingsDataRecordList::GetRecVBarCodes() const {
    std::string all;
    for (const auto& record : records_) {
        if (record) AppendJoined(all, kBetweenRecords, record->GetRecVBarCode());
    }
    return all;
}

}  // namespace zorby
