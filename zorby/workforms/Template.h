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
// subfields with which a new record begins, and texts that help with them. What is not in its own
// lists is looked up in those of its base workform, and then in the dictionary. The base of the
// base is not asked.
//
// Standard workforms (IDs below 100) belong to CTemplateList and don't change. The user's workforms
// are blocks in the host's database, which is reached through TemplateCallbacks. All texts are in
// the Qm code. `which` is 1 for the first indicator and 2 for the second. An int result is 1 for
// success and 0 for failure unless said otherwise.
class ZORBY_EXPORT CTemplate : public CObject {
public:
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }

    // Defined apart: what makes a workform is not to compile the lists anew.
    CTemplate();
    ~CTemplate() override;
    CTemplate(const CTemplate&) = delete;
    CTemplate& operator=(const CTemplate&) = delete;

    // Loading looks up the base by its name among the standard workforms.
    void Serialize(CArchive& archive) override;
    // Makes this a workform of the user, with `other` as its base, which must outlive it. The name
    // of the base is that of the base of `other`, if it has one. Default data is copied only from a
    // standard workform; the other lists are reached through the base.
    void CloneFrom(const CTemplate& other);

    const std::string& GetName() const;
    void SetName(std::string_view name);
    // Returns the workform's own name if it has no base.
    const std::string& GetBaseTemplateName() const;
    void SetBaseTemplateName(std::string_view name);
    bool IsBaseTemplate() const;
    // Nonzero for a workform of the user, which its holder must delete.
    int IsSavedTemplate() const;
    void SetSavedTemplate();
    void SetID(int id);
    MaterialType GetMaterialType() const;

    // Control fields.
    int ControlFieldsSetMain(MaterialType material, CFType type006, CFType type007,
                             std::string_view leader, std::string_view block,
                             std::string_view field007, std::string_view field008,
                             std::string_view second006);
    void GetMainMaterialSettings(CFType& type006, CFType& type007, std::string& leader,
                                 std::string& block, std::string& field007, std::string& field008,
                                 std::string& second006) const;
    const CCFMainMaterial& GetMainMaterial() const;
    CCFAdditionalMaterialsList& GetAMList();
    const CCFAdditionalMaterialsList& GetAMList() const;
    CHoldingsDataRecordList& GetHoldingsDataRecordList();
    const CHoldingsDataRecordList& GetHoldingsDataRecordList() const;
    void MakeAMListFrom(CCFAdditionalMaterialsList& list) const;
    void MakeHoldingsListFrom(CHoldingsDataRecordList& list) const;

    // These build a workform. If there are several texts of one kind for the same place, the first
    // one counts.
    void AddFieldPriority(unsigned tag, int priority);
    void AddSubfieldPriority(unsigned tag, std::string_view codes, int priority);
    void AddSubfieldPrompt(unsigned tag, std::string_view codes);
    void AddSubfieldRules(unsigned tag, char code, std::string_view text);
    void AddSubfieldReminders(unsigned tag, char code, std::string_view text);
    void AddSubfieldExamples(unsigned tag, char code, std::string_view text);
    void AddIndicatorDefault(unsigned tag, char first, char second);
    void AddIndicatorExpl(unsigned tag, int which, std::string_view text);
    void AddIndicatorName(unsigned tag, int which, std::string_view name);
    // Add a new field with its first subfield, and a further subfield of that field.
    void AddDefaultData(unsigned tag, char first, char second, char code, std::string_view data);
    void AddDefaultData(char code, std::string_view data);
    // Adds a field with empty subfields and priority 1, and its prompts and priority codes unless
    // they are empty. `indicators` has two characters; a missing one is a blank.
    void AddFld(unsigned tag, std::string_view indicators, std::string_view codes,
                std::string_view promptCodes, std::string_view priorityCodes);
    // Adds those of the texts that are not empty.
    void AddRET(unsigned tag, char code, std::string_view rules, std::string_view examples,
                std::string_view reminders);

    // The default data, in the order in which a new record gets it. These return null at the end.
    // Tag 0 stands for all entries. There is only one walk.
    const CInfoAboutDefaultData* GetDefaultDataAt(int index) const;
    const CInfoAboutDefaultData* GetDefaultDataFirst(unsigned tag);
    const CInfoAboutDefaultData* GetDefaultDataNext(unsigned tag);
    int DefaultDataIncludes(unsigned tag, char code) const;
    // Returns the codes of the tag's default data, or those of the dictionary if there is none.
    std::string SubsInTemplateOrder(unsigned tag) const;

    // Lookups in the own lists, then in those of the base, then in the dictionary.
    static int FieldRepeatable(unsigned tag);
    static int FieldMandatory(unsigned tag);
    static int SubfieldRepeatable(unsigned tag, char code);
    static int SubfieldMandatory(unsigned tag, char code);
    // Gives the codes to prompt for. Those of the dictionary are appended to what `codes` holds.
    void SubfieldPrompt(unsigned tag, std::string& codes) const;
    void SubfieldRules(unsigned tag, char code, std::string& text) const;
    void SubfieldReminders(unsigned tag, char code, std::string& text) const;
    void SubfieldExamples(unsigned tag, char code, std::string& text) const;
    int FieldPriority(unsigned tag) const;
    int SubfieldPriority(unsigned tag, char code) const;
    char FieldIndicator(unsigned tag, int which) const;
    void MARCInfoIndicatorExplanationFor(unsigned tag, int which, std::string& text) const;
    // Gives "Indicator 1" or "Indicator 2" if the workform has no name of its own.
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
    // If `allowAny` is nonzero, tags follow that the dictionary may not know; some tags are then
    // there twice.
    static std::unique_ptr<CTagArray> FieldsAvailableToAddViaEdit(const CTagArray& existing,
                                                                  int allowRepeats, int allowAny,
                                                                  unsigned extraTag);
    // `codes` must be empty.
    static void SubfieldsAvailableToAdd(unsigned tag, std::string_view used, int allowRepeats,
                                        char extraCode, std::string& codes);
    static void SubfieldsAvailableToAddViaMenu(unsigned tag, std::string_view used, char extraCode,
                                               std::string& codes);
    static void SubfieldsAvailableToAddViaEdit(unsigned tag, std::string_view used,
                                               int allowRepeats, int allowAny, char extraCode,
                                               std::string& codes);
    static int IsAnyValidSubfield(char code);

    // Return menus in sorted order, or null if there is nothing to show. The codes are 4-byte tags,
    // subfield codes or indicator values.
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

    // The host's database. CTemplateList must be loaded before InitTemplateCB, which registers the
    // standard workforms. The update callback is called with an ID, a name and five numbers:
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
    int GetOwnID() const;
    static int Lock(int id, int who);
    void Unlock(int id) const;
    static void DeleteFromDB(int id);
    static int GetTemplateInfoByName(const char* name, int* id, int* inUse, int* locked,
                                     int* state);
    static int GetTemplateInfoByID(const int& id, std::string* name, int* inUse, int* locked,
                                   int* state);
    static int CanAllocateNextTemplateID();
    // Give names and IDs. UDTemplateNames gives the user's workforms or, with a base name, those
    // that have this base. UDTemplateNamesAndBaseTemplateNames also gives the IDs of their bases,
    // in the same order.
    static void TemplateNames(CStringAndUINTArraySorted& list);
    static void UDTemplateNames(CStringAndUINTArraySorted& list, std::string_view baseName);
    static void UDTemplateNamesAndBaseTemplateNames(CStringAndUINTArraySorted& list,
                                                    CUIntArray& ids);
    static std::string GetTemplateName(int id);

    // The workform's own lists, for programs that show or store them.
    CInfoAboutDefaultDataList& GetDefaultData();
    const CInfoAboutDefaultDataList& GetDefaultData() const;
    const CInfoAboutFieldPriorityList& GetFieldPriorities() const;
    const CInfoAboutIndicatorDefaultList& GetIndicatorDefaults() const;
    const CInfoAboutIndicatorExplanationList& GetIndicatorExplanations() const;
    const CInfoAboutIndicatorNameList& GetIndicatorNames() const;
    const CInfoAboutSubfieldExamplesList& GetExamples() const;
    const CInfoAboutSubfieldPriorityList& GetSubfieldPriorities() const;
    const CInfoAboutSubfieldPromptList& GetPrompts() const;
    const CInfoAboutSubfieldRemindersList& GetReminders() const;
    const CInfoAboutSubfieldRulesList& GetRules() const;

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
