#pragma once

#include <zorby/Export.h>
#include <zorby/conditions/OnlyWhenState.h>
#include <zorby/holdings/HoldingsType.h>
#include <zorby/selection/DialogAdv.h>

#include <string>
#include <string_view>

namespace zorby {

// The dialog in which the user picks a subfield or an element of holdings whose text goes into a
// value of a global edit, and in its advanced form a condition for it. It opens in the form that
// shows a condition if there is one.
class ZORBY_EXPORT CDialogGEGetText : public CDialogAdv {
public:
    enum Id : std::int32_t {
        kSelect = 1351,
        kField = 1352,
        kSubfield = 1353,
        kOnlyWhen = 1354,
        kCondition = 1355,
    };

    // `tagText` is what is picked at first, in the forms of COnlyWhenState; a "Tag" in the packed
    // condition wins over it.
    CDialogGEGetText(std::string_view tagText, std::string_view stateText, WindowPort* parent);

    // Gives what a packed condition picks, without a window: the item, the element of holdings or
    // 0, and the description.
    static void ParseState(std::string_view stateText, std::string& tagText, bool& isHolding,
                           EHOLDINGSID& id, std::string& description);

    // What was picked, and the condition in its packed text.
    const std::string& GetTagText() const;
    std::string GetState();
    bool IsHolding() const;
    // Such as "<<Field: Title, Subfield: Remainder>>"; empty if nothing is picked.
    const std::string& GetDescription() const;

    // In the form without conditions, there is none afterwards.
    void OnOK() override;
    // Picks another item. The condition was for the old one, and is dropped.
    void OnButtonSelectChange();
    void OnButtonOnlywhen();
    int OnCmdMsg(int id, int code, TreeItem item) override;

protected:
    void OnInitDialog() override;
    void ShowAdvanced(int show) override;

private:
    // Takes what is picked from tagText_, and shows it if `show` is set.
    void UpdateSelect(bool show);
    void SetSubfieldString();
    void MakeDescription();
    void GetFieldInfo(std::string_view text, unsigned& tag, char& subfield);
    void DropCondition();

    std::string tagText_;
    unsigned tag_ = 0;
    char subfield_ = 0;
    std::string fieldWord_;
    std::string subfieldWord_;
    std::string subfieldString_;
    COnlyWhenState state_;
    std::string description_;
    bool isHolding_;
    EHOLDINGSTYPE holdingsType_ = HT_NONE;
};

}  // namespace zorby
