#pragma once

#include <zorby/Export.h>
#include <zorby/archive/Archive.h>
#include <zorby/archive/Object.h>
#include <zorby/archive/SerializeList.h>
#include <zorby/format/InfoAboutIndex.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace zorby {

// What the lists of the dictionary and of workforms have in common. A list owns its records, keeps
// them in the order in which they were added, and finds the first of several that match. A record
// keeps its address until it is removed.
template <class Record>
class ZORBY_EXPORT InfoAboutList : public CObject {
public:
    int GetSize() const { return static_cast<int>(records_.size()); }
    // Returns null outside the list.
    const Record* GetAt(int index) const {
        return index < 0 ? nullptr : At(static_cast<std::size_t>(index));
    }

    // Loading appends to what the list holds. If it throws, the list is as it was before.
    void Serialize(CArchive& archive) override {
        if (archive.IsStoring()) return SerializeList(archive, records_);
        std::vector<std::unique_ptr<Record>> loaded;
        SerializeList(archive, loaded);
        for (auto& record : loaded) Append(std::move(record));
    }

protected:
    const Record* At(std::size_t position) const {
        return position < records_.size() ? records_[position].get() : nullptr;
    }

    std::span<const std::size_t> PositionsOf(unsigned tag) const { return index_.Of(tag); }

    // Returns the first record of the tag that passes the test, or null.
    template <class Test>
    const Record* FindFirst(unsigned tag, Test test) const {
        const auto positions = PositionsOf(tag);
        const auto found = std::find_if(positions.begin(), positions.end(),
                                        [&](std::size_t at) { return test(*records_[at]); });
        return found == positions.end() ? nullptr : records_[*found].get();
    }

    const Record* FindFirst(unsigned tag) const {
        const auto positions = PositionsOf(tag);
        return positions.empty() ? nullptr : records_[positions.front()].get();
    }

    // The arguments are those of the record's Create.
    template <class... Fields>
    void AppendNew(const Fields&... fields) {
        auto record = std::make_unique<Record>();
        record->Create(fields...);
        Append(std::move(record));
    }

    void Append(std::unique_ptr<Record> record) {
        records_.push_back(std::move(record));
        index_.Add(records_.back()->GetTag());
    }

    template <class Test>
    void RemoveIf(Test test) {
        std::erase_if(records_, [&](const auto& record) { return test(*record); });
        index_ = {};
        for (const auto& record : records_) index_.Add(record->GetTag());
    }

private:
    std::vector<std::unique_ptr<Record>> records_;
    InfoAboutIndex index_;
};

}  // namespace zorby
