#include <zorby/charset/Convert.h>
#include <zorby/text/General.h>
#include <zorby/text/detail/Digits.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace zorby {

namespace {

constexpr char kDisplayedBlank = static_cast<char>(0xB7);

bool IsPrintableASCII(char byte) {
    return byte >= 0x20 && byte <= 0x7E;
}

// Returns how many characters come before the first stop or the terminator.
std::size_t LengthTill(const char* source, char stop) {
    const char* end = source;
    while (*end != '\0' && *end != stop) ++end;
    return static_cast<std::size_t>(end - source);
}

}  // namespace

void CGeneral::RemoveAmpersand(std::string& text) {
    std::erase(text, '&');
}

void CGeneral::StrCpyTill(char* target, const char* source, char stop) {
    const std::size_t length = LengthTill(source, stop);
    std::memmove(target, source, length);
    target[length] = '\0';
}

unsigned CGeneral::CountCharsTill(const char* source, char stop) {
    const std::size_t length = LengthTill(source, stop);
    return static_cast<unsigned>(source[length] == stop ? length + 1 : length);
}

void CGeneral::SplitStringAtChar(const char* source, char at, std::string& left,
                                 std::string& right) {
    const std::string text(source);
    const std::size_t end = std::min(text.find(at), text.size());
    left = text.substr(0, end);
    right = text.substr(std::min(end + 1, text.size()));
}

void CGeneral::BlankToDot(char* text) {
    std::replace(text, text + std::strlen(text), ' ', kDisplayedBlank);
}

int CGeneral::IsAllBlanks(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos ? 1 : 0;
}

void CGeneral::IncrementNumber(std::string& text) {
    for (std::size_t i = text.size(); i > 0 && IsDigit(text[i - 1]); --i) {
        char& digit = text[i - 1];
        if (digit != '9') {
            ++digit;
            return;
        }
        digit = '0';
    }
}

int CGeneral::IsSubjectWithSecondInd(int tag) {
    constexpr std::array kTags{600, 610, 611, 630, 650, 651};
    return std::ranges::find(kTags, tag) != kTags.end() ? 1 : 0;
}

int CGeneral::IsSubjectWithSubfield2(int tag) {
    constexpr std::array kFurtherTags{654, 655, 656, 657, 658};
    if (std::ranges::find(kFurtherTags, tag) != kFurtherTags.end()) return 1;
    return IsSubjectWithSecondInd(tag);
}

void CGeneral::TextToQmCharSet(const char* source, std::string& target, unsigned count) {
    std::string printable;
    std::copy_if(source, source + count, std::back_inserter(printable), IsPrintableASCII);
    target = std::move(printable);
}

void CGeneral::TranslateToNonDiacritic(std::string& text) {
    if (text.empty()) return;
    std::string plain(text.size() + 1, '\0');
    CSQmToNonDiacritic(text.c_str(), plain.data());
    text.assign(plain, 0, plain.find('\0'));
}

}  // namespace zorby
