#pragma once

#include <zorby/layouts/DialogLayout.h>
#include <zorby/layouts/detail/LayoutElements.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <span>

// Turns the elements of a material into the rows of its forms, at compile time.
namespace zorby {

// A vector for use at compile time. Too many items fail to compile.
template <class Item>
struct LayoutList {
    std::array<Item, 32> items = {};
    std::size_t used = 0;

    constexpr void push_back(const Item& item) { items[used++] = item; }
    constexpr std::size_t size() const { return used; }
    constexpr const Item* begin() const { return items.data(); }
    constexpr const Item* end() const { return items.data() + used; }
};

using LayoutRows = LayoutList<CCFDialogLayout>;
using LayoutElements = LayoutList<LayoutElement>;

inline constexpr CCFDialogLayout kEndOfLayout = {0,  nullptr, CFPEndOfTable, CFControlEndOfTable,
                                                 {}, {}};

// An element without a row in kLayoutElements fails to compile.
constexpr LayoutElement ElementOf(CFPart part) {
    return *std::find_if(std::begin(kLayoutElements), std::end(kLayoutElements),
                         [part](const LayoutElement& element) { return element.part == part; });
}

constexpr LayoutElements ElementsOnPage(int page, std::span<const CFPart> parts) {
    LayoutElements elements;
    for (const CFPart part : parts) {
        if (ElementOf(part).page == page) elements.push_back(ElementOf(part));
    }
    return elements;
}

// A column of labels, each with its control below it.
struct LayoutColumn {
    int left;
    int width;
    int top = 20;
    int step = 40;

    constexpr CCFDialogLayout Next(int page, const LayoutElement& element) {
        constexpr int kLabelHeight = 13;
        constexpr int kControlHeight = 20;
        const CFDialogBox label = {top, left, kLabelHeight, width};
        const CFDialogBox control = {top + kLabelHeight, left, kControlHeight, width};
        top += step;
        return {page, element.label, element.part, element.controlType, label, control};
    }
};

inline constexpr LayoutColumn kHalves[] = {{10, 235}, {265, 235}};
inline constexpr LayoutColumn kThirds[] = {{10, 157}, {177, 157}, {344, 157}};

// Fills the columns one after the other, all but the last to the same length.
constexpr void Spread(LayoutRows& rows, int page, const LayoutElements& elements,
                      std::span<const LayoutColumn> columns) {
    const std::size_t length = (elements.size() + columns.size() - 1) / columns.size();
    const LayoutElement* element = elements.begin();
    for (LayoutColumn column : columns) {
        for (std::size_t i = 0; i < length && element != elements.end(); ++i) {
            rows.push_back(column.Next(page, *element++));
        }
    }
}

constexpr void AddGeneralPage(LayoutRows& rows, std::span<const CFPart> own) {
    constexpr CFDialogBox kDateGroup = {10, 10, 230, 495};
    constexpr int kTop = 260;
    constexpr int kStep = 60;
    const LayoutElement dates = ElementOf(CFP008TypeOfDate);
    rows.push_back({kGeneralPage, dates.label, dates.part, dates.controlType, kDateGroup, {}});
    LayoutColumn right = {kHalves[1].left, kHalves[1].width, kTop, kStep};
    for (const CFPart part : {CFP008PlaceOfPublication, CFP008Language}) {
        rows.push_back(right.Next(kGeneralPage, ElementOf(part)));
    }
    LayoutColumn left = {kHalves[0].left, kHalves[0].width, kTop, kStep};
    for (const LayoutElement& element : ElementsOnPage(kGeneralPage, own)) {
        rows.push_back(left.Next(kGeneralPage, element));
    }
}

constexpr void AddLeaderPage(LayoutRows& rows, std::span<const CFPart> own, CFPart level) {
    LayoutElements inLeft;
    inLeft.push_back(ElementOf(CFP008ModifiedRecord));
    inLeft.push_back(ElementOf(CFP008CatalogingSource));
    for (const LayoutElement& element : ElementsOnPage(kLeaderPage, own)) inLeft.push_back(element);
    inLeft.push_back(ElementOf(CFPLdrRecordStatus));
    inLeft.push_back(ElementOf(level));
    LayoutColumn left = kHalves[0];
    for (const LayoutElement& element : inLeft) rows.push_back(left.Next(kLeaderPage, element));
    LayoutColumn right = kHalves[1];
    for (const CFPart part :
         {CFPLdrTypeOfControl, CFPLdrEncodingLevel, CFPLdrDescriptiveForm, CFPLdrMultipartLevel}) {
        rows.push_back(right.Next(kLeaderPage, ElementOf(part)));
    }
}

constexpr LayoutRows FullRows(std::span<const CFPart> own, CFPart level) {
    LayoutRows rows;
    AddGeneralPage(rows, own);
    Spread(rows, kMaterialPage, ElementsOnPage(kMaterialPage, own), kHalves);
    AddLeaderPage(rows, own, level);
    Spread(rows, kMicroformPage, ElementsOnPage(kMicroformPage, own), kHalves);
    return rows;
}

// An additional material has the type of record in its own 006, and a different control for the
// type of sound recording.
constexpr LayoutElement InAdditionalForm(CFPart part) {
    switch (part) {
        case CFPLdrTypeOfRecordBook:
            return ElementOf(CFP006BooksTypeOfRecord);
        case CFPLdrTypeOfRecordMap:
            return ElementOf(CFP006MapTypeOfRecord);
        case CFPLdrTypeOfRecordMusic:
            return ElementOf(CFP006MusicSoundTypeOfRecordMusic);
        default:
            break;
    }
    LayoutElement element = ElementOf(part);
    if (element.controlType == CFControlSRTypeGroup) element.controlType = CFControlSRTypeList;
    return element;
}

constexpr LayoutRows AdditionalRows(std::span<const CFPart> own,
                                    std::span<const LayoutColumn> columns) {
    LayoutElements elements;
    for (const CFPart part : own) elements.push_back(InAdditionalForm(part));
    LayoutRows rows;
    Spread(rows, kGeneralPage, elements, columns);
    return rows;
}

template <std::size_t Size>
consteval std::array<CCFDialogLayout, Size + 1> Ended(const LayoutRows& rows) {
    std::array<CCFDialogLayout, Size + 1> table = {};
    *std::copy(rows.begin(), rows.end(), table.begin()) = kEndOfLayout;
    return table;
}

template <const auto& Own, CFPart Level = CFPLdrBibliographicLevel>
inline constexpr auto kFullForm = Ended<FullRows(Own, Level).size()>(FullRows(Own, Level));

template <const auto& Own, const auto& Columns = kHalves>
inline constexpr auto kAdditionalForm =
    Ended<AdditionalRows(Own, Columns).size()>(AdditionalRows(Own, Columns));

}  // namespace zorby
