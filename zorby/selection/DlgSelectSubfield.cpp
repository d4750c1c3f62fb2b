#include <zorby/selection/DlgSelectSubfield.h>
#include <zorby/text/detail/WhiteSpace.h>

namespace zorby {

namespace {

constexpr ControlBox kSelectorPlace{10, 30, 360, 380};
constexpr ControlRow kSelectSubfieldRows[] = {
    {ControlKind::kLabel, CDlgSelectSubfield::kHeading, {}, {10, 8, 360, 16}},
    {ControlKind::kLabel, CDlgSelectSubfield::kError, {}, {10, 414, 360, 48}},
};

// Returns an empty text for a selection that the dialog accepts.
std::string_view MessageOf(CFandSSelectorErrorCode code) {
    switch (code) {
        case FSE_EMPTY:
            return "You have not selected or entered a subfield.";
        case FSE_CONTROL_FIELD:
            return "You can't enter control fields here.";
        case FSE_BAD_FORM:
            return "There's something wrong with the subfield you typed.";
        case FSE_245H:
            return "The 245 $h subfield is not selectable here.";
        case FSE_NOT_IN_FORMAT:
            return "The subfield you entered is not a MARC field. In order to work with this "
                   "subfield, you have to set it up as a user defined field.";
        default:
            return {};
    }
}

bool IsPath(std::string_view text) {
    return text.starts_with('\\') && (text.size() == 5 || text.size() == 6 || text.size() == 8);
}

}  // namespace

CDlgSelectSubfield::CDlgSelectSubfield(std::string_view initialValue, std::string_view heading,
                                       int treeValue, WindowPort* parent, bool checkFormat)
    : ModalDialog(parent),
      initialValue_(initialValue),
      heading_(heading),
      treeValue_(treeValue),
      checkFormat_(checkFormat) {}

CFandSSelectorState CDlgSelectSubfield::StartingState() const {
    constexpr std::size_t kTypedLength = 4;
    const bool isTyped = initialValue_.size() == kTypedLength;
    CFandSSelectorState state;
    state.singleSelection = 1;
    state.allowSubfields = 1;
    state.allow245h = 1;
    state.title = "Select subfield";
    state.listLabel = "Field and subfield";
    state.examples = "650x";
    state.selectFromList = isTyped ? 0 : 1;
    state.selectFromText = isTyped ? 1 : 0;
    state.treeValue = treeValue_;
    if (isTyped) state.typedSelection = initialValue_;
    if (IsPath(initialValue_)) state.treeSelection = initialValue_;
    return state;
}

void CDlgSelectSubfield::OnInitDialog() {
    Controls().Add(kSelectSubfieldRows);
    Controls().At(kHeading).SetText(heading_);
    Controls().At(kError).Show(false);
    Window().SetTitle("Select Subfield");
    selector_.InitializeYourself(Window(), StartingState(), kSelectorPlace, 0);
    AddOkAndCancel(200, 468);
}

int CDlgSelectSubfield::OnCmdMsg(int id, int code, TreeItem item) {
    return selector_.OnCmdMsg(id, code, item) || ModalDialog::OnCmdMsg(id, code, item) ? 1 : 0;
}

void CDlgSelectSubfield::OnOK() {
    const CFandSSelectorErrorCode code = selector_.DoInOnOK(checkFormat_);
    std::string typed;
    selector_.GetSelection(result_, typed);
    if (result_.empty()) result_ = Trimmed(typed);
    const std::string_view message = MessageOf(code);
    if (message.empty()) return EndDialog(kIdOk);
    Controls().At(kError).SetText(message);
    Controls().At(kError).Show(true);
}

const std::string& CDlgSelectSubfield::GetResult() const {
    return result_;
}

}  // namespace zorby
