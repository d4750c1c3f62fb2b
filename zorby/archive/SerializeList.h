#pragma once

#include <zorby/archive/Archive.h>

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace zorby {

// Stores or loads an element of a list: an object through its own Serialize, any other item through
// the archive's operators.
template <class Element>
void SerializeElement(CArchive& archive, Element& element) {
    if constexpr (requires { element.Serialize(archive); }) {
        element.Serialize(archive);
    } else if (archive.IsStoring()) {
        archive << element;
    } else {
        archive >> element;
    }
}

template <class Element>
void SerializeElement(CArchive& archive, std::unique_ptr<Element>& element) {
    if (!element) element = std::make_unique<Element>();
    element->Serialize(archive);
}

// Stores or loads a list: an int32 count, then the elements in order. Loading appends to what
// `list` holds; a count of zero or less appends nothing. If this throws, `list` keeps the elements
// that were read completely.
template <class Element>
void SerializeList(CArchive& archive, std::vector<Element>& list) {
    if (archive.IsStoring()) {
        archive << static_cast<std::int32_t>(list.size());
        for (Element& element : list) SerializeElement(archive, element);
        return;
    }
    std::int32_t count = 0;
    archive >> count;
    for (std::int32_t i = 0; i < count; ++i) {
        Element element{};
        SerializeElement(archive, element);
        list.push_back(std::move(element));
    }
}

}  // namespace zorby
