#include <quillory/checks/Checker.h>
#include <quillory/rules/Inspector.h>
#include <zorby/format/MARCFormat.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/platform/ApplicationPort.h>

#include <benchmark/benchmark.h>

#include <benchmarks/CatalogueRecord.h>
#include <string>
#include <vector>

namespace quillory::bench {
namespace {

// The dictionaries of the build.
bool LoadDictionaries() {
    const std::string folder = DATA_FOLDER "/";
    zorby::FixedApplication application(folder, '/', false);
    zorby::SetApplicationPort(&application);
    const bool loaded = zorby::CInfoAboutHoldingsTypeList::CreateTheOneAndOnly(folder) != 0 &&
                        zorby::CMARCFormat::InitializeYourself("") != 0;
    zorby::SetApplicationPort(nullptr);
    return loaded;
}

// A record of 40 fields in memory, of which each check is made: `reads` from its bytes each time.
void CheckRecord(benchmark::State& state, PolicyKind kind, bool reads) {
    if (!LoadDictionaries()) {
        state.SkipWithError("no dictionaries");
        return;
    }
    PutInForce({kind, {}});
    std::string bytes;
    zorby::bench::BuildCatalogueRecord().ConvertToUSMARCCommFormat(bytes);
    zorby::CommFormatFields parts;
    zorby::ReadCommFormat(bytes, parts);
    Record record{parts.leader, parts.fields, bytes};
    Checker checker({});
    std::vector<Finding> findings;
    for ([[maybe_unused]] auto _ : state) {
        if (reads) {
            zorby::ReadCommFormat(bytes, parts);
            record.fields.swap(parts.fields);
        }
        checker.Check(record, findings);
        benchmark::DoNotOptimize(findings.data());
    }
    state.SetItemsProcessed(state.iterations());
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

// The same record, held against all rules. Of each, `keptOfEach` findings are kept, as a report
// asks for them.
void InspectRecord(benchmark::State& state, std::uint64_t keptOfEach) {
    if (!LoadDictionaries()) {
        state.SkipWithError("no dictionaries");
        return;
    }
    std::string bytes;
    zorby::bench::BuildCatalogueRecord().ConvertToUSMARCCommFormat(bytes);
    zorby::CommFormatFields parts;
    zorby::ReadCommFormat(bytes, parts);
    const Record record{parts.leader, parts.fields, bytes};
    const CodeLists lists{CodeStatus(DATA_FOLDER "/marc21-codes.tsv")};
    Inspector inspector({}, RuleWeights(), lists);
    inspector.KeepOnly(keptOfEach);
    std::vector<Remark> remarks;
    for ([[maybe_unused]] auto _ : state) {
        inspector.Inspect(record, 1, remarks);
        benchmark::DoNotOptimize(remarks.data());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK_CAPTURE(InspectRecord, kept, kAllRemarks);
BENCHMARK_CAPTURE(InspectRecord, counted, 3);

BENCHMARK_CAPTURE(CheckRecord, basic, kPolicyBasic, false);
BENCHMARK_CAPTURE(CheckRecord, custom, kPolicyCustom, false);
BENCHMARK_CAPTURE(CheckRecord, read_and_custom, kPolicyCustom, true);

}  // namespace
}  // namespace quillory::bench
