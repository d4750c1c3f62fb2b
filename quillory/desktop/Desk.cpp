#include <quillory/desktop/Desk.h>
#include <quillory/jobs/Library.h>
#include <quillory/jobs/RecordPolicy.h>
#include <zorby/settings/Profile.h>
#include <zorby/settings/ProfileKeys.h>

#include <optional>
#include <string>
#include <vector>

namespace quillory {
namespace {

// Puts all in force that the library works with.
CodeLists LoadAll() {
    MakeChecker({}, kCharsetAuto);
    LoadWorkforms();
    return LoadCodeLists();
}

}  // namespace

Desk::Desk() : lists_(LoadAll()), rules_(std::make_unique<DeskRules>(lists_, std::nullopt)) {}

void Desk::FollowRulesFor(const std::string& path) {
    if (rules_->File()) rules_ = std::make_unique<DeskRules>(lists_, std::nullopt);
    std::vector<std::string> files;
    if (!path.empty()) files.push_back(path);
    const auto settings = FindCheckSettings({}, files);
    if (settings) rules_ = std::make_unique<DeskRules>(lists_, settings);
}

// The file could be read before.
void Desk::FollowHoldings() {
    RenewUserDefinedFields();
    rules_ = std::make_unique<DeskRules>(lists_, rules_->File());
}

zorby::EDISPLAYOPTIONS Desk::Display() const {
    return static_cast<zorby::EDISPLAYOPTIONS>(
        zorby::GetZorbyProfileInt(zorby::ZP_DisplayNameOrMARC));
}

void Desk::SetDisplay(zorby::EDISPLAYOPTIONS display) {
    WriteSetting(zorby::ZP_DisplayNameOrMARC, std::to_string(display));
}

}  // namespace quillory
