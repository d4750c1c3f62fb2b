#pragma once

#include <quillory/exchange/Losses.h>
#include <quillory/exchange/Utf8.h>

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillory {

// Carries text between MARC-8 with all its scripts and UTF-8, through libyaz, one subfield at a
// time. The slow road for what the one-byte code does not hold.
class Marc8Unicode {
public:
    explicit Marc8Unicode(NormalForm form);
    ~Marc8Unicode();
    Marc8Unicode(const Marc8Unicode&) = delete;
    Marc8Unicode& operator=(const Marc8Unicode&) = delete;

    void AppendUtf8(std::string_view marc8, std::string& utf8, Losses& losses);
    // Characters that MARC-8 has not go out as &#xXXXX;
    void AppendMarc8(std::string_view utf8, std::string& marc8, Losses& losses);

private:
    class Converter;
    class Decoder;

    const std::u32string& PlanFor(char32_t codePoint);
    // False if the text does not come back from MARC-8.
    bool ConvertChecked(std::string_view utf8, std::string& marc8);
    void AppendPlanned(std::string_view planned, std::string& marc8, Losses& losses);
    bool HasCharacter(char32_t codePoint);

    NormalForm form_;
    std::unique_ptr<Converter> toUtf8_;
    std::unique_ptr<Converter> toMarc8_;
    // What to write for a code point: itself, its parts, or nothing if MARC-8 has neither.
    std::unordered_map<char32_t, std::u32string> plans_;
};

}  // namespace quillory
