#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillory {

// A text between single quotes, with `escaped` in the place of a single quote that is part of it.
std::string ShellQuoted(std::string_view text, std::string_view escaped);

// As ShellQuoted in the way of sh, bash and zsh, where quotes have no escapes.
std::string ShellQuoted(std::string_view text);

// A text with a backslash before each of the special characters.
std::string Backslashed(std::string_view text, std::string_view special);

// The name of a program as part of the name of a function.
std::string ShellName(std::string name);

// A script with each @MARK@ replaced by what it stands for. Marks and texts come in pairs.
std::string FilledScript(std::string script,
                         const std::vector<std::pair<std::string, std::string>>& marks);

}  // namespace quillory
