#pragma once

#include <quillory/text/Losses.h>
#include <quillory/text/Utf8.h>
#include <quillory/text/YazConverter.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillory {

// Carries text between MARC-8 with all its scripts and UTF-8, one subfield at a time. libyaz
// converts each letter with its diacritics once, and what comes out is kept.
class Marc8Unicode {
public:
    explicit Marc8Unicode(NormalForm form);

    void AppendUtf8(std::string_view marc8, std::string& utf8, Losses& losses);
    // Characters that MARC-8 does not have are written as &#xXXXX;
    void AppendMarc8(std::string_view utf8, std::string& marc8, Losses& losses);

private:
    class Decoder;
    class Encoder;

    // What bytes under designated sets are.
    struct Decoded {
        YazConverter::Outcome outcome = YazConverter::kFailed;
        std::string utf8;  // in the normal form
    };
    // How a letter with its diacritics stands in MARC-8.
    struct Encoded {
        std::string set;    // escape of the set that its bytes are of; empty for the default
        std::string bytes;  // without that escape
        std::vector<char32_t> writtenOut;  // after the bytes, as references
    };

    // Units under the same sets, by their bytes as a number.
    struct Sets {
        std::string escapes;
        std::unordered_map<std::uint64_t, Decoded> units;

        // Null if it is not known.
        const Decoded* Find(std::string_view unit) const;
    };

    Sets& SetsFor(const std::string& escapes);
    const Decoded& Decode(Sets& sets, const std::string& unit);
    const Encoded& Encode(std::string_view letter);
    Encoded EncodeAfresh(std::string_view given);
    static bool SplitSet(std::string_view marc8, Encoded& encoded);
    bool EncodeFirst(std::string_view letter, Encoded& encoded);
    bool EncodeWhole(std::string_view letter, Encoded& encoded);

    NormalForm form_;
    YazConverter toUtf8_;
    YazConverter toMarc8_;
    std::unordered_map<std::string, Sets> sets_;
    Sets& defaultSets_;
    Decoded notKept_;
    std::unordered_map<std::string, Encoded> encoded_;
};

}  // namespace quillory
