#pragma once

#include <zorby/Export.h>
#include <zorby/format/InfoAboutList.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace zorby {

// A subfield with which a new record begins. Its text is in the Qm code. In a list, an entry with
// tag 0 continues the field that the entry before it began.
class ZORBY_EXPORT CInfoAboutDefaultData : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    void Serialize(CArchive& archive) override;

    void Create(unsigned tag, char first, char second, char code, std::string_view data);
    // The tag is 0, and both indicators are NUL.
    void Create(char code, std::string_view data);
    void CloneFrom(const CInfoAboutDefaultData& other);

    unsigned GetTag() const;
    // Returns the first indicator for 1, the second for any other number. A blank ("_") is returned
    // as NUL.
    char GetIndicator(int which) const;
    // Returns the same as it is stored.
    char GetIndicatorRaw(int which) const;
    char GetSubCode() const;
    const std::string& GetDefaultData() const;

private:
    unsigned tag_ = 0;
    char first_ = 0;
    char second_ = 0;
    char code_ = 0;
    std::string data_;
};

class ZORBY_EXPORT CInfoAboutDefaultDataList : public InfoAboutList<CInfoAboutDefaultData> {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    void AddDefaultData(unsigned tag, char first, char second, char code, std::string_view data);
    void AddDefaultData(char code, std::string_view data);
    // Appends copies of all records.
    void CloneFrom(const CInfoAboutDefaultDataList& other);

    void RemoveAll();

    // Walk through the list. There is only one walk; it returns null at the end.
    const CInfoAboutDefaultData* GetFirst();
    const CInfoAboutDefaultData* GetNext();

private:
    std::size_t next_ = 0;
};

}  // namespace zorby
