#pragma once

#include <zorby/holdings/HoldingsTypeTable.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>

#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// How holdings are kept: under a system of the holdings dictionary, or in fields of the user's own.
struct HoldingsSystem {
    const zorby::CInfoAboutHoldingsType* type = nullptr;  // null for the user's own fields
    zorby::EHOLDINGSTYPE id = zorby::HT_CUSTOM;
    std::string name;            // in UTF-8
    std::vector<unsigned> tags;  // of the data fields that hold copies, each once

    // What is fixed for the system, whatever the dictionary says.
    const zorby::HoldingsTypeRow& Rules() const { return zorby::HoldingsRowOf(id); }
    bool HasTag(std::string_view tag) const;
    // Without elements, values are named by their places in the record.
    bool HasElements() const { return type != nullptr && type->GetSize() > 0; }
};

// The system of the settings in force.
HoldingsSystem HoldingsSystemInForce();
// A system of the dictionary. The fields of one without elements are those of the settings.
HoldingsSystem SystemOf(const zorby::CInfoAboutHoldingsType& type);

// The system of the dictionary with this name, present or former, or this number; null if there is
// none.
const zorby::CInfoAboutHoldingsType* FindHoldingsType(const std::string& name);
// The system of the dictionary that has this name or number, or the system of the settings in force
// for an empty name. Throws UsageError if there is none.
HoldingsSystem HoldingsSystemNamed(const std::string& name);
// All systems of the dictionary by number and name: "7 Dynix; 14 Alexandria".
std::string NamesOfHoldingsSystems();
// "; perhaps Dynix is meant" for a name that no system has; empty if none is near.
std::string MeantHoldingsType(const std::string& name);
// Puts a system in force. The settings change in memory alone, and no file is written.
void PutInForce(const zorby::CInfoAboutHoldingsType& type);

}  // namespace quillory
