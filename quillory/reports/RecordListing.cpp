#include <quillory/faults/Errors.h>
#include <quillory/queries/SearchWords.h>
#include <quillory/reports/RecordListing.h>
#include <quillory/sets/SortKey.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

constexpr std::size_t kKeySize = 48;  // of a sort key, in bytes; most titles differ before that

}  // namespace

const std::string& TextOf(const ListRow& row, ListColumn column) {
    static const std::string kNone;
    switch (column) {
        case ListColumn::Title:
            return row.title;
        case ListColumn::Author:
            return row.author;
        case ListColumn::Date:
            return row.date;
        case ListColumn::Material:
            return row.material;
        case ListColumn::State:
        case ListColumn::Number:
            break;
    }
    return kNone;
}

void RecordListing::Filter(const std::string& typed) {
    WhereOptions where;
    where.expression = ExpressionOf(typed);
    filter_ =
        where.AsksForAll() ? nullptr : std::make_unique<RecordFilter>(where, kCharsetAuto, "");
    Restart();
}

void RecordListing::Sort(ListColumn column, bool isReverse) {
    column_ = column == ListColumn::State ? ListColumn::Number : column;
    isReverse_ = isReverse;
    Restart();
}

void RecordListing::Restart() {
    shown_.clear();
    keys_.clear();
    texts_.clear();
    filtered_ = 0;
    keyed_ = 0;
    isInOrder_ = !IsSorted() && !isReverse_;
    isShown_ = IsFiltered();
}

bool RecordListing::IsDone() const {
    const bool isFiltered = !IsFiltered() || filtered_ == file_.Size();
    return file_.IsWhole() && isFiltered && isInOrder_;
}

double RecordListing::Share() const {
    const double found = file_.ShareFound();
    const auto size = static_cast<double>(std::max<std::size_t>(file_.Size(), 1));
    const double filtered = IsFiltered() ? static_cast<double>(filtered_) / size : 1;
    const double keyed = isInOrder_ ? 1 : static_cast<double>(keyed_) / size;
    return std::min({found, filtered, keyed});
}

bool RecordListing::Work(std::size_t records) {
    if (!file_.IsWhole()) file_.FindMore(records);
    if (IsFiltered() && filtered_ < file_.Size()) {
        FilterMore(records);
    } else if (file_.IsWhole() && !isInOrder_) {
        CollectKeys(records);
    }
    return !IsDone();
}

void RecordListing::FilterMore(std::size_t records) {
    const std::size_t end = std::min(file_.Size(), filtered_ + records);
    for (; filtered_ < end; ++filtered_) {
        file_.Read(filtered_, item_);
        if (filter_->Takes(item_.record)) shown_.push_back(static_cast<std::uint32_t>(filtered_));
    }
}

void RecordListing::CollectKeys(std::size_t records) {
    const std::size_t size = IsFiltered() ? shown_.size() : file_.Size();
    std::string key;
    for (const std::size_t end = std::min(size, keyed_ + records); keyed_ < end; ++keyed_) {
        const std::size_t record = IsFiltered() ? shown_[keyed_] : keyed_;
        key.clear();
        if (IsSorted()) {
            file_.Read(record, item_);
            const ListRow row = rows_.RowOf(item_.record);
            AppendTextKey(quillory::TextOf(row, column_), key);
            key.resize(std::min(key.size(), kKeySize));
        }
        keys_.push_back({texts_.size(), static_cast<std::uint32_t>(key.size()),
                         static_cast<std::uint32_t>(record)});
        texts_ += key;
    }
    if (keyed_ == size) PutInOrder();
}

// Records without a text come last, whatever the direction.
void RecordListing::PutInOrder() {
    const auto comesBefore = [this](const Key& one, const Key& other) {
        if ((one.size == 0) != (other.size == 0)) return other.size == 0;
        const int order = TextOf(one).compare(TextOf(other));
        if (order != 0) return isReverse_ ? order > 0 : order < 0;
        return isReverse_ && !IsSorted() ? one.record > other.record : one.record < other.record;
    };
    std::ranges::sort(keys_, comesBefore);
    shown_.clear();
    for (const Key& key : keys_) shown_.push_back(key.record);
    keys_ = {};
    texts_ = {};
    isShown_ = true;
    isInOrder_ = true;
}

std::optional<std::size_t> RecordListing::RowOf(std::size_t record) const {
    if (!isShown_) return record < file_.Size() ? std::optional(record) : std::nullopt;
    const auto found = std::ranges::find(shown_, record);
    if (found == shown_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - shown_.begin());
}

}  // namespace quillory
