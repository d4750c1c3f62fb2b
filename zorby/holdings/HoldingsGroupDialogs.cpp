#include <zorby/holdings/HoldingsGroupDialogs.h>
#include <zorby/holdings/detail/HoldingsSelectorSettings.h>
#include <zorby/text/detail/ValidSubfieldCodes.h>

#include <algorithm>
#include <utility>

namespace zorby {

namespace {

constexpr const char* kTitle = "Holdings Settings";
constexpr std::string_view kNextBarCodeLabel = "Next &bar code:";
constexpr int kLabelIdOffset = 100;

std::string CallTagOf(std::string text) {
    text.resize(std::min<std::size_t>(text.size(), 3));
    std::erase_if(text, [](char c) { return c < '0' || '9' < c; });
    return text;
}

std::string SubTagsOf(std::string text) {
    std::erase_if(text, [](char c) { return !IsValidSubfieldCode(c); });
    return text;
}

}  // namespace

HoldingsGroupDialog::HoldingsGroupDialog(std::string title, std::vector<Field> fields,
                                         WindowPort* parent)
    : ModalDialog(parent), title_(std::move(title)), fields_(std::move(fields)) {}

void HoldingsGroupDialog::OnInitDialog() {
    constexpr int kRowHeight = 30;
    Window().SetTitle(title_);
    int top = 10;
    for (const Field& field : fields_) {
        Controls().Add(
            {ControlKind::kLabel, field.id + kLabelIdOffset, field.label, {10, top + 3, 200, 16}});
        Controls().Add({ControlKind::kText, field.id, {}, {215, top, 120, 22}});
        Controls().Text(field.id).SetText(field.value);
        top += kRowHeight;
    }
    AddOkAndCancel(165, top + 6);
}

void HoldingsGroupDialog::OnOK() {
    for (Field& field : fields_) field.value = Controls().Text(field.id).GetText();
    Accept();
    EndDialog(kIdOk);
}

const std::string& HoldingsGroupDialog::ValueOf(int id) const {
    return std::ranges::find(fields_, id, &Field::id)->value;
}

CDlgHoldingsBasic::CDlgHoldingsBasic(std::string_view typeName, std::string& nextBarCode,
                                     WindowPort* parent)
    : HoldingsGroupDialog("Holdings Settings for " + std::string(typeName),
                          {{kNextBarCode, kNextBarCodeLabel, nextBarCode}}, parent),
      nextBarCode_(nextBarCode) {}

void CDlgHoldingsBasic::Accept() {
    nextBarCode_ = ValueOf(kNextBarCode);
}

CDlgHoldingsDynix::CDlgHoldingsDynix(std::string& nextBarCode, std::string& extra,
                                     WindowPort* parent)
    : HoldingsGroupDialog(kTitle,
                          {{kNextBarCode, kNextBarCodeLabel, nextBarCode},
                           {kIndicators, "&Indicators:", ExtraSettings(extra).DynixIndicators()}},
                          parent),
      nextBarCode_(nextBarCode),
      extra_(extra) {}

void CDlgHoldingsDynix::Accept() {
    nextBarCode_ = ValueOf(kNextBarCode);
    ExtraSettings settings(extra_);
    settings.Set(kDynixIndicators, DynixNormalForm(ValueOf(kIndicators)));
    extra_ = settings.Text();
}

CDlgHoldingsLWLP::CDlgHoldingsLWLP(std::string_view typeName, std::string& nextBarCode,
                                   std::string& extra, WindowPort* parent)
    : HoldingsGroupDialog("Holdings Additional Settings for " + std::string(typeName),
                          {{kNextBarCode, kNextBarCodeLabel, nextBarCode},
                           {kCallTag, "Call &tag:", ExtraSettings(extra).Get(kLwlpCallTag)},
                           {kSubTags, "&Sub-tags:", ExtraSettings(extra).Get(kLwlpSubTags)}},
                          parent),
      nextBarCode_(nextBarCode),
      extra_(extra) {}

int CDlgHoldingsLWLP::OnCmdMsg(int id, int code, TreeItem item) {
    if (code != CN_TextChanged || (id != kCallTag && id != kSubTags)) {
        return HoldingsGroupDialog::OnCmdMsg(id, code, item);
    }
    Filter(id);
    return 1;
}

void CDlgHoldingsLWLP::Filter(int id) const {
    TextPort& edit = Controls().Text(id);
    const std::string typed = edit.GetText();
    const std::string kept = id == kCallTag ? CallTagOf(typed) : SubTagsOf(typed);
    if (kept == typed) return;
    int first = 0;
    int last = 0;
    edit.GetSelection(first, last);
    edit.SetText(kept);
    edit.Select(first, last);
}

void CDlgHoldingsLWLP::Accept() {
    nextBarCode_ = ValueOf(kNextBarCode);
    ExtraSettings settings(extra_);
    settings.Set(kLwlpCallTag, ValueOf(kCallTag));
    settings.Set(kLwlpSubTags, ValueOf(kSubTags));
    extra_ = settings.Text();
}

CDlgHoldingsFollettUnison::CDlgHoldingsFollettUnison(std::string& nextBarCode, std::string& extra,
                                                     WindowPort* parent)
    : HoldingsGroupDialog(
          kTitle,
          {{kNextBarCode, kNextBarCodeLabel, nextBarCode},
           {kNextAccNo, "Next &accession number:", ExtraSettings(extra).Get(kUnisonNextAccNo)},
           {kLocation,
            "&Location of default call number:", ExtraSettings(extra).UnisonDCNLocation()}},
          parent),
      nextBarCode_(nextBarCode),
      extra_(extra) {}

void CDlgHoldingsFollettUnison::Accept() {
    nextBarCode_ = ValueOf(kNextBarCode);
    ExtraSettings settings(extra_);
    settings.Set(kUnisonNextAccNo, ValueOf(kNextAccNo));
    settings.Set(kUnisonDCNLocation, ValueOf(kLocation));
    extra_ = settings.Text();
}

CDlgHoldingsMandarin::CDlgHoldingsMandarin(std::string& extra, WindowPort* parent)
    : HoldingsGroupDialog(
          kTitle, {{kSubfields, "Holdings &subfields:", ExtraSettings(extra).MandarinSubfields()}},
          parent),
      extra_(extra) {}

void CDlgHoldingsMandarin::Accept() {
    ExtraSettings settings(extra_);
    settings.Set(kMandarinSubfields, ValueOf(kSubfields));
    extra_ = settings.Text();
}

}  // namespace zorby
