#include <quillory/faults/Errors.h>
#include <quillory/rules/CheckSettings.h>
#include <quillory/rules/RemarkSink.h>

#include <fuzz/Expect.h>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {
namespace {

using zorby::fuzz::Expect;

constexpr const char* kFile = "check.toml";

Record ARecord() {
    return {"00000nam a2200000 i 4500",
            {{"001", "x1"},
             {"008", "240109s1913    fr            000 1 fre d"},
             {"245",
              "10\x1F"
              "aDu c\xC3\xB4t\xC3\xA9 :\x1F"
              "bTHE END"},
             {"500",
              "  \x1F"
              "a\xFF bad \x1F"
              "a"},
             {"650",
              " 0\x1F"
              "aRivers\x1F"
              "aLakes"},
             {"650", ""}},
            {}};
}

std::vector<Remark> Said(OwnRules& rules, const RuleWeights& weights, const Record& record) {
    std::vector<Remark> remarks;
    RemarkSink sink(weights, remarks);
    rules.Check(record, sink);
    return remarks;
}

void CheckOwnRules(CheckSettings& settings) {
    std::set<std::string_view> names;
    for (const Rule& rule : settings.own.List()) {
        Expect(!rule.name.empty() && names.insert(rule.name).second, "rules have their own names");
        Expect(rule.id >= RuleId::Count, "own rules come after those of the table");
    }
    const RuleWeights weights(settings.choice, settings.own.List());
    const Record record = ARecord();
    const std::vector<Remark> remarks = Said(settings.own, weights, record);
    const std::vector<Remark> again = Said(settings.own, weights, record);
    Expect(remarks.size() == again.size(), "a record has the same remarks again");
    for (std::size_t i = 0; i < remarks.size(); ++i) {
        Expect(names.contains(remarks[i].rule->name), "a remark is by one of the rules");
        Expect(weights.Wants(remarks[i].rule->id), "a rule that is off says nothing");
        Expect(RemarkLine(remarks[i]) == RemarkLine(again[i]), "a remark is the same again");
    }
}

}  // namespace
}  // namespace quillory

// A file of settings for checks. Its own rules look at a record.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    using namespace quillory;
    const std::string_view toml(reinterpret_cast<const char*>(bytes), size);
    try {
        CheckSettings settings =
            ReadCheckSettings(toml, kFile, {kCharsetAuto, [](const Record&) { return true; }});
        CheckOwnRules(settings);
    } catch (const FileError& error) {
        Expect(std::string_view(error.what()).starts_with(kFile), "a fault names its file");
    }
    return 0;
}
