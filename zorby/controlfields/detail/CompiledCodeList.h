#pragma once

#include <zorby/controlfields/detail/CodeMenu.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <numeric>
#include <string_view>

// Makes a CodeList of the rows of a list at compile time: nothing is built at run time, so nothing
// needs a lock and nothing is ever freed.
namespace zorby {

template <const auto& kRows>
inline constexpr std::size_t kItemCount = std::size(kRows) - 2;

template <const auto& kRows>
constexpr std::size_t SizeOfTexts() {
    std::size_t size = 1;
    for (std::size_t i = 1; i <= kItemCount<kRows>; ++i) size += TextOf(kRows[i]).size() + 1;
    return size;
}

template <const auto& kRows>
constexpr auto JoinTexts() {
    std::array<char, SizeOfTexts<kRows>()> texts{};
    auto end = texts.begin();
    for (std::size_t i = 1; i <= kItemCount<kRows>; ++i) {
        const std::string_view text = TextOf(kRows[i]);
        end = std::copy(text.begin(), text.end(), end) + 1;
    }
    return texts;
}

template <const auto& kRows>
constexpr auto OrderByCode() {
    std::array<std::uint16_t, kItemCount<kRows>> order{};
    std::iota(order.begin(), order.end(), std::uint16_t{0});
    std::sort(order.begin(), order.end(), [](std::uint16_t left, std::uint16_t right) {
        return std::string_view(kRows[left + 1]) < std::string_view(kRows[right + 1]);
    });
    return order;
}

template <const auto& kRows>
inline constexpr auto kTexts = JoinTexts<kRows>();

template <const auto& kRows>
inline constexpr auto kOrder = OrderByCode<kRows>();

template <const auto& kRows>
inline constexpr CodeList kList = {kRows, kTexts<kRows>.data(), kOrder<kRows>.data(),
                                   static_cast<int>(kItemCount<kRows>)};

}  // namespace zorby
