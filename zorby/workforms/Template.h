#pragma once

#include <zorby/Export.h>
#include <zorby/archive/Object.h>
#include <zorby/controlfields/AdditionalMaterialsList.h>
#include <zorby/controlfields/MainMaterial.h>
#include <zorby/copies/HoldingsDataRecordList.h>
#include <zorby/format/DisplayOptions.h>
#include <zorby/format/InfoAboutDefaultData.h>
#include <zorby/format/InfoAboutIndicator.h>
#include <zorby/format/InfoAboutPriority.h>
#include <zorby/format/InfoAboutSubfieldText.h>
#include <zorby/format/MARCInfo.h>
#include <zorby/text/TagArray.h>
#include <zorby/workforms/TemplateCallbacks.h>

#include <memory>
#include <string>
#include <string_view>

namespace zorby {

// A workform: a pattern for new MARC records. It gives the coded control fields, the fields and
// subfields that a new record begins with, and texts that help with them. What its own lists lack
// is sought in those of its base workform, then in the dictionary; a base's own base is not asked.
//
// Standard workforms (IDs below 100) belong to CTemplateList and are not changed. Workforms of the
// user are blocks in the host's database, reached through TemplateCallbacks. All texts are in the
// Qm code. `which` is 1 for the first indicator and 2 for the second; an int result is 1 for
// success and 0 for failure unless said otherwise.
class ZORBY_EXPORT CTemplate : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    CTemplate() = default;
    CTemplate(const CTemplate&) = delete;
    CTemplate& operator=(const CTemplate&) = delete;

    // Loading finds the base among the standard workforms, by its name.
    void Serialize(CArchive& archive) override;
    // A workform of the user that rests on `other`, or on its base's name if it has one. `other` is
    // the base from now on and must outlive this one. Default data is taken from a standard
    // workform only; the other lists are reached through the base.
    void CloneFrom(const CTemplate& other);

    const std::string& GetName() const { return name_; }
    void SetName(std::string_view name) { name_ = name; }
    // The workform's own name if it has no base.
    const std::string& GetBaseTemplateName() const;
    void SetBaseTemplateName(std::string_view name) { baseName_ = name; }
    bool IsBaseTemplate() const { return base_ == nullptr; }
    // Nonzero for a workform of the user, which its holder deletes.
    int IsSavedTemplate() const { return saved_; }
    void SetSavedTemplate() { saved_ = 1; }
    void SetID(int id) { id_ = id; }
    MaterialType GetMaterialType() const { return material_; }

    // Control fields.
    int ControlFieldsSetMain(MaterialType material, CFType type006, CFType type007,
                             std::string_view leader, std::string_view block,
                             std::string_view field007, std::string_view field008,
                             std::string_view second006);
    void GetMainMaterialSettings(CFType& type006, CFType& type007, std::string& leader,
                                 std::string& block, std::string& field007, std::string& field008,
                                 std::string& second006) const;
    const CCFMainMaterial& GetMainMaterial() const { return main_; }
    CCFAdditionalMaterialsList& GetAMList() { return additional_; }
    const CCFAdditionalMaterialsList& GetAMList() const { return additional_; }
    CHoldingsDataRecordList& GetHoldingsDataRecordList() { return holdings_; }
    const CHoldingsDataRecordList& GetHoldingsDataRecordList() const { return holdings_; }
    void MakeAMListFrom(CCFAdditionalMaterialsList& list) const { list.CloneFrom(additional_); }
    void MakeHoldingsListFrom(CHoldingsDataRecordList& list) const { list.CloneFrom(holdings_); }

    // Building. Texts of one kind for the same place: the first counts.
    void AddFieldPriority(unsigned tag, int priority);
    void AddSubfieldPriority(unsigned tag, std::string_view codes, int priority);
    void AddSubfieldPrompt(unsigned tag, std::string_view codes);
    void AddSubfieldRules(unsigned tag, char code, std::string_view text);
    void AddSubfieldReminders(unsigned tag, char code, std::string_view text);
    void AddSubfieldExamples(unsigned tag, char code, std::string_view text);
    void AddIndicatorDefault(unsigned tag, char first, char second);
    void AddIndicatorExpl(unsigned tag, int which, std::string_view text);
    void AddIndicatorName(unsigned tag, int which, std::string_view name);
    // A new field with its first subfield, and a further subfield of that field.
    void AddDefaultData(unsigned tag, char first, char second, char code, std::string_view data);
    void AddDefaultData(char code, std::string_view data);
    // A field with empty subfields, priority 1, prompts and priority codes where they are not
    // empty. `indicators` are two characters; what is missing is a blank.
    void AddFld(unsigned tag, std::string_view indicators, std::string_view codes,
                std::string_view promptCodes, std::string_view priorityCodes);
    // Those of the texts that are not empty.
    void AddRET(unsigned tag, char code, std::string_view rules, std::string_view examples,
                std::string_view reminders);

