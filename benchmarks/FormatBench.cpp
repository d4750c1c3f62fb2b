#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/platform/ApplicationPort.h>

#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace zorby::bench {
namespace {

// As many records as a dictionary of the whole format has.
constexpr unsigned kFields = 230;
constexpr unsigned kTagStep = 4;
constexpr std::string_view kCodes = "abcdefghijk";  // 2,530 subfields
constexpr std::string_view kName = "Name of so many characters";

unsigned TagAt(unsigned field) {
    return 10 + kTagStep * field;
}

void AddField(unsigned tag, CMARCFormat& format) {
    format.AddField(tag, '#', '#', kName, 1, 0, 0);
    for (const char code : kCodes) format.AddSubfield(tag, code, kName, 1, 0, 1, 0);
    for (const int which : {1, 2}) {
        format.AddIndicatorName(tag, which, kName);
        format.AddIndicatorExpl(tag, which, kName);
        for (const char value : {'#', '0', '1', '2'}) {
            format.AddIndicatorValue(tag, which, value, kName);
        }
    }
}

std::unique_ptr<CObject> Format() {
    auto format = std::make_unique<CMARCFormat>();
    for (unsigned field = 0; field < kFields; ++field) AddField(TagAt(field), *format);
    return format;
}

std::unique_ptr<CObject> Holdings() {
    auto list = std::make_unique<CInfoAboutHoldingsTypeList>();
    for (int number = HT_TYPE_1; number <= HT_MANDARIN_EZ; ++number) {
        auto type = std::make_unique<CInfoAboutHoldingsType>();
        type->Create(kName, static_cast<EHOLDINGSTYPE>(number), 0, 0);
        for (int element = 0; element < 12; ++element) {
            type->AddField(kName, 852, static_cast<std::int8_t>('a' + element), '\0',
                           static_cast<EHOLDINGSID>(50 * number + element), 0, kName);
        }
        list->AddType(std::move(type));
    }
    return list;
}

// The folder of both dictionaries, which goes when the program ends.
class Folder {
public:
    Folder() {
        std::filesystem::create_directories(path_);
        Store("MARCBibl.tfm", *Format());
        Store("zorby.hld", *Holdings());
    }
    ~Folder() { std::filesystem::remove_all(path_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    const std::string& Path() const { return path_; }

private:
    void Store(const char* name, CObject& object) const {
        MemoryStream stream;
        CArchive archive(stream, CArchive::store);
        object.Serialize(archive);
        std::ofstream(path_ + name, std::ios::binary) << stream.GetBytes();
    }

    std::string path_ = std::filesystem::temp_directory_path() / "zorby_format_bench/";
};

void LoadFormat() {
    static const Folder folder;
    FixedApplication application(folder.Path(), '/', false);
    SetApplicationPort(&application);
    if (!CMARCFormat::InitializeYourself("")) throw std::runtime_error("no dictionary");
    if (!CInfoAboutHoldingsTypeList::CreateTheOneAndOnly(folder.Path())) {
        throw std::runtime_error("no holdings dictionary");
    }
    SetApplicationPort(nullptr);
}

// Aim: both dictionaries in force within 20 milliseconds.
void LoadBothDictionaries(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) LoadFormat();
    state.counters["subfields"] = CMARCFormat::TheOneAndOnly()->GetSubfields().GetSize();
}
BENCHMARK(LoadBothDictionaries)->Unit(benchmark::kMillisecond);

// Aim: a lookup under 100 nanoseconds. Each walks over all fields in an order of no list.
template <class Lookup>
void LookUp(benchmark::State& state, Lookup lookup) {
    LoadFormat();
    unsigned field = 0;
    for ([[maybe_unused]] auto _ : state) {
        field = (field + 101) % kFields;
        lookup(TagAt(field), kCodes[field % kCodes.size()]);
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}

void FindField(benchmark::State& state) {
    LookUp(state,
           [](unsigned tag, char) { benchmark::DoNotOptimize(CMARCFormat::FindField(tag)); });
}
BENCHMARK(FindField);

void FindSubfield(benchmark::State& state) {
    LookUp(state, [](unsigned tag, char code) {
        benchmark::DoNotOptimize(CMARCFormat::FindSubfield(tag, code));
    });
}
BENCHMARK(FindSubfield);

void GetIndicatorNameFor(benchmark::State& state) {
    std::string text;
    LookUp(state, [&](unsigned tag, char code) {
        CMARCFormat::GetIndicatorNameFor(tag, 1 + code % 2, EDO_NameAndCode, text);
        benchmark::DoNotOptimize(text.data());
    });
}
BENCHMARK(GetIndicatorNameFor);

void FieldName(benchmark::State& state) {
    std::string text;
    LookUp(state, [&](unsigned tag, char) {
        CMARCFormat::FieldName(tag, EDO_CodeAndName, text);
        benchmark::DoNotOptimize(text.data());
    });
}
BENCHMARK(FieldName);

}  // namespace
}  // namespace zorby::bench
