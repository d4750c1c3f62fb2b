#pragma once

#include <quillory/text/Charset.h>
#include <quillory/text/Losses.h>
#include <quillory/text/Marc8Unicode.h>
#include <quillory/text/QmUnicode.h>

#include <memory>
#include <string>
#include <string_view>

namespace quillory {

// Carries the content of fields from one character set into another. The library's engine is the
// fast road, and Marc8Unicode takes what it does not hold.
class TextConverter {
public:
    // `from` and `to` are not auto. UTF-8 comes out in the normal form, but for text that was
    // UTF-8.
    TextConverter(Charset from, Charset to, NormalForm form);

    // Whether content without bytes beyond printable ASCII and delimiters stays as it is.
    static bool IsUntouched(std::string_view content);

    // Appends the content of a field, its delimiters and subfield codes as they are.
    void Append(std::string_view content, std::string& out, Losses& losses);

private:
    void AppendText(std::string_view text, std::string& out, Losses& losses);
    void AppendUtf8(std::string_view text, std::string& out, Losses& losses);
    void AppendFromUtf8(std::string_view utf8, std::string& out, Losses& losses);
    void AppendMarc8AsUtf8(std::string_view text, std::string& out, Losses& losses);
    void AppendUtf8AsMarc8(std::string_view text, std::string& out, Losses& losses);
    bool EngineToUtf8(std::string_view marc8, std::string& out);
    bool EngineToMarc8(std::string_view utf8, std::string& out);
    Marc8Unicode& SlowRoad();

    Charset from_;
    Charset to_;
    NormalForm form_;
    QmUnicode qm_;
    std::unique_ptr<Marc8Unicode> slowRoad_;
    std::string utf8_;
    std::string codes_;
    std::string check_;
};

}  // namespace quillory
