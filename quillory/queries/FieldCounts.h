#pragma once

#include <quillory/exchange/Record.h>

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// How often something came.
struct Tally {
    std::uint64_t records = 0;
    std::uint64_t count = 0;
    std::uint64_t lastRecord = 0;  // that has it; from 1

    void Add(std::uint64_t record) {
        ++count;
        if (lastRecord != record) ++records;
        lastRecord = record;
    }
    // What was counted of other records.
    void Add(const Tally& others) {
        records += others.records;
        count += others.count;
    }
};

// Counts fields, their subfields and indicators.
class FieldCounts {
public:
    void Add(const Record& record);
    // What was counted of other records.
    void Add(const FieldCounts& others);

    std::uint64_t Records() const { return records_; }
    std::uint64_t Fields() const { return fields_; }
    std::uint64_t Subfields() const { return subfields_; }

    // Calls `take(tag, tally)`, `take(tag, code, tally)` and `take(tag, indicator, byte, tally)` in
    // the order of tags, codes and bytes.
    template <class Take>
    void ForEachTag(Take&& take) const {
        ForEach([&](const std::string& tag, const Counts& counts) { take(tag, counts.field); });
    }
    template <class Take>
    void ForEachCode(Take&& take) const {
        ForEach([&](const std::string& tag, const Counts& counts) {
            ForEachByte(counts.codes,
                        [&](char code, const Tally& tally) { take(tag, code, tally); });
        });
    }
    template <class Take>
    void ForEachIndicator(Take&& take) const {
        ForEach([&](const std::string& tag, const Counts& counts) {
            for (int which = 1; which <= 2; ++which) {
                const auto& bytes = counts.indicators[static_cast<std::size_t>(which - 1)];
                ForEachByte(bytes,
                            [&](char byte, const Tally& tally) { take(tag, which, byte, tally); });
            }
        });
    }

private:
    using Bytes = std::array<Tally, 256>;

    struct Counts {
        Tally field;
        Bytes codes;
        std::array<Bytes, 2> indicators;

        void Add(const Counts& others);
    };

    template <class Take>
    static void ForEachByte(const Bytes& bytes, Take&& take) {
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            if (bytes[i].count != 0) take(static_cast<char>(i), bytes[i]);
        }
    }
    template <class Take>
    void ForEach(Take&& take) const {
        for (std::size_t tag = 0; tag < byNumber_.size(); ++tag) {
            if (byNumber_[tag]) take(TagText(static_cast<unsigned>(tag)), *byNumber_[tag]);
        }
        for (const auto& [tag, counts] : others_) take(tag, *counts);
    }

    Counts& CountsOf(std::string_view tag);

    std::uint64_t records_ = 0;
    std::uint64_t fields_ = 0;
    std::uint64_t subfields_ = 0;
    std::array<std::unique_ptr<Counts>, kTags> byNumber_;
    std::map<std::string, std::unique_ptr<Counts>, std::less<>> others_;
};

}  // namespace quillory
