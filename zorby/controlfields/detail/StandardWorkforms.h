#pragma once

#include <zorby/elements/CFType.h>
#include <zorby/elements/MaterialType.h>

#include <string>

// What control fields need of the standard workforms, which supply it.
namespace zorby {

// Each is empty if there is no workform of the material or of the types. `form` is the form of item
// (008/23, 006/06). An 008 has the date that the workform has.
std::string Default006For(MaterialType material);
std::string Default006For(CFType type006, CFType type007);
std::string Default007For(MaterialType material, char form);
std::string Default008For(CFType type006, CFType type007);
std::string DefaultLdrFor(CFType type006, CFType type007);
// Leaves `name` as it was for a material without a name.
void NameOfMaterial(MaterialType material, std::string& name);

}  // namespace zorby
