#include <zorby/text/TagAndSubfieldArray.h>

#include <algorithm>
#include <new>
#include <utility>

namespace zorby {
namespace {

constexpr unsigned kTagBehindAll = 1000;

std::pair<unsigned, unsigned char> SortKey(const CTagAndSubfield& element) {
    return {element.GetTag(), static_cast<unsigned char>(element.GetCode())};
}

}  // namespace

CTagAndSubfield::CTagAndSubfield(unsigned tag, char code) : tag_(tag), code_(code) {}
CTagAndSubfield::CTagAndSubfield(const CTagAndSubfield&) = default;
CTagAndSubfield& CTagAndSubfield::operator=(const CTagAndSubfield&) = default;
CTagAndSubfield::~CTagAndSubfield() = default;

int CTagAndSubfield::Compare(const CTagAndSubfield& left, const CTagAndSubfield& right) {
    const auto leftKey = SortKey(left);
    const auto rightKey = SortKey(right);
    return static_cast<int>(leftKey > rightKey) - static_cast<int>(leftKey < rightKey);
}

CTagAndSubfieldArray::CTagAndSubfieldArray() = default;
CTagAndSubfieldArray::CTagAndSubfieldArray(CTagAndSubfieldArray&&) noexcept = default;
CTagAndSubfieldArray& CTagAndSubfieldArray::operator=(CTagAndSubfieldArray&&) noexcept = default;
CTagAndSubfieldArray::~CTagAndSubfieldArray() = default;

int CTagAndSubfieldArray::Add(unsigned tag, char code) {
    try {
        elements_.push_back(std::make_unique<CTagAndSubfield>(tag, code));
    } catch (const std::bad_alloc&) {
        return -1;
    }
    return GetSize() - 1;
}

int CTagAndSubfieldArray::GetSize() const {
    return static_cast<int>(elements_.size());
}

void CTagAndSubfieldArray::GetAt(int index, unsigned& tag, char& code) const {
    tag = kTagBehindAll;
    code = 0;
    if (index < 0 || index >= GetSize()) return;
    const CTagAndSubfield& element = *elements_[static_cast<std::size_t>(index)];
    tag = element.GetTag();
    code = element.GetCode();
}

void CTagAndSubfieldArray::Sort() {
    std::sort(elements_.begin(), elements_.end(), [](const auto& left, const auto& right) {
        return CTagAndSubfield::Compare(*left, *right) < 0;
    });
}

void CTagAndSubfieldArray::RemoveDuplicates() {
    Sort();
    const auto last =
        std::unique(elements_.begin(), elements_.end(), [](const auto& left, const auto& right) {
            return CTagAndSubfield::Compare(*left, *right) == 0;
        });
    elements_.erase(last, elements_.end());
}

unsigned CTagAndSubfield::GetTag() const {
    return tag_;
}

char CTagAndSubfield::GetCode() const {
    return code_;
}

}  // namespace zorby
