#pragma once

#include <zorby/copies/HoldingsDataRecord.h>

#include <string>
#include <tests/zorby/format/Dictionaries.h>

inline zorby::EHOLDINGSID ID(int number) {
    return static_cast<zorby::EHOLDINGSID>(number);
}

// The numbers of the elements, divided by blanks.
inline std::string IDs(const zorby::CHoldingsDataRecord& record) {
    std::string all;
    for (int i = 0; i < record.GetSize(); ++i) {
        all += (i == 0 ? "" : " ") + std::to_string(record.GetAt(i)->GetID());
    }
    return all;
}

// Such as "101=x 102=y".
inline std::string Elements(const zorby::CHoldingsDataRecord& record) {
    std::string all;
    for (int i = 0; i < record.GetSize(); ++i) {
        const zorby::CHoldingsDataElement& element = *record.GetAt(i);
        all += (i == 0 ? "" : " ") + std::to_string(element.GetID()) + "=" + element.GetText();
    }
    return all;
}
