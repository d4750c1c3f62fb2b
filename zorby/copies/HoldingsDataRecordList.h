#pragma once

#include <zorby/Export.h>
#include <zorby/archive/Object.h>
#include <zorby/copies/HoldingsDataRecord.h>

#include <memory>
#include <vector>

namespace zorby {

// The copies of a title, one record each. The list owns the records. An index outside the list does
// nothing. Replace may leave places without a record, for which GetAt returns null. Such places
// count in the size and keep their index, but everything else skips them.
class ZORBY_EXPORT CHoldingsDataRecordList : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    static constexpr int kHighestIndex = 999'999;  // the highest index that Replace takes

    CHoldingsDataRecordList() = default;
    CHoldingsDataRecordList(const CHoldingsDataRecordList&) = delete;
    CHoldingsDataRecordList& operator=(const CHoldingsDataRecordList&) = delete;

    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    // Loading appends to what the list holds. Of a stored form of an unknown version nothing after
    // the version byte is read. If this throws, the list keeps the records that were read
    // completely.
    void Serialize(CArchive& archive) override;
    // Replaces what the list holds by copies of the records up to the first place without one.
    // Cloning a list from itself changes nothing.
    void CloneFrom(const CHoldingsDataRecordList& list);

    // The list becomes the owner of the record. Null is not added.
    void Add(std::unique_ptr<CHoldingsDataRecord> record);
    CHoldingsDataRecord* AddEmptyAtEnd(EHOLDINGSTYPE type);
    // Adds a copy of a record, without bar codes.
    void AddDuplicateAtEnd(int index);
    // Puts the record in the place of another, which is deleted, or at an index after the last one;
    // the places before that index then have no record. Returns 1, or 0 with the list unchanged if
    // the record is null, or the index negative or above kHighestIndex.
    int Replace(int index, std::unique_ptr<CHoldingsDataRecord> record);

    int GetSize() const;
    int GetCount() const { return GetSize(); }
    // Returns null outside the list.
    CHoldingsDataRecord* GetAt(int index);
    const CHoldingsDataRecord* GetAt(int index) const;

    // Delete records. A pointer that isn't in the list does nothing.
    void DeleteByNumber(int index);
    void DeleteByPtr(const CHoldingsDataRecord* record);
    // Deletes the records that are empty or have no text, and the places without a record.
    void RemoveEmptyOnes();
    void RemoveAll();

    // Sort each record, and add up their sizes.
    void SortByTagAndSubfield();
    unsigned GetMARCSize() const;
    // Each record adds fields of its own, in list order.
    void AddToPseudoMARC(CPmarc& marc) const;

    // Return the texts of the records in list order, with a character of code 1 between two texts.
    // Records without such a text are left out.
    std::string GetRecVCallNumbers() const;
    std::string GetRecVBarCodes() const;

private:
    void Store(CArchive& archive) const;
    void Load(CArchive& archive);

    std::vector<std::unique_ptr<CHoldingsDataRecord>> records_;
};

}  // namespace zorby
