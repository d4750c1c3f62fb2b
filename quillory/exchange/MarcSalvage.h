#pragma once

#include <quillory/exchange/FieldMender.h>
#include <quillory/exchange/Record.h>

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// What can be read of an ISO 2709 record whose bytes break the format. A field is read where the
// directory and the ends in the data leave no doubt about its tag and its bytes, as the library's
// rescue has it for the record as a whole; here each field counts by itself, line ends that were
// put in on the way are known, and fields whose inside is damaged are mended.
class MarcSalvage {
public:
    // Reads the bytes of one record. What is given holds until the next call, and as long as the
    // bytes.
    void Read(std::string_view bytes);

    // Whether a record comes of it: more than half of its fields are certain.
    bool IsRecord() const { return isRecord_; }
    // Whether nothing was left out or mended.
    bool IsWhole() const { return isRecord_ && mends_.empty(); }

    // Leader and fields that are certain, and what was done to them or left out. Offsets count
    // from the start of the bytes.
    std::string_view Leader() const { return leader_; }
    const std::vector<zorby::CommFormatField>& Fields() const { return fields_; }
    const std::vector<ItemFault>& Mends() const { return mends_; }
    // What else is there, for a person to look at: fields as they stand, with the tag "???" where
    // it is not known.
    const std::vector<zorby::CommFormatField>& Others() const { return others_; }

private:
    struct Entry {
        std::string_view tag;
        std::optional<std::size_t> size, start;  // where they are numbers
    };

    bool ReadUnwrapped(std::string_view bytes);
    bool ReadWhole(std::string_view bytes);
    void ReadFields(std::string_view bytes);
    std::size_t DirectoryEnd(std::string_view bytes) const;
    bool ReadDirectory(std::string_view directory);
    bool ReadGrownDirectory(std::string_view directory);
    void SplitData(std::string_view data);
    void Match();
    bool MatchInOrder();
    bool MatchTiles();
    std::size_t MatchEach(bool inCharacters);
    void TakeMatches();
    void TakeField(std::string_view tag, std::string_view content);
    void LeaveOut(FaultCode code, std::string_view tag, std::string_view content);
    std::size_t OffsetOf(std::string_view part) const;
    Place PlaceOfNext(std::string_view tag) const;

    std::string_view bytes_;
    std::string_view data_;
    std::vector<Entry> entries_;
    std::vector<std::string_view> contents_;  // between the field terminators of the data
    std::vector<bool> used_;                  // of those
    std::vector<std::string_view> matches_;   // content of each entry; its data is null for none

    std::map<std::string, std::uint32_t, std::less<>> taken_;  // fields of each tag

    bool isRecord_ = false;
    std::string_view leader_;
    std::string unwrapped_;
    zorby::CommFormatFields read_;
    zorby::CommFormatRescue rescue_;
    FieldMender mender_;
    std::vector<zorby::CommFormatField> fields_;
    std::vector<zorby::CommFormatField> others_;
    std::vector<ItemFault> mends_;
};

}  // namespace quillory