    // Default data, in the order in which a new record gets it; null at the end. Tag 0 means every
    // record. There is one walk.
    const CInfoAboutDefaultData* GetDefaultDataAt(int index) const;
    const CInfoAboutDefaultData* GetDefaultDataFirst(unsigned tag);
    const CInfoAboutDefaultData* GetDefaultDataNext(unsigned tag);
    int DefaultDataIncludes(unsigned tag, char code) const;
    // The codes of the tag's default data, or the dictionary's if there is none.
    std::string SubsInTemplateOrder(unsigned tag) const;

    // Lookups: own list, base, dictionary.
    static int FieldRepeatable(unsigned tag);
    static int FieldMandatory(unsigned tag);
    static int SubfieldRepeatable(unsigned tag, char code);
    static int SubfieldMandatory(unsigned tag, char code);
    // The codes to prompt for; those of the dictionary are added behind what `codes` holds.
    void SubfieldPrompt(unsigned tag, std::string& codes) const;
    void SubfieldRules(unsigned tag, char code, std::string& text) const;
    void SubfieldReminders(unsigned tag, char code, std::string& text) const;
    void SubfieldExamples(unsigned tag, char code, std::string& text) const;
    int FieldPriority(unsigned tag) const;
    int SubfieldPriority(unsigned tag, char code) const;
    char FieldIndicator(unsigned tag, int which) const;
    void MARCInfoIndicatorExplanationFor(unsigned tag, int which, std::string& text) const;
    // "Indicator 1" or "Indicator 2" without a name of the workform's own.
    void MARCInfoIndicatorNameFor(unsigned tag, int which, EDISPLAYOPTIONS option,
                                  std::string& text) const;
    static void GetNameOfFieldAndSubfield(unsigned tag, char code, std::string& field,
                                          std::string& subfield, EDISPLAYOPTIONS option);

    // What may be added to a record that has the fields `existing`, or to a field that has the
    // subfields `used`. An extra tag or code other than 0 is offered in any case.
    static std::unique_ptr<CTagArray> FieldsAvailableToAdd(const CTagArray& existing,
                                                           int allowRepeats, unsigned extraTag);
    static std::unique_ptr<CTagArray> FieldsAvailableToAddViaMenu(const CTagArray& existing,
                                                                  unsigned extraTag);
    // With `allowAny`, tags follow that the dictionary may not know; some then stand there twice.
    static std::unique_ptr<CTagArray> FieldsAvailableToAddViaEdit(const CTagArray& existing,
                                                                  int allowRepeats, int allowAny,
                                                                  unsigned extraTag);
    // `codes` is given empty.
    static void SubfieldsAvailableToAdd(unsigned tag, std::string_view used, int allowRepeats,
                                        char extraCode, std::string& codes);
    static void SubfieldsAvailableToAddViaMenu(unsigned tag, std::string_view used, char extraCode,
                                               std::string& codes);
    static void SubfieldsAvailableToAddViaEdit(unsigned tag, std::string_view used,
                                               int allowRepeats, int allowAny, char extraCode,
                                               std::string& codes);
    static int IsAnyValidSubfield(char code);

    // Menus, sorted; null where there is nothing to show. Codes are 4-byte tags, subfield codes or
    // indicator values.
    static std::unique_ptr<CMARCInfo> MARCInfoFieldTagAndName(const CTagArray& tags,
                                                              EDISPLAYOPTIONS option);
    static std::unique_ptr<CMARCInfo> MARCInfoSubfieldCodeAndName(unsigned tag,
                                                                  std::string_view codes,
                                                                  EDISPLAYOPTIONS option);
    // `addSears` adds "Sears specified in $2" to the second indicator of a subject heading.
    static std::unique_ptr<CMARCInfo> MARCInfoIndicatorCodeAndText(unsigned tag, int which,
                                                                   EDISPLAYOPTIONS option,
                                                                   bool addSears);
    void MARCInfoIndicators(unsigned tag, std::unique_ptr<CMARCInfo>& list1,
                            std::unique_ptr<CMARCInfo>& list2, std::string& explanation1,
                            std::string& explanation2, std::string& name1, std::string& name2,
                            EDISPLAYOPTIONS option) const;

