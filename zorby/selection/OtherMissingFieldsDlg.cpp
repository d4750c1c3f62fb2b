#include <zorby/platform/MessagePort.h>
#include <zorby/selection/OtherMissingFieldsDlg.h>
#include <zorby/text/General.h>
#include <zorby/text/detail/WhiteSpace.h>

namespace zorby {

namespace {

constexpr ControlBox kOtherSelectorPlace{10, 10, 360, 400};

// Returns the tag of the first part of a typed selection.
std::string FirstTag(std::string_view typed) {
    constexpr std::size_t kTagWidth = 3;
    std::string part;
    int first = 0;
    int last = 0;
    CFandSSelector::GetPart(typed, 0, part, first, last);
    return part.substr(0, kTagWidth);
}

}  // namespace

COtherMissingFieldsDlg::COtherMissingFieldsDlg(std::string_view selection, int treeValue,
                                               WindowPort* parent)
    : ModalDialog(parent), selection_(selection), treeValue_(treeValue) {}

void COtherMissingFieldsDlg::OnInitDialog() {
    const bool isTyped = !selection_.empty() && !selection_.starts_with('\\');
    CFandSSelectorState state;
    state.allowWholeField = 1;
    state.singleSelection = 1;
    state.allow001And003 = 1;
    state.allowBelow010 = 1;
    state.allowSubfields = 1;
    state.allow245h = 1;
    state.title = "Select missing field";
    state.listLabel = "Field";
    state.examples = "245, 500, 650";
    state.selectFromList = isTyped ? 0 : 1;
    state.selectFromText = isTyped ? 1 : 0;
    state.treeValue = treeValue_;
    (isTyped ? state.typedSelection : state.treeSelection) = selection_;
    Window().SetTitle("Select missing field");
    selector_.InitializeYourself(Window(), state, kOtherSelectorPlace, 0);
    AddOkAndCancel(200, 418);
}

int COtherMissingFieldsDlg::OnCmdMsg(int id, int code, TreeItem item) {
    return selector_.OnCmdMsg(id, code, item) || ModalDialog::OnCmdMsg(id, code, item) ? 1 : 0;
}

void COtherMissingFieldsDlg::OnOK() {
    const CFandSSelectorErrorCode code = selector_.DoInOnOK(false);
    if (code == FSE_EMPTY) {
        return Refuse("You need to select a field from the list or type one in the text box.");
    }
    std::string path;
    std::string typed;
    selector_.GetSelection(path, typed);
    if (path.empty() && FirstTag(typed).empty()) {
        return Refuse("You must select a field or subfield to work with.");
    }
    selection_ = path.empty() ? std::string(Trimmed(typed)) : path;
    EndDialog(kIdOk);
}

void COtherMissingFieldsDlg::Refuse(std::string_view message) {
    CurrentMessagePort().ShowMessage(message, CGeneral::GetApplicationName(),
                                     MessageIcon::kWarning);
    selector_.SetFocus();
}

const std::string& COtherMissingFieldsDlg::GetResult() const {
    return selection_;
}

}  // namespace zorby
