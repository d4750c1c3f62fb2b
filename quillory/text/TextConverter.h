#pragma once

#include <quillory/text/Charset.h>
#include <quillory/text/IconvConverter.h>
#include <quillory/text/Losses.h>
#include <quillory/text/Marc8Unicode.h>

#include <memory>
#include <string>
#include <string_view>

namespace quillory {

// Carries text from one character set into another, a subfield at a time, since a diacritic does
// not reach into the next one. The library's engine is the fast road to MARC-8, and Marc8Unicode
// takes what the engine does not hold, and all that comes from MARC-8.
class TextConverter {
public:
    // `from` and `to` are not auto. UTF-8 comes out in the normal form.
    TextConverter(Charset from, Charset to, NormalForm form);

    // Whether a text, or the content of a field, is the same in every character set: printable
    // ASCII and delimiters, without references to characters.
    static bool IsUntouched(std::string_view text);
    // The same for several fields side by side, each with its field terminator.
    static bool AreUntouched(std::string_view fields);

    void Append(std::string_view text, std::string& out, Losses& losses);

private:
    void AppendUtf8(std::string_view text, std::string& out, Losses& losses);
    void AppendFromUtf8(std::string_view utf8, std::string& out, Losses& losses);
    void AppendMarc8AsUtf8(std::string_view text, std::string& out, Losses& losses);
    void AppendUtf8AsMarc8(std::string_view text, std::string& out, Losses& losses);
    bool EngineToMarc8(std::string_view utf8, std::string& out);
    Marc8Unicode& SlowRoad();
    IconvConverter& Other(Charset charset);

    Charset from_;
    Charset to_;
    NormalForm form_;
    std::unique_ptr<Marc8Unicode> slowRoad_;
    std::unique_ptr<IconvConverter> otherFrom_, otherTo_;
    std::string utf8_;
    std::string codes_;
    std::string check_;
};

}  // namespace quillory
