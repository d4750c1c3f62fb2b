#pragma once

#include <zorby/Export.h>
#include <zorby/conditions/OnlyWhenState.h>
#include <zorby/selection/DialogAdv.h>

#include <string>
#include <string_view>

namespace zorby {

// The dialog in which the user edits a condition: always, or only when one test holds, or in its
// advanced form two. The tests look at subfields of a field or at elements of holdings, by what the
// condition is attached to. A condition that isn't complete gets a message in the dialog, which
// stays open.
class ZORBY_EXPORT CDialogGEOnlyWhen : public CDialogAdv {
public:
    // The controls of a test: kFirst or kSecond and one of the parts.
    static constexpr int kFirst = 1310;
    static constexpr int kSecond = 1320;
    enum Part : std::int32_t { kHeading, kSubject, kCondition, kText, kMatchCase };
    enum Id : std::int32_t {
        kBoth = 1330,
        kEither = 1331,
        kAlways = 1332,
        kOnlyWhen = 1333,
        kError = 1334,
    };

    // `tagText` is what the condition is attached to, as in COnlyWhenState, and `stateText` its
    // packed text. The next three flags are those of MakeLongString, for the description. With
    // `textTestsOnly`, an empty text can't be tested for; with `restrictOwnItem`, only one other
    // than that of `tagText` itself.
    CDialogGEOnlyWhen(std::string_view title, std::string_view tagText, std::string_view stateText,
                      int withDelimiters, int showAlways, int withPrefix, int textTestsOnly,
                      int restrictOwnItem, WindowPort* parent);

    // The condition that the user confirmed, as a sentence and packed.
    const std::string& GetDescription() const;
    const std::string& GetStateText() const;

    void OnOK() override;
    void OnRadioAlways();
    void OnRadioOnlywhen();
    void OnRadioBoth();
    void OnRadioEither();
    void OnSelchangeComboSubfield1() { OnSelchangeSubject(kFirst); }
    void OnSelchangeComboSubfield2() { OnSelchangeSubject(kSecond); }
    void OnSelchangeComboCondition1() { OnSelchangeCondition(kFirst); }
    void OnSelchangeComboCondition2() { OnSelchangeCondition(kSecond); }
    int OnCmdMsg(int id, int code, TreeItem item) override;

protected:
    void OnInitDialog() override;
    void ShowBasic(int show);
    void ShowAdvanced(int show) override;

private:
    void ParseTag();
    void LoadCombos();
    void LoadSubjects(ListPort& combo) const;
    void SetupControls();
    void SetupTest(int test, const OnlyWhenTest& values);
    void SetAdvancedControlState();
    void RestrictCombo(ListPort& combo, int restrict) const;
    static void SelectComboItem(ListPort& combo, char code);
    static void SelectComboItem(ListPort& combo, EHOLDINGSID id);
    void OnSelchangeSubject(int test);
    void OnSelchangeCondition(int test);
    void OpenText(int test, bool open) const;
    bool IsHoldingsMode() const { return holdingsMode_ != 0 || isHoldingsTag_; }
    // Each returns what is missing, or an empty text.
    std::string ReadTests();
    std::string MissingSubject() const;
    void ReadSubject(int test, OnlyWhenTest& values);
    void ReadPredicate(int test, OnlyWhenTest& values) const;

    std::string title_;
    std::string tagText_;
    int tag_ = 0;           // 0 for holdings
    int holdingsMode_ = 0;  // the element that tagText_ names, or 0
    char subfield_ = 0;
    bool isHoldingsTag_ = false;
    COnlyWhenState state_;
    std::string description_;
    std::string stateText_;
    int withDelimiters_;
    int showAlways_;
    int withPrefix_;
    bool textTestsOnly_;
    bool restrictOwnItem_;
};

}  // namespace zorby
