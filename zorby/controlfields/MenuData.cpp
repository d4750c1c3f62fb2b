#include <zorby/controlfields/MenuData.h>
#include <zorby/controlfields/detail/CodeMenu.h>
#include <zorby/elements/OffsetTables.h>

#include <algorithm>
#include <cstdint>

namespace zorby {
namespace {

// Returns the first byte of the second code, or the newline after it if the code is empty.
char SecondCharacterOf(std::string_view item) {
    return AfterLines(item, 2).front();
}

bool IsCombinedCode(std::string_view item, std::string_view code) {
    if (code.empty() || item.front() != code[0]) return false;
    return code.size() == 1 || SecondCharacterOf(item) == code[1];
}

int FindCombinedCode(const CodeList& menu, std::string_view code) {
    for (int index = 0; index < menu.count; ++index) {
        if (IsCombinedCode(menu.Item(index), code)) return index;
    }
    return -1;
}

// Compares like strncmp, which is slower for the two or three bytes of a code.
int ComparePrefix(const char* item, std::string_view code) {
    for (const char byte : code) {
        const int difference = static_cast<unsigned char>(*item) - static_cast<unsigned char>(byte);
        if (difference != 0 || byte == '\0') return difference;
        ++item;
    }
    return 0;
}

int FindPrefix(const CodeList& menu, std::string_view code) {
    if (code.empty()) return 0;
    const auto compare = [&](std::uint16_t index) { return ComparePrefix(menu.Item(index), code); };
    const std::uint16_t* end = menu.byCode + menu.count;
    const std::uint16_t* first = std::partition_point(
        menu.byCode, end, [&](std::uint16_t index) { return compare(index) < 0; });
    // Usually there is only one.
    const std::uint16_t* last =
        std::find_if(first, end, [&](std::uint16_t index) { return compare(index) != 0; });
    return first == last ? -1 : *std::min_element(first, last);
}

}  // namespace

CCFMenuData::CCFMenuData(CFPart part) : part_(part), menu_(FindCodeMenu(part)) {}

CCFMenuData::~CCFMenuData() = default;

const char* CCFMenuData::GetMenuTitle() const {
    return menu_ == nullptr ? nullptr : menu_->Title();
}

const char* CCFMenuData::GetMenuText() const {
    return menu_ == nullptr ? nullptr : menu_->texts;
}

int CCFMenuData::GetCount() const {
    return menu_ == nullptr ? 0 : menu_->count;
}

const char* CCFMenuData::GetTextFirst() {
    walk_ = menu_ == nullptr ? nullptr : menu_->rows;
    return GetTextNext();
}

const char* CCFMenuData::GetTextNext() {
    if (walk_ == nullptr) return nullptr;
    const char* item = *++walk_;
    if (item == nullptr) walk_ = nullptr;
    return item;
}

int CCFMenuData::GetCodeFromText(std::string_view text, std::string& code) const {
    for (int index = 0; index < GetCount(); ++index) {
        const std::string_view item = menu_->Item(index);
        if (TextOf(item) != text) continue;
        code = CodeOf(item);
        if (part_ == CFPCombinedFormOfItem) code += FirstLine(AfterLines(item, 2));
        return 1;
    }
    return 0;
}

int CCFMenuData::GetCodeFromIndex(int index, std::string& code) const {
    if (index < 0 || index >= GetCount()) return 0;
    const std::string_view item = menu_->Item(index);
    code = CodeOf(item);
    if (part_ == CFPCombinedFormOfItem) code += SecondCharacterOf(item);
    return 1;
}

int CCFMenuData::GetIndexFromCode(std::string_view code) const {
    if (menu_ == nullptr) return -1;
    return part_ == CFPCombinedFormOfItem ? FindCombinedCode(*menu_, code)
                                          : FindPrefix(*menu_, code);
}

void CCFMenuData::GetTextFromCode(std::string_view code, std::string& text) const {
    const int index = GetIndexFromCode(code);
    text = index < 0 ? std::string_view() : TextOf(menu_->Item(index));
}

std::string CCFMenuData::GetTextFromCode(std::string_view code) const {
    std::string text;
    GetTextFromCode(code, text);
    return text;
}

bool CCFMenuData::PartNumberInRange(int withoutByteZero, CFPart part, CFType type) {
    return PartBelongsTo(part, type,
                         withoutByteZero == 0 ? ByteZero::Included : ByteZero::Excluded);
}

CFPart CCFMenuData::GetPart() const {
    return part_;
}

}  // namespace zorby
