#pragma once

#include <zorby/Export.h>
#include <zorby/archive/Object.h>
#include <zorby/conditions/ContainType.h>
#include <zorby/copies/HoldingsDataElement.h>
#include <zorby/holdings/HoldingsType.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

class CHoldingsDataRecordList;
class COnlyWhenState;
class CPmarc;

// A subfield that is passed through to the output as it is.
struct ZORBY_EXPORT HoldingItemHold {
    std::int32_t tag = 0;
    char subfield = 0;
    std::string text;

    void Serialize(CArchive& archive);
};

// What a library knows about one copy of a title: its elements, in the order of entry until they
// are sorted, and subfields to pass through (holds). The record owns its elements. Several elements
// may have the same number; lookups give the first of them.
class ZORBY_EXPORT CHoldingsDataRecord : public CObject {
public:
    using Elements = std::vector<std::unique_ptr<CHoldingsDataElement>>;

    static const CRuntimeClass kRuntimeClass;

    // A record of the type HT_NONE, for loading or cloning into it.
    CHoldingsDataRecord() = default;
    // The type -1 stands for HT_TYPE_1.
    explicit CHoldingsDataRecord(EHOLDINGSTYPE type);
    CHoldingsDataRecord(const CHoldingsDataRecord&) = delete;
    CHoldingsDataRecord& operator=(const CHoldingsDataRecord&) = delete;

    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    // Stores version 2. Loads version 2 and version 1, which has no holds; of any other version
    // nothing after the version byte is read. A loaded type becomes its successor (HoldingsTypeRow)
    // if that is the type in force (CHoldingsSelector). Loading appends elements and holds to those
    // that are there, as they were stored.
    void Serialize(CArchive& archive) override;
    // Takes over the type and the value of SetPageHasData, and appends copies of the elements and
    // holds. Cloning a record from itself changes nothing.
    void CloneFrom(const CHoldingsDataRecord& record);

    EHOLDINGSTYPE GetHoldingsType() const;
    // Returns the list that the record is in, or null.
    const CHoldingsDataRecordList* GetOwner() const;

    // Adds an element. A further value of a repeating item goes to another of the item's numbers
    // (HoldingsTypeRow). In a triple that is the next free one, and the value is dropped if none is
    // free. In a pair it is the second one, which takes any number of values. An empty text is
    // added only if `keepEmpty` is nonzero. A text of white space is added as an empty one.
    void Add(EHOLDINGSID id, std::string_view text, int keepEmpty, int userValue);
    // Changes the first element with the number. If there is none, adds one unless the text is
    // empty.
    void Set(EHOLDINGSID id, std::string_view text);
    // If there is no such element, the text is empty and `element` null.
    std::string Get(EHOLDINGSID id) const;
    void Get(EHOLDINGSID id, std::string& text) const;
    void Get(EHOLDINGSID id, std::string& text, CHoldingsDataElement*& element);

    // The number of elements.
    int GetSize() const;
    int GetElementCount() const { return GetSize(); }
    // Returns null outside the record.
    CHoldingsDataElement* GetAt(int index);
    const CHoldingsDataElement* GetAt(int index) const;
    // Deletes the elements; holds stay.
    void RemoveAll();

    // Deletes the elements that are the bar code of any system.
    void EmptyBarCode();
    // Adds an empty element for each one of the type, as the dictionary in force has it, that has
    // no text here, so that a form shows all of them. An empty element that is there stays too.
    void AddMissingElements();
    void RemoveEmptyElements();
    // Appends to the text of the first element with the number, after the separator and a blank,
    // with a blank before kcHoldingsDelimiter. If there is no such element, adds it.
    void AddToPreviousOrAddNew(EHOLDINGSID id, std::string_view text, char separator);
    // Sets the call number of a record that has no elements, or that begins with the call number
    // (HoldingsTypeRow; all of the text goes into one part). Does nothing for other records, or if
    // the type has no call number.
    void SetCallNumber(std::string_view text);

    // These take the first element that matches, or all that match, out of the record. What they
    // return belongs to the caller; it is null or empty if nothing matches.
    std::unique_ptr<CHoldingsDataElement> DeleteElement(const CHoldingsDataElement* element);
    std::unique_ptr<CHoldingsDataElement> DeleteElement(EHOLDINGSID id);
    Elements DeleteAllElementsExcept(const std::vector<unsigned>& ids);
    Elements DeleteOnesMarkedForLaterDeletion();
    // Marks the first element with the number, if there is one.
    void MarkElementForLaterDeletion(EHOLDINGSID id);

