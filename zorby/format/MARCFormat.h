#pragma once

#include <zorby/Export.h>
#include <zorby/format/DisplayOptions.h>
#include <zorby/format/InfoAboutField.h>
#include <zorby/format/InfoAboutIndicator.h>
#include <zorby/format/InfoAboutSubfield.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// The dictionary of the MARC 21 bibliographic format: fields, subfields and indicators. The static
// operations use the one dictionary in force, and answer as if it were empty while there is none.
// No lock guards it: it belongs to the host's user-interface thread.
class ZORBY_EXPORT CMARCFormat : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    // Defined apart: what makes a dictionary is not to compile the lists anew.
    CMARCFormat();
    ~CMARCFormat() override;
    CMARCFormat(const CMARCFormat&) = delete;
    CMARCFormat& operator=(const CMARCFormat&) = delete;

    void Serialize(CArchive& archive) override;

    // Loads the dictionary from "MARCBibl.tfm" in the folder of the ApplicationPort in force, and
    // puts it in force. Then adds the fields of `userDefined` and those of the holdings settings,
    // and returns 1. If the file can't be opened, tells the user and returns 0. A damaged file
    // throws CArchiveException. In both cases no dictionary is in force afterwards, not even an
    // earlier one.
    static int InitializeYourself(std::string_view userDefined);
    // Does nothing if there is no dictionary.
    static void FreeYourself();
    // Returns the dictionary in force, or null.
    static const CMARCFormat* TheOneAndOnly();

    // Adds the fields and subfields that ParseUDSubfields finds without bare tags and that the
    // dictionary doesn't know. A new field has blank indicators.
    static void AddUserDefined(std::string_view list);
    // Removes user-defined fields and subfields. Their default indicators stay.
    static void RemoveUserDefined();
    // Appends the fields and subfields that a user-defined list names, such as "590ab 591-595
    // 900a\901b": three digits for a field, and codes after them for its subfields. A token that is
    // only a tag counts if `allowBareTags` is nonzero. If `allowBareTags` is 0, a token without any
    // valid code ends the list.
    static void ParseUDSubfields(std::string_view list, std::vector<std::string>& entries,
                                 int allowBareTags);

    // Lookups by tag, code and indicator (1 or 2) return the first match in the dictionary, or
    // null.
    static const CInfoAboutField* FindField(unsigned tag);
    static const CInfoAboutSubfield* FindSubfield(unsigned tag, char code);
    // Returns the tags from `low` to `high` in the order of the dictionary. While the holdings are
    // Alexandria's, 900 and 92 follow, whatever the range.
    static std::unique_ptr<CTagArray> AllTags(unsigned low, unsigned high);
    // Appends the codes in the order of the dictionary, or "a" for Alexandria's 900 and 92.
    static void AllSubfieldCodes(unsigned tag, std::string& codes);
    static void GetSubfieldsToPromptFor(unsigned tag, std::string& codes);
    static int GetPriority(unsigned tag, char code);
    // Returns 1 for a user-defined field, and 0 for any other tag, known or unknown.
    static int IsUDField(unsigned tag);
    // Returns 1 for a lower-case letter, a digit or a character from "!" to "?", else 0.
    static int IsAnyValidSubfield(char code);

    static const CInfoAboutIndicatorValue* GetIndicatorValueMatchFirst(unsigned tag, int which);
    static const CInfoAboutIndicatorValue* GetIndicatorValueMatchNext(unsigned tag, int which);
    static void GetIndicatorExplanationFor(unsigned tag, int which, std::string& text);
    static void GetIndicatorNameFor(unsigned tag, int which, EDISPLAYOPTIONS option,
                                    std::string& text);
    static char DefaultIndicator(unsigned tag, int which);

    // Texts for display, such as "Title statement (245)" and "$a (Title)". An unknown option counts
    // as EDO_NameOnly. A field that the dictionary doesn't know is called "User defined 901", and a
    // subfield "User defined $x". Whatever the option, an unknown indicator value is called
    // "Unknown indicator value (7)". A tag below 10 has no subfields: any code of it gives the name
    // of the field, without a code.
    static void FieldName(unsigned tag, EDISPLAYOPTIONS option, std::string& text);
    static void SubfieldName(unsigned tag, char code, EDISPLAYOPTIONS option, std::string& text);
    static std::string IndicatorValue(unsigned tag, int which, char value, EDISPLAYOPTIONS option);

    // These build a dictionary, which Serialize then stores. "#" for a blank indicator becomes "_".
    void SetName(std::string_view name);
    // Adds the default indicators too. The last argument is ignored.
    void AddField(unsigned tag, char first, char second, std::string_view name, int repeatable,
                  int mandatory, int unused);
    void AddSubfield(unsigned tag, char code, std::string_view name, int repeatable, int mandatory,
                     int prompt, int priority);
    void AddIndicatorValue(unsigned tag, int which, char value, std::string_view name);
    void AddIndicatorExpl(unsigned tag, int which, std::string_view text);
    void AddIndicatorName(unsigned tag, int which, std::string_view name);

    const std::string& GetName() const;
    const CInfoAboutFieldList& GetFields() const;
    const CInfoAboutSubfieldList& GetSubfields() const;
    const CInfoAboutIndicatorDefaultList& GetIndicatorDefaults() const;
    const CInfoAboutIndicatorExplanationList& GetIndicatorExplanations() const;
    const CInfoAboutIndicatorNameList& GetIndicatorNames() const;
    const CInfoAboutIndicatorValueList& GetIndicatorValues() const;

private:
    void AddUserDefinedEntry(const std::string& entry);

    std::string name_;
    CInfoAboutFieldList fields_;
    CInfoAboutIndicatorDefaultList defaults_;
    CInfoAboutIndicatorExplanationList explanations_;
    CInfoAboutIndicatorNameList indicatorNames_;
    CInfoAboutIndicatorValueList values_;
    CInfoAboutSubfieldList subfields_;
};

}  // namespace zorby
