#pragma once

#include <CLI/CLI.hpp>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace quillory {

template <class Value>
using Choices = std::vector<std::pair<std::string, Value>>;

// The names between separators.
template <class Value>
std::string NamesOf(const Choices<Value>& choices, const std::string& separator) {
    std::string names;
    for (const auto& [name, value] : choices) names += (names.empty() ? "" : separator) + name;
    return names;
}

// An option that takes one of a few names, in any case, and nothing else.
template <class Value, class Target>
CLI::Option* AddChoice(CLI::App& command, const std::string& option, Target& target,
                       const Choices<Value>& choices, const std::string& text) {
    const auto take = [&target, choices, option](const std::string& given) {
        const auto chosen = std::ranges::find_if(choices, [&given](const auto& choice) {
            return CLI::detail::to_lower(choice.first) == CLI::detail::to_lower(given);
        });
        if (chosen == choices.end()) {
            throw CLI::ValidationError(option,
                                       "\"" + given + "\" is none of " + NamesOf(choices, ", "));
        }
        target = chosen->second;
    };
    return command.add_option_function<std::string>(option, take, text)
        ->option_text(NamesOf(choices, "|"));
}

}  // namespace quillory
