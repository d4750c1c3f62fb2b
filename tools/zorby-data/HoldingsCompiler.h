#pragma once

#include <zorby/holdings/InfoAboutHoldingsTypeList.h>

#include <cstdint>

#include <tools/zorby-data/Compiler.h>
#include <tools/zorby-data/Dump.h>

namespace datatool {

// The dictionary of holdings systems. The rows after that of a type, in the same source, are its
// own.
class HoldingsCompiler : public TableCompiler {
public:
    using TableCompiler::TableCompiler;

    zorby::CObject& Dictionary() override { return types_; }

private:
    std::vector<SectionTaker> Takers() override;
    void BeginFile() override { type_ = nullptr; }
    std::string Dump() const override { return DumpHoldings(types_); }

    void TakeType(Row& row);
    void TakeFormerName(Row& row);
    void TakeElement(Row& row);
    bool HasType(const Row& row);

    zorby::CInfoAboutHoldingsTypeList types_;
    zorby::CInfoAboutHoldingsType* type_ = nullptr;
    Keys<std::int32_t> numbers_;
    Keys<std::int32_t> elements_;  // of the type
};

}  // namespace datatool
