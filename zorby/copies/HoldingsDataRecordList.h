#pragma once

#include <zorby/Export.h>
#include <zorby/archive/Object.h>
#include <zorby/copies/HoldingsDataRecord.h>

#include <memory>
#include <vector>

namespace zorby {

// The copies of a title, a record each, which the list owns. An index outside the list does
// nothing. Replace may leave places without a record, for which GetAt gives null: they count in the
// size and keep their place, but all else passes over them.
class ZORBY_EXPORT CHoldingsDataRecordList : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    static constexpr int kHighestIndex = 999'999;  // of Replace

    CHoldingsDataRecordList() = default;
    CHoldingsDataRecordList(const CHoldingsDataRecordList&) = delete;
    CHoldingsDataRecordList& operator=(const CHoldingsDataRecordList&) = delete;

    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    // Loading adds behind what the list holds, and nothing from a stored form of an unknown
    // version, where nothing is read behind the version byte. Where it throws, the records that
    // were whole are in the list.
    void Serialize(CArchive& archive) override;
    // Holds copies of the records up to the first place without one, in the room of what it held.
    // A list cloned from itself stays as it is.
    void CloneFrom(const CHoldingsDataRecordList& list);

    // The record's owner is this list from now on. Null is not added.
    void Add(std::unique_ptr<CHoldingsDataRecord> record);
    CHoldingsDataRecord* AddEmptyAtEnd(EHOLDINGSTYPE type);
    // Adds a copy without bar codes.
    void AddDuplicateAtEnd(int index);
    // Puts the record in the place of another, which is destroyed, or at an index of or behind the
    // size: the places up to there have no record then. Gives 1; or 0, and the list stays as it is,
    // for null, a negative index and one above kHighestIndex.
    int Replace(int index, std::unique_ptr<CHoldingsDataRecord> record);

    int GetSize() const { return static_cast<int>(records_.size()); }
    int GetCount() const { return GetSize(); }
    // Null outside the list.
    CHoldingsDataRecord* GetAt(int index);
    const CHoldingsDataRecord* GetAt(int index) const;

    // Destroy records. A pointer that isn't in the list does nothing.
    void DeleteByNumber(int index);
    void DeleteByPtr(const CHoldingsDataRecord* record);
    // Those that are empty or have no text, and places without a record.
    void RemoveEmptyOnes();
    void RemoveAll();

    // Of each record, and their sum.
    void SortByTagAndSubfield();
    unsigned GetMARCSize() const;
    // Each record adds fields of its own, in list order.
    void AddToPseudoMARC(CPmarc& marc) const;

    // The texts of the records in list order, with a character of code 1 between two; records
    // without such a text leave no trace.
    std::string GetRecVCallNumbers() const;
    std::string GetRecVBarCodes() const;

private:
    void Store(CArchive& archive) const;
    void Load(CArchive& archive);

    std::vector<std::unique_ptr<CHoldingsDataRecord>> records_;
};

}  // namespace zorby
