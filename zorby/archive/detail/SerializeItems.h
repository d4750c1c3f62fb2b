#pragma once

#include <zorby/archive/SerializeList.h>

namespace zorby {

// Stores or loads the items of a record in order.
template <class... Items>
void SerializeItems(CArchive& archive, Items&... items) {
    (SerializeElement(archive, items), ...);
}

}  // namespace zorby
