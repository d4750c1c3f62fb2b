#include <zorby/format/MARCInfo.h>
#include <zorby/text/General.h>

#include <algorithm>
#include <new>
#include <numeric>
#include <stdexcept>
#include <utility>

namespace zorby {
namespace {

constexpr unsigned char kUnset = '|';
constexpr std::size_t kIntegerWidth = 4;

std::size_t NotNegative(int number) {
    return static_cast<std::size_t>(std::max(number, 0));
}

bool HasDigitAt(std::string_view text, std::size_t position) {
    return position < text.size() && '0' <= text[position] && text[position] <= '9';
}

bool ComesFirst(std::string_view left, std::string_view right) {
    const std::size_t tested = left.starts_with('$') && right.starts_with('$') ? 1 : 0;
    const bool leftIsDigit = HasDigitAt(left, tested);
    const bool rightIsDigit = HasDigitAt(right, tested);
    return leftIsDigit == rightIsDigit ? left < right : rightIsDigit;
}

// Returns the old position of each element of the sorted list. The sort is an exchange sort because
// its order of equal texts is part of the result, and no other sort gives the same order.
std::vector<std::size_t> SortedOrder(const std::vector<std::string>& texts) {
    std::vector<std::size_t> order(texts.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    for (std::size_t i = 0; i < order.size(); ++i) {
        for (std::size_t j = i + 1; j < order.size(); ++j) {
            if (ComesFirst(texts[order[j]], texts[order[i]])) std::swap(order[i], order[j]);
        }
    }
    return order;
}

}  // namespace

CMARCInfo::CMARCInfo(int integerCodes, int width, int count)
    : integerCodes_(integerCodes != 0), width_(integerCodes_ ? kIntegerWidth : NotNegative(width)) {
    try {
        codes_.assign(NotNegative(count) * width_, kUnset);
        texts_.resize(NotNegative(count));
        count_ = static_cast<int>(texts_.size());
    } catch (const std::exception&) {
        CGeneral::CheckAllocFailure(nullptr, __FILE__, __LINE__);
    }
}

void CMARCInfo::SetElement(int index, const void* code, std::string_view text) {
    if (!Has(index)) return;
    const std::size_t place = NotNegative(index);
    std::copy_n(static_cast<const unsigned char*>(code), width_, CodeAt(place));
    texts_[place] = text;
}

void CMARCInfo::GetCodeAt(int index, void* code) const {
    auto* out = static_cast<unsigned char*>(code);
    if (Has(index)) {
        std::copy_n(CodeAt(NotNegative(index)), width_, out);
    } else {
        std::fill_n(out, width_, integerCodes_ ? static_cast<unsigned char>(0) : kUnset);
    }
}

void CMARCInfo::GetStringAt(int index, std::string& text) const {
    if (Has(index)) text = texts_[NotNegative(index)];
}

int CMARCInfo::GetCodeFromString(std::string_view text, void* code) const {
    const auto found = std::find_if(texts_.begin(), texts_.end(), [&](const std::string& element) {
        return element.starts_with(text);
    });
    if (found == texts_.end()) return 0;
    GetCodeAt(static_cast<int>(found - texts_.begin()), code);
    return 1;
}

void CMARCInfo::Sort() {
    const std::vector<std::size_t> order = SortedOrder(texts_);
    std::vector<unsigned char> codes;
    std::vector<std::string> texts;
    codes.reserve(codes_.size());
    texts.reserve(texts_.size());
    for (const std::size_t from : order) {
        codes.insert(codes.end(), CodeAt(from), CodeAt(from) + width_);
        texts.push_back(std::move(texts_[from]));
    }
    codes_.swap(codes);
    texts_.swap(texts);
}

int CMARCInfo::GetSize() const {
    return count_;
}

}  // namespace zorby
