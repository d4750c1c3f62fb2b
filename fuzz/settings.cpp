#include <quillory/faults/Errors.h>
#include <quillory/jobs/Settings.h>
#include <quillory/text/QmText.h>
#include <zorby/platform/PortInForce.h>

#include <fuzz/Home.h>
#include <fuzzer/FuzzedDataProvider.h>

namespace quillory::fuzz {
namespace {

struct Access {
    void (*change)(const std::string& name, const std::string& value);
    std::string (*read)(const std::string& name);
    std::vector<SettingRow> (*list)();
};

constexpr Access kProfile{ChangeSetting, ReadSetting, ListSettings};
constexpr Access kHoldings{ChangeHoldingsSetting, ReadHoldingsSetting, ListHoldingsSettings};

std::string AnyName(const Access& access, FuzzedDataProvider& data) {
    if (data.ConsumeBool()) return data.ConsumeRandomLengthString(30);
    const std::vector<SettingRow> rows = access.list();
    return rows[data.ConsumeIntegralInRange<std::size_t>(0, rows.size() - 1)].name;
}

// A text that the one-byte code has. A number is written without leading zeros.
bool IsKeptAsItIs(const std::string& value) {
    std::string qm;
    return value.find_first_not_of("-0123456789") != value.npos && Utf8ToQm(value, qm) &&
           QmToUtf8(qm) == value;
}

void Change(const Access& access, FuzzedDataProvider& data) {
    const std::string name = AnyName(access, data);
    const std::string value = data.ConsumeRandomLengthString(40);
    try {
        access.change(name, value);
    } catch (const FaultError& error) {
        Expect(error.what()[0] != '\0', "an error has words");
        return;
    }
    const std::string read = access.read(name);
    for (const SettingRow& row : access.list()) {
        if (row.name == name) Expect(row.value == read, "a list shows what is read");
    }
    if (IsKeptAsItIs(value)) Expect(read == value, "what was written is read");
}

}  // namespace
}  // namespace quillory::fuzz

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    using namespace quillory;
    static const bool isReady = (fuzz::PutAllInForce(), true);
    zorby::MemoryProfileFiles files;
    const zorby::ProfileFilesInForce inForce(files);
    LoadSettings();
    FuzzedDataProvider data(bytes, size);
    while (isReady && data.remaining_bytes() > 0) {
        fuzz::Change(data.ConsumeBool() ? fuzz::kProfile : fuzz::kHoldings, data);
    }
    return 0;
}
