#pragma once

#include <zorby/elements/CFType.h>
#include <zorby/elements/MaterialType.h>

#include <string>

// What control fields need of the standard workforms, which supply it.
namespace zorby {

// The 007 that a material begins with; empty if there is no workform for it.
std::string Default007For(MaterialType material);
// The Leader of the workform of these types; empty if there is none.
std::string DefaultLdrFor(CFType type006, CFType type007);
// Leaves `name` as it was for a material without a name.
void NameOfMaterial(MaterialType material, std::string& name);

}  // namespace zorby
