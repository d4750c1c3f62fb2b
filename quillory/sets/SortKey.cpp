#include <quillory/sets/SortKey.h>
#include <quillory/text/Ascii.h>
#include <quillory/text/Letters.h>
#include <quillory/text/QmUnicode.h>
#include <quillory/text/SearchText.h>
#include <quillory/text/TextConverter.h>
#include <quillory/text/Utf8.h>
#include <zorby/charset/Compare.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr char kThere = 1;
constexpr char kMissing = 2;
constexpr std::string_view kDigits = "0123456789";

// Bytes beyond those of any key of the library.
constexpr char kOtherScript = '\xFE';

void AppendLibraryKey(std::string qm, std::string& key) {
    zorby::CSpConvertForCompare(&qm);
    key += qm;
}

std::string_view TakeDigits(std::string_view& text) {
    const std::string_view digits = text.substr(0, text.find_first_not_of(kDigits));
    text.remove_prefix(digits.size());
    return digits;
}

void Complement(std::string& text, std::size_t from) {
    std::transform(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(),
                   text.begin() + static_cast<std::ptrdiff_t>(from),
                   [](char c) { return static_cast<char>(~static_cast<unsigned char>(c)); });
}

// The number of digits comes first, so that longer numbers are greater.
void AppendMagnitude(std::string_view whole, std::string_view fraction, std::string& key) {
    constexpr unsigned kBytes = 4;
    whole.remove_prefix(std::min(whole.find_first_not_of('0'), whole.size()));
    while (fraction.ends_with('0')) fraction.remove_suffix(1);
    for (unsigned i = kBytes; i-- > 0;) key += static_cast<char>(whole.size() >> (8 * i) & 0xFF);
    key.append(whole).append(fraction) += '\0';
}

void AppendMixedKey(std::string_view utf8, std::string& key) {
    while (!utf8.empty()) {
        const std::string_view letter = utf8.substr(0, LetterSize(utf8));
        std::string qm;
        if (QmUnicode::Of(kNormalFormC).AppendQm(letter, qm)) {
            AppendLibraryKey(std::move(qm), key);
        } else {
            key += kOtherScript;
            key += Folded(letter);
        }
        utf8.remove_prefix(letter.size());
    }
}

}  // namespace

void AppendTextKey(std::string_view utf8, std::string& key) {
    const std::string tidy = TidyText(utf8);
    std::string qm;
    std::string text;
    if (TextConverter::IsUntouched(tidy)) {
        AppendLibraryKey(tidy, text);
    } else if (QmUnicode::Of(kNormalFormC).AppendQm(tidy, qm)) {
        AppendLibraryKey(std::move(qm), text);
    } else {
        AppendMixedKey(tidy, text);
    }
    key += WithoutBlanks(text);
}

bool AppendNumberKey(std::string_view text, std::string& key) {
    constexpr char kNegative = 1;
    constexpr char kPositive = 2;
    text = WithoutBlanks(text);
    const bool isNegative = text.starts_with('-');
    if (isNegative) text.remove_prefix(1);
    const std::size_t first = text.find_first_of(kDigits);
    if (first == text.npos) return false;
    text.remove_prefix(first);
    const std::string_view whole = TakeDigits(text);
    std::string_view fraction;
    if (text.starts_with('.')) {
        text.remove_prefix(1);
        fraction = TakeDigits(text);
    }
    key += isNegative && first == 0 ? kNegative : kPositive;
    const std::size_t start = key.size();
    AppendMagnitude(whole, fraction, key);
    if (isNegative && first == 0) Complement(key, start);
    return true;
}

bool RecordSortKeys::AppendPart(const Record& record, const KeyPlace& place, std::string& key) {
    const auto text = texts_.FiledBy(record, place);
    part_.clear();
    bool isThere = text.has_value();
    if (isThere && order_.isNumeric) {
        isThere = AppendNumberKey(*text, part_);
    } else if (isThere && !place.isTitle && place.place.patterns.front().IsCoded()) {
        part_ = *text;
    } else if (isThere) {
        AppendTextKey(*text, part_);
    }
    key += isThere ? kThere : kMissing;
    const std::size_t start = key.size();
    // No part is the beginning of another: a zero byte ends it, and other low bytes are two.
    for (const char c : part_) {
        const bool isLow = c == 0 || c == 1;
        if (isLow) key += '\1';
        key += static_cast<char>(isLow ? c + 1 : c);
    }
    key += '\0';
    if (order_.isReverse) Complement(key, start);
    return isThere;
}

bool RecordSortKeys::KeyOf(const Record& record, std::string& key) {
    key.clear();
    bool isThere = true;
    for (const KeyPlace& place : order_.places) {
        const bool hasPlace = AppendPart(record, place, key);
        if (&place == &order_.places.front()) isThere = hasPlace;
    }
    return isThere;
}

}  // namespace quillory
