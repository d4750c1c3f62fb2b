#include <quillory/exchange/ItemMemory.h>
#include <quillory/exchange/PartOf.h>

namespace quillory {
namespace {

template <class Visit>
void ForEachView(Item& item, Visit&& visit) {
    visit(item.bytes);
    visit(item.record.leader);
    visit(item.record.bytes);
    for (zorby::CommFormatField& field : item.record.fields) {
        visit(field.tag);
        visit(field.content);
    }
}

}  // namespace

// Views of the item's own bytes are views of their copy; what they show elsewhere comes after it.
void ItemMemory::Copy(const Item& item, Item& copy) {
    copy = item;
    std::size_t size = item.bytes.size();
    ForEachView(copy, [&](std::string_view view) {
        if (!IsPartOf(view, item.bytes)) size += view.size();
    });
    std::string& text = texts_.emplace_back();
    text.reserve(size);
    text = item.bytes;
    ForEachView(copy, [&](std::string_view& view) {
        if (IsPartOf(view, item.bytes)) {
            view = {text.data() + (view.data() - item.bytes.data()), view.size()};
        } else {
            const std::size_t at = text.size();
            text += view;
            view = {text.data() + at, view.size()};
        }
    });
}

}  // namespace quillory
