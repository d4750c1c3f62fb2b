#pragma once

#include <quillory/text/Losses.h>

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>

namespace quillory {

// Appends JSON (RFC 8259) to a string, piece after piece:
//
//     JsonWriter json(text, losses);
//     json.BeginObject();
//     json.Member("tag", "245");
//     json.Member("parts", std::vector<int>{1, 2});
//     json.EndObject();
//
// Names and texts are UTF-8. A byte that is no character becomes U+FFFD, and is counted.
class JsonWriter {
public:
    // With an indent, in columns for each level, every value has a line of its own; with 0 there
    // are neither lines nor blanks.
    JsonWriter(std::string& out, Losses& losses, std::size_t indent = 0)
        : out_(out), losses_(losses), indent_(indent) {}

    void BeginObject() { Begin('{'); }
    void EndObject() { End('}'); }
    void BeginArray() { Begin('['); }
    void EndArray() { End(']'); }
    // Of the value that comes next.
    void Name(std::string_view name);
    void Null() { AddWord("null"); }

    // A text, a whole number, true or false; null for an optional that is empty; an array for a
    // container; and of any other type what its ToJson(value, JsonWriter&) writes.
    template <class T>
    void Value(const T& value);

    template <class T>
    void Member(std::string_view name, const T& value) {
        Name(name);
        Value(value);
    }
    // Nothing for an empty text or optional.
    template <class T>
    void MemberIfAny(std::string_view name, const T& value);

private:
    void Begin(char bracket);
    void End(char bracket);
    // What stands between the value before and the name or value that comes next.
    void Separate();
    void BreakLine();
    void AddWord(std::string_view word);
    void AddText(std::string_view text);

    std::string& out_;
    Losses& losses_;
    std::size_t indent_;
    std::size_t depth_ = 0;
    bool isFirst_ = true;   // nothing stands in the object or array yet
    bool isNamed_ = false;  // the name of the next value has been written
};

// A document as JSON, in lines or in one line. The last line ends, too.
template <class Document>
std::string JsonText(const Document& document, std::size_t indent = 2) {
    std::string text;
    Losses unused;  // whoever shows a document can't count them
    JsonWriter(text, unused, indent).Value(document);
    return text + '\n';
}
template <class Document>
std::string JsonLine(const Document& document) {
    return JsonText(document, 0);
}

template <class T>
void JsonWriter::Value(const T& value) {
    if constexpr (std::same_as<T, bool>) {
        AddWord(value ? "true" : "false");
    } else if constexpr (std::integral<T>) {
        AddWord(std::to_string(value));
    } else if constexpr (std::convertible_to<const T&, std::string_view>) {
        AddText(value);
    } else if constexpr (requires { value.has_value(); }) {
        if (value) {
            Value(*value);
        } else {
            Null();
        }
    } else if constexpr (requires { value.begin(); }) {
        BeginArray();
        for (const auto& item : value) Value(item);
        EndArray();
    } else {
        ToJson(value, *this);
    }
}

template <class T>
void JsonWriter::MemberIfAny(std::string_view name, const T& value) {
    if constexpr (requires { value.has_value(); }) {
        if (value) Member(name, *value);
    } else {
        if (!value.empty()) Member(name, value);
    }
}

}  // namespace quillory
