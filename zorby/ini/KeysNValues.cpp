#include <zorby/ini/KeysNValues.h>
#include <zorby/platform/detail/Decimal.h>

#include <algorithm>

namespace zorby {

void CKeysNValues::SetSeperator(std::string_view separator) {
    separator_ = separator;
}

void CKeysNValues::Set(std::string_view text, bool allowTrailingBackslash) {
    pairs_.clear();
    while (!text.empty() && !separator_.empty()) {
        std::size_t end = text.find(separator_);
        if (end == std::string_view::npos) return;
        if (allowTrailingBackslash && text.substr(end + 1).starts_with(separator_)) ++end;
        if (end > 0) ParseAndAdd(text.substr(0, end));
        text.remove_prefix(end + separator_.size());
    }
}

std::string CKeysNValues::Get() const {
    std::string text;
    for (const auto& [key, value] : pairs_) {
        text.append(key).append("=").append(value).append(separator_);
    }
    return text;
}

void CKeysNValues::SetKey(std::string_view key, std::string_view value) {
    const auto found = Find(key);
    if (found == pairs_.end()) {
        pairs_.emplace_back(key, value);
    } else {
        pairs_[static_cast<std::size_t>(found - pairs_.begin())].second = value;
    }
}

void CKeysNValues::SetKey(std::string_view key, int value) {
    SetKey(key, std::to_string(value));
}

int CKeysNValues::GetKey(std::string_view key, std::string& value) const {
    const auto found = Find(key);
    if (found == pairs_.end()) return 0;
    value = found->second;
    return 1;
}

int CKeysNValues::GetKey(std::string_view key, int& value) const {
    std::string text;
    if (!GetKey(key, text)) return 0;
    value = DecimalInt(text);
    return 1;
}

int CKeysNValues::GetKey(std::string_view key, unsigned& value) const {
    std::string text;
    if (!GetKey(key, text)) return 0;
    value = DecimalUnsigned(text);
    return 1;
}

void CKeysNValues::RemoveKey(std::string_view key) {
    const auto found = Find(key);
    if (found != pairs_.end()) pairs_.erase(found);
}

void CKeysNValues::RemoveAllKeys() {
    pairs_.clear();
}

bool CKeysNValues::IsEmpty() const {
    return pairs_.empty();
}

void CKeysNValues::ParseAndAdd(std::string_view piece) {
    const std::size_t equals = piece.find('=');
    if (equals == std::string_view::npos) {
        pairs_.emplace_back("", piece);
    } else {
        pairs_.emplace_back(piece.substr(0, equals), piece.substr(equals + 1));
    }
}

std::vector<CKeysNValues::Pair>::const_iterator CKeysNValues::Find(std::string_view key) const {
    return std::ranges::find(pairs_, key, &Pair::first);
}

}  // namespace zorby
