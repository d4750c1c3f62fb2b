#pragma once

#include <quillory/cataloging/Entry.h>
#include <zorby/workforms/TemplateList.h>

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillory {

struct ControlField {
    unsigned tag = 0;
    std::string content;
};

// A field that a new record begins with.
struct PatternField {
    unsigned tag = 0;
    std::string indicators;               // two
    std::vector<SubfieldText> subfields;  // in the order in which they are filled

    // The text of the subfield; null if the field lacks it.
    const std::string* Find(char code) const;
    // The first subfield other than the words before a linked title ($i); null if there is none. If
    // it has a text, the field is in every record of the workform.
    const SubfieldText* FirstOfItsOwn() const;
};

// What a workform gives to a new record. Texts are UTF-8.
class Pattern {
public:
    // Throws EntryError for control fields that a record can't have.
    explicit Pattern(zorby::TemplateHolder workform);

    // Field 040 names this library as that which makes and types the record, where the workform
    // does not say which.
    void SetLibraryCode(const std::string& code);

    std::string Name() const;
    int Id() const { return id_; }
    const zorby::CTemplate& Workform() const { return *workform_; }

    const std::string& Leader() const { return leader_; }  // 24 characters
    // 006, 007 and 008 in their order; the date in 008 is that of the workform.
    const std::vector<ControlField>& ControlFields() const { return controlFields_; }
    const std::vector<PatternField>& Fields() const { return fields_; }

    // Of a field that the workform has no texts of.
    std::string IndicatorsOf(unsigned tag) const;
    // The codes of a tag in the order of the workform, or of the dictionary.
    const std::string& CodesOf(unsigned tag) const;

private:
    void TakeControlFields();
    void TakeFields();

    zorby::TemplateHolder workform_;
    int id_;
    std::string leader_;
    std::vector<ControlField> controlFields_;
    std::vector<PatternField> fields_;
    mutable std::map<unsigned, std::string> codes_;  // by tag, of those asked for so far
};

}  // namespace quillory
