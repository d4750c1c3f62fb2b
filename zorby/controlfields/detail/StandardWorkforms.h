#pragma once

#include <zorby/elements/CFType.h>
#include <zorby/elements/MaterialType.h>

#include <string>

// What control fields need of the standard workforms. The folder workforms supplies it.
namespace zorby {

// Each returns an empty text if no workform exists for the material or for the types. `form` is the
// form of item (008/23, 006/06). The date in an 008 is that of the workform.
std::string Default006For(MaterialType material);
std::string Default006For(CFType type006, CFType type007);
std::string Default007For(MaterialType material, char form);
std::string Default008For(CFType type006, CFType type007);
std::string DefaultLdrFor(CFType type006, CFType type007);
// Leaves `name` unchanged for a material without a name.
void NameOfMaterial(MaterialType material, std::string& name);

}  // namespace zorby
