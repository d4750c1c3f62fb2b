#pragma once

#include <quillory/arguments/ArgumentDefinition.h>
#include <quillory/faults/Errors.h>

#include <concepts>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillory {

// How the text of a command line becomes a value. What throws, throws UsageError.

// Digits, with a minus sign before them or without, that give a number of the range.
std::int64_t ReadNumber(const std::string& text, const NumberRange& range);
// The index of the choice that is meant, whatever the case of its letters.
std::size_t ReadChoice(const std::string& text, const std::vector<std::string>& choices);
// The key before the first equals sign and the value after it. Nothing without a key.
std::optional<std::pair<std::string, std::string>> SplitKeyValue(const std::string& text);

// A text, a number, or a pair of a key and one of them.
template <class Value>
struct ArgumentReader {
    static constexpr bool kIsNumber = std::integral<Value> && !std::same_as<Value, bool>;
    static_assert(kIsNumber || std::same_as<Value, std::string>,
                  "an argument takes a text, a number, or one of several choices");

    static std::optional<NumberRange> Range() {
        if constexpr (kIsNumber) {
            using Limits = std::numeric_limits<Value>;
            constexpr auto kHighest = std::numeric_limits<std::int64_t>::max();
            const bool isWide = std::cmp_greater(Limits::max(), kHighest);
            return NumberRange{static_cast<std::int64_t>(Limits::min()),
                               isWide ? kHighest : static_cast<std::int64_t>(Limits::max())};
        } else {
            return std::nullopt;
        }
    }
    static std::string Shown() { return kIsNumber ? "NUMBER" : "TEXT"; }
    static Value Read(const std::string& text, const ArgumentDefinition& definition) {
        if constexpr (kIsNumber) {
            return static_cast<Value>(ReadNumber(text, *definition.range));
        } else {
            return text;
        }
    }
};

template <class Value>
struct ArgumentReader<std::pair<std::string, Value>> {
    static std::optional<NumberRange> Range() { return ArgumentReader<Value>::Range(); }
    static std::string Shown() { return "KEY=VALUE"; }
    static std::pair<std::string, Value> Read(const std::string& text,
                                              const ArgumentDefinition& definition) {
        try {
            const auto parts = SplitKeyValue(text);
            if (parts) {
                return {parts->first, ArgumentReader<Value>::Read(parts->second, definition)};
            }
        } catch (const UsageError&) {  // the whole is what is wrong
        }
        throw UsageError(text + " is not " + definition.value);
    }
};

// Where a value goes: into a variable, one that may stay without it, or a list.
template <class Target>
struct ValueSlot {
    using Value = Target;
    static constexpr bool kIsList = false;
    static void Put(Target& target, Value value) { target = std::move(value); }
};

template <class Element>
struct ValueSlot<std::optional<Element>> {
    using Value = Element;
    static constexpr bool kIsList = false;
    static void Put(std::optional<Element>& target, Value value) { target = std::move(value); }
};

template <class Element>
struct ValueSlot<std::vector<Element>> {
    using Value = Element;
    static constexpr bool kIsList = true;
    static void Put(std::vector<Element>& target, Value value) {
        target.push_back(std::move(value));
    }
};

}  // namespace quillory