    // The host's database. InitTemplateCB registers the standard workforms: CTemplateList is loaded
    // before. Calls of the update callback, behind the ID and the name:
    //   a standard workform   its ID and name        0   0   0  1     1
    //   GetID, unknown name   0 and the name         0   0   0  1     1
    //   SaveYourself(a, b)    0 and "\" with name    a   a   1  b     1
    //   Lock(id, who)         the ID, null           who who 1  1     1
    //   Unlock(id)            the ID, null           0   0   0  flag  1
    static void InitTemplateCB(const TemplateCallbacks& callbacks);
    // Stores the workform as a block and takes the ID that the host gives it. A failure changes
    // nothing.
    int SaveYourself(int a, int b);
    int GetID() const;
    int GetOwnID() const { return id_; }
    static int Lock(int id, int who);
    void Unlock(int id) const;
    static void DeleteFromDB(int id);
    static int GetTemplateInfoByName(const char* name, int* id, int* inUse, int* locked,
                                     int* state);
    static int GetTemplateInfoByID(const int& id, std::string* name, int* inUse, int* locked,
                                   int* state);
    static int CanAllocateNextTemplateID();
    // Names and IDs. UDTemplateNames gives those of the user, with a base name those that rest on
    // it; the last one also gives their bases' IDs, side by side.
    static void TemplateNames(CStringAndUINTArraySorted& list);
    static void UDTemplateNames(CStringAndUINTArraySorted& list, std::string_view baseName);
    static void UDTemplateNamesAndBaseTemplateNames(CStringAndUINTArraySorted& list,
                                                    CUIntArray& ids);
    static std::string GetTemplateName(int id);

    // The workform's own lists, for programs that show or store them.
    CInfoAboutDefaultDataList& GetDefaultData() { return defaultData_; }
    const CInfoAboutDefaultDataList& GetDefaultData() const { return defaultData_; }
    const CInfoAboutFieldPriorityList& GetFieldPriorities() const { return fieldPriorities_; }
    const CInfoAboutIndicatorDefaultList& GetIndicatorDefaults() const {
        return indicatorDefaults_;
    }
    const CInfoAboutIndicatorExplanationList& GetIndicatorExplanations() const {
        return indicatorExplanations_;
    }
    const CInfoAboutIndicatorNameList& GetIndicatorNames() const { return indicatorNames_; }
    const CInfoAboutSubfieldExamplesList& GetExamples() const { return examples_; }
    const CInfoAboutSubfieldPriorityList& GetSubfieldPriorities() const {
        return subfieldPriorities_;
    }
    const CInfoAboutSubfieldPromptList& GetPrompts() const { return prompts_; }
    const CInfoAboutSubfieldRemindersList& GetReminders() const { return reminders_; }
    const CInfoAboutSubfieldRulesList& GetRules() const { return rules_; }

private:
    void AttachBaseTemplate();
    template <class Find>
    auto FirstOfOwnAndBase(Find find) const;

    int flag_ = 1;
    CCFAdditionalMaterialsList additional_;
    CInfoAboutDefaultDataList defaultData_;
    CInfoAboutFieldPriorityList fieldPriorities_;
    CInfoAboutIndicatorDefaultList indicatorDefaults_;
    CInfoAboutIndicatorExplanationList indicatorExplanations_;
    CInfoAboutIndicatorNameList indicatorNames_;
    CInfoAboutSubfieldExamplesList examples_;
    CInfoAboutSubfieldPriorityList subfieldPriorities_;
    CInfoAboutSubfieldPromptList prompts_;
    CInfoAboutSubfieldRemindersList reminders_;
    CInfoAboutSubfieldRulesList rules_;
    std::string name_;
    const CTemplate* base_ = nullptr;
    std::string baseName_;
    int saved_ = 0;
    CHoldingsDataRecordList holdings_;
    CCFMainMaterial main_;
    MaterialType material_ = static_cast<MaterialType>(0);
    int id_ = 0;
};

// Deletes a workform of the user, and leaves a standard one to its list.
struct TemplateDeleter {
    void operator()(CTemplate* workform) const {
        if (workform->IsSavedTemplate() != 0) delete workform;
    }
};
using TemplateHolder = std::unique_ptr<CTemplate, TemplateDeleter>;

}  // namespace zorby
