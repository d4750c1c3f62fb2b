#pragma once

#include <zorby/holdings/InfoAboutHoldingsTypeList.h>

#include <cstdint>

#include <tools/zorby-data/Compiler.h>
#include <tools/zorby-data/Dump.h>

namespace datatool {

// The dictionary of holdings systems. The rows behind that of a type, in the same source, are its
// own.
class HoldingsCompiler : public Compiler {
public:
    explicit HoldingsCompiler(Faults& faults) : faults_(faults) {}

    std::vector<SectionTaker> Takers() override;
    void BeginFile() override { type_ = nullptr; }
    zorby::CObject& Dictionary() override { return types_; }
    std::string Dump() const override { return DumpHoldings(types_); }

private:
    void TakeType(Row& row);
    void TakeFormerName(Row& row);
    void TakeElement(Row& row);
    bool HasType(const Row& row);

    Faults& faults_;
    zorby::CInfoAboutHoldingsTypeList types_;
    zorby::CInfoAboutHoldingsType* type_ = nullptr;
    Keys<std::int32_t> numbers_;
    Keys<std::int32_t> elements_;  // of the type
};

}  // namespace datatool
