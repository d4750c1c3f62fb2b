#pragma once

#include <zorby/Export.h>
#include <zorby/controls/ControlSet.h>
#include <zorby/selection/FandSSelectorState.h>
#include <zorby/selection/TreeFieldAndSub.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace zorby {

class CZorbySearch;

// What can be wrong with a selection.
enum CFandSSelectorErrorCode : std::int32_t {
    FSE_OK = 0,
    FSE_EMPTY = 1,                      // nothing selected or typed
    FSE_CONTROL_FIELD = 2,              // a control field where none is allowed
    FSE_SUBFIELD_ON_CONTROL_FIELD = 3,  // a subfield code on a tag below 010
    FSE_BAD_FORM = 4,
    FSE_245H = 5,           // 245 $h where it isn't allowed
    FSE_NOT_IN_FORMAT = 6,  // tag or subfield unknown to the dictionary
};

// The control in which the user names MARC fields and subfields: a tree of them, and an edit box.
// What is typed has parts, separated by blanks and commas: a tag ("650"), a range of tags
// ("600-699"), or a tag with subfield codes ("245ab").
class ZORBY_EXPORT CFandSSelector : public CommandTarget {
public:
    enum Id : std::int32_t {
        kAll = 10000,
        kSelected = 10001,
        kTree = 10002,
        kEdit = 10003,
        kFromList = 10004,
        kFromText = 10005,
        kClear = 10006,
        kLabel = 10007,
        kExamplesTitle = 10008,
        kExamples = 10009,
        kGroup = 10010,
    };

    CFandSSelector() = default;
    CFandSSelector(const CFandSSelector&) = delete;
    CFandSSelector& operator=(const CFandSSelector&) = delete;

    // Creates the controls in a part of a window, which must outlive this object or its Destroy.
    // `holdingsMode` leaves out the groups before "Notes".
    void InitializeYourself(WindowPort& parent, const CFandSSelectorState& state,
                            const ControlBox& place, int holdingsMode);
    // Removes the controls from the window.
    void Destroy();
    // The callback is called after each change of the selection.
    void InitializeSelChangedCallBack(const SelChangedCallBack& callback, WindowPort* window);

    // Gives the part of a typed selection at or after `start`, and its limits: it is
    // text[first, last). The next part starts at last + 1. Returns 0, with an empty part and -1 and
    // -1, if `start` is beyond the text. At the end of the text the part is empty.
    static int GetPart(std::string_view text, int start, std::string& part, int& first, int& last);
    // Checks what is typed, without the white space around it. `first` and `last` are the limits of
    // the part at fault, or -1 if the fault doesn't stop the check. With `checkFormat`, the
    // dictionary must know tags and single subfields.
    CFandSSelectorErrorCode SpecificFieldEditIsOK(int& first, int& last, int allow245h,
                                                  const bool& checkFormat) const;
    // Checks the selection when the user wants to leave the dialog. Selects a typed part at fault.
    CFandSSelectorErrorCode DoInOnOK(const bool& checkFormat);
    // Gives the paths of what is checked, and what is typed. With "All", both are empty. After
    // Destroy, they are as they were last read.
    void GetSelection(std::string& treeText, std::string& typedText);
    // Stores both as what a search looks in.
    void UpdateZorbySearch(CZorbySearch& search);

    // Enables the controls that the flags and the choice of the user leave open.
    void SetControlState();
    // Returns what was in force before.
    int EnableWindow(int enable);
    // Puts the focus on the tree or the edit box, whichever is in use.
    void SetFocus();

    // Handles what concerns these controls.
    int OnCmdMsg(int id, int code, TreeItem item) override;

private:
    // Takes what is checked and typed, if there are controls.
    void ReadSelection();
    void CreateControls(const CFandSSelectorState& state, const ControlBox& place);
    // Returns whether it was one of the buttons.
    bool OnCommand(int id);
    void OnAll();
    void OnSelected();
    void OnFromList();
    void OnFromText();
    void ClearTyped();
    void ClearTree();
    void SetOpen(bool tree, bool text) const;
    void NotifyChanged() const;
    bool IsAll() const { return allSelected_ != 0; }

    ControlSet controls_;
    CTreeFieldAndSub tree_;
    CFandSSelectorState state_;
    int allSelected_ = 0;
    int enabled_ = 1;
    bool isEnabling_ = false;
    std::string lastTree_;
    std::string lastTyped_;
    SelChangedCallBack callback_;
    WindowPort* callbackWindow_ = nullptr;
};

}  // namespace zorby
