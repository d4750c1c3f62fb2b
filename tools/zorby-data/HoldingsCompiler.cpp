#include <memory>

#include <tools/zorby-data/HoldingsCompiler.h>

namespace datatool {

std::vector<SectionTaker> HoldingsCompiler::Takers() {
    return {
        {kType, [this](Row& row) { TakeType(row); }, [this] { type_ = nullptr; }},
        {kFormerNames, [this](Row& row) { TakeFormerName(row); }},
        {kElements, [this](Row& row) { TakeElement(row); }},
    };
}

void HoldingsCompiler::TakeType(Row& row) {
    const std::int32_t number = row.Signed("type");
    auto type = std::make_unique<zorby::CInfoAboutHoldingsType>();
    type->Create(row.Text("name"), static_cast<zorby::EHOLDINGSTYPE>(number), row.Unsigned("flags"),
                 row.Flag("option"));
    type_ = type.get();
    types_.AddType(std::move(type));
    numbers_.Add(number, row.PlaceOf("type"), faults_);
    elements_ = {};
}

bool HoldingsCompiler::HasType(const Row& row) {
    if (!type_) faults_.Add(row.PlaceOf("name"), "no row of [type] stands before this");
    return type_ != nullptr;
}

void HoldingsCompiler::TakeFormerName(Row& row) {
    if (HasType(row)) type_->AddOldName(row.Text("name"));
}

void HoldingsCompiler::TakeElement(Row& row) {
    if (!HasType(row)) return;
    const std::int32_t id = row.Signed("id");
    type_->AddField(row.Text("name"), row.Signed("extra"), row.Tag("tag"),
                    static_cast<std::int8_t>(row.Code("subfield")), row.CodeOrNone("repeat"),
                    static_cast<zorby::EHOLDINGSID>(id), row.Flag("once"), row.Text("help"));
    elements_.Add(id, row.PlaceOf("id"), faults_);
}

}  // namespace datatool
