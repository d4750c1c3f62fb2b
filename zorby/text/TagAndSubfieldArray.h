#pragma once

#include <zorby/Export.h>

#include <memory>
#include <vector>

namespace zorby {

// A MARC tag with a subfield code.
class ZORBY_EXPORT CTagAndSubfield {
public:
    CTagAndSubfield(unsigned tag, char code);
    CTagAndSubfield(const CTagAndSubfield&);
    CTagAndSubfield& operator=(const CTagAndSubfield&);
    virtual ~CTagAndSubfield();

    // Compares by tag, then by code as an unsigned byte. Returns -1, 0 or 1.
    static int Compare(const CTagAndSubfield& left, const CTagAndSubfield& right);

    unsigned GetTag() const;
    char GetCode() const;

private:
    unsigned tag_;
    char code_;
};

// A set of tags with subfield codes. It owns its elements.
class ZORBY_EXPORT CTagAndSubfieldArray {
public:
    CTagAndSubfieldArray();
    CTagAndSubfieldArray(CTagAndSubfieldArray&&) noexcept;
    CTagAndSubfieldArray& operator=(CTagAndSubfieldArray&&) noexcept;
    virtual ~CTagAndSubfieldArray();

    // Returns the index of the new element, or -1 if memory ran out.
    int Add(unsigned tag, char code);
    int GetSize() const;
    // An index outside the array gives tag 1000, which is above all real tags, and code 0.
    void GetAt(int index, unsigned& tag, char& code) const;
    void Sort();
    // Sorts the array first.
    void RemoveDuplicates();

private:
    std::vector<std::unique_ptr<CTagAndSubfield>> elements_;
};

}  // namespace zorby
