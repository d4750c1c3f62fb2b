#pragma once

#include <zorby/elements/CFType.h>
#include <zorby/elements/MaterialType.h>

#include <optional>
#include <string>
#include <string_view>

namespace datatool {

// The names that sources of workforms have for materials and forms of control fields. Nothing for a
// name that there isn't, and empty for a value without a name.
std::optional<zorby::MaterialType> MaterialOf(std::string_view name);
std::optional<zorby::CFType> Form006Of(std::string_view name);
std::optional<zorby::CFType> Form007Of(std::string_view name);
std::string_view NameOf(zorby::MaterialType material);
std::string_view NameOf(zorby::CFType form);

}  // namespace datatool