    // Returns the number at a position in a path of elements, such as "\250\258\", counted from
    // 0, or -1 outside of it. What comes after the last backslash is not read.
    static int GetHoldingsID(int position, std::string_view path);
    // Makes a record in which the elements of one path have gone to those at the same positions in
    // another, all at once, so that two can be swapped. Values go in by Add, before what the target
    // had is deleted: one that goes to a number of a repeating item may land on a further one. A
    // position with a text of COnlyWhenState in `onlyWhenTexts` is passed over if the element does
    // not meet it; an element that is missing or empty meets none. Without `keepOthers` only the
    // elements whose number a value was moved to remain. Holds are copied.
    //
    // Returns null if nothing changes. May leave this record sorted, as IsEqualTo does.
    std::unique_ptr<CHoldingsDataRecord> ChangeElementsNewDR(
        std::string_view fromPath, std::string_view toPath,
        const std::vector<std::string>& onlyWhenTexts, int keepOthers);

    // Returns the record if it meets the condition, else null.
    CHoldingsDataRecord* OnlyWhenRecord(const COnlyWhenState& state);
    // Return 1 if the elements with the number, or all elements with `anySubfield`, pass the test,
    // else 0. One element is enough to contain a text, and one with text is not empty. The two
    // other tests are their opposites, so that a record without such elements passes them. An
    // unknown type gives 0.
    int OnlyWhenRecordMeetsCondition(int anySubfield, int matchCase, std::string_view text,
                                     CONTAIN_TYPE type, EHOLDINGSID id) const;
    int OnlyWhenRecordMeetsCondition_Contains(int anySubfield, int matchCase, std::string_view text,
                                              EHOLDINGSID id) const;
    int OnlyWhenRecordMeetsCondition_DoesNotContain(int anySubfield, int matchCase,
                                                    std::string_view text, EHOLDINGSID id) const;
    int OnlyWhenRecordMeetsCondition_EmptyOrMissing(int anySubfield, EHOLDINGSID id) const;
    int OnlyWhenRecordMeetsCondition_NotEmpty(int anySubfield, EHOLDINGSID id) const;

    void AddHoldingItemHold(int tag, char subfield, std::string_view text);
    const std::vector<HoldingItemHold>& GetHolds() const;

    // Nonzero while an editor page holds data for a record that has no elements yet.
    void SetPageHasData(int hasData);
    // For a type with an automatic element (HoldingsTypeRow): returns whether no other element has
    // text. For other types: returns whether there is no element, not even one without text, and no
    // data on an editor page.
    bool IsEmpty() const;
    // Returns whether no element except automatic ones has text other than white space.
    bool HasNoText() const;

    // Returns whether both have the same type and, in any order, the same elements. Holds aren't
    // compared. If types and counts agree, both records are left sorted as by Sort.
    bool IsEqualTo(CHoldingsDataRecord& record);

    // Both sorts keep equal elements in their order. Sort puts the highest number first.
    void Sort();
    // Sorts into the order of output, which depends on what the dictionary says about each number.
    // The highest tag comes first. Within a tag, parts of composed subfields are in the order of
    // their numbers, and other subfields in the order of their codes, with digits after everything
    // else. The second element of some pairs comes after any first one of the tag (HoldingsPair).
    // Elements that are not in the dictionary in force come last.
    void SortByTagAndSubfield();

    // Returns how many bytes the elements take in a MARC record, with one field around them, or 0
    // if none has text. Holds aren't counted.
    unsigned GetMARCSize() const;

    // Adds the elements in their order, and then the holds, to new fields of `marc`: one field for
    // each of the first two tags. Elements of a third tag go to the second field. Holds of a third
    // tag are dropped, and so are elements that are not in the dictionary in force. Subfields
    // composed of several elements come last in the first field. That field gets the indicators of
    // the type in force (CHoldingsSelector), if it has any, whatever the type of the record.
    void AddToPseudoMARC(CPmarc& marc) const;

    // What the host's list shows for the copy: the call number for the type of the record, with its
    // parts joined by blanks; and all bar codes, including those of other systems.
    std::string GetRecVCallNumber() const;
    std::string GetRecVBarCode() const;

private:
    friend class CHoldingsDataRecordList;  // sets the owner

    CHoldingsDataElement* Find(EHOLDINGSID id) const;
    bool IsFree(EHOLDINGSID id) const;
    bool MoveToFree(EHOLDINGSID& id) const;

    int pageHasData_ = 0;
    EHOLDINGSTYPE holdingsType_ = HT_NONE;
    const CHoldingsDataRecordList* owner_ = nullptr;
    Elements elements_;
    std::vector<HoldingItemHold> holds_;
};

}  // namespace zorby
