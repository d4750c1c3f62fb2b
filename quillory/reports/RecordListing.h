#pragma once

#include <quillory/jobs/RecordFilter.h>
#include <quillory/jobs/RecordSet.h>
#include <quillory/reports/ListRow.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillory {

enum class ListColumn : std::uint8_t { State, Title, Author, Date, Material, Number };

// The text of a row in a column; empty for the state and the number, which are not of the record.
const std::string& TextOf(const ListRow& row, ListColumn column);

// Which records of a set a list shows, and in what order. What takes time is done in steps, so
// that a window stays alive; until it is done, the list shows what is known.
class RecordListing {
public:
    // Keeps the reference.
    explicit RecordListing(RecordSet& file) : file_(file) {}

    // Only records that match what is typed; all of them if that is empty. Throws UsageError for an
    // expression that can't be read, and then all stays.
    void Filter(const std::string& typed);
    // By the library's rules; by State or Number in the order of the file.
    void Sort(ListColumn column, bool isReverse);
    // A step: so many records are looked at. False if nothing is left to do. Throws FileError.
    bool Work(std::size_t records);
    bool IsDone() const;
    // From 0 to 1.
    double Share() const;

    bool IsFiltered() const { return filter_ != nullptr; }
    std::size_t Size() const { return isShown_ ? shown_.size() : file_.Size(); }
    std::size_t At(std::size_t row) const { return isShown_ ? shown_[row] : row; }
    std::optional<std::size_t> RowOf(std::size_t record) const;

private:
    struct Key {
        std::size_t begin;
        std::uint32_t size;
        std::uint32_t record;
    };

    bool IsSorted() const { return column_ != ListColumn::Number; }
    void Restart();
    void FilterMore(std::size_t records);
    void CollectKeys(std::size_t records);
    void PutInOrder();
    std::string_view TextOf(const Key& key) const {
        return std::string_view(texts_).substr(key.begin, key.size);
    }

    RecordSet& file_;
    std::unique_ptr<RecordFilter> filter_;
    ListColumn column_ = ListColumn::Number;
    bool isReverse_ = false;
    bool isShown_ = false;              // `shown_` says what is listed; else all records are
    std::vector<std::uint32_t> shown_;  // in the order of the list
    std::size_t filtered_ = 0;          // records that were looked at
    std::size_t keyed_ = 0;             // rows that have a key
    bool isInOrder_ = true;
    std::vector<Key> keys_;
    std::string texts_;
    ListRows rows_;
    Item item_;
};

}  // namespace quillory
