#include <quillory/checks/Policy.h>
#include <quillory/faults/Errors.h>
#include <zorby/checking/DialogWarningSettings.h>
#include <zorby/checking/ErrorCodeBits.h>
#include <zorby/text/General.h>

#include <algorithm>

namespace quillory {
namespace {

using zorby::WarningGroupRow;

constexpr int kMostValue = 2;

void SetInMemory(std::int32_t key, int value) {
    zorby::CGeneral::m_iniUserProfile.SetPrivateProfileValue(
        "Zorby", zorby::FindProfileKey(key)->name, value);
}

int ZorbyPolicy(PolicyKind kind) {
    if (kind == kPolicyBasic) return zorby::WP_Basic;
    return kind == kPolicyTLC ? zorby::WP_TLC : zorby::WP_Custom;
}

std::string_view NameOf(PolicyKind kind) {
    return kind == kPolicyBasic ? "basic" : "tlc";
}

int DefaultOf(PolicyKind kind, const WarningGroupRow& group) {
    if (kind == kPolicyBasic) return group.basic;
    return kind == kPolicyTLC ? group.tlc : group.custom;
}

const WarningGroupRow* GroupOf(std::int32_t key) {
    const auto groups = zorby::WarningGroups();
    const auto group =
        std::ranges::find_if(groups, [key](const WarningGroupRow& g) { return g.key == key; });
    return group == groups.end() ? nullptr : &*group;
}

bool Decides(const zorby::ProfileKeyRow& row) {
    return GroupOf(row.id) != nullptr || row.id == zorby::ZP_RecordViewerShowImportRepairLog;
}

std::string_view ShortName(std::string_view name) {
    for (const std::string_view front : {"ZP_RC_", "ZP_"}) {
        if (name.starts_with(front)) return name.substr(front.size());
    }
    return name;
}

const zorby::ProfileKeyRow& KeyNamed(const std::string& name) {
    std::string names;
    for (const zorby::ProfileKeyRow& row : zorby::ProfileKeyTable()) {
        if (!Decides(row)) continue;
        const std::string rowName = row.name;
        if (rowName == name || rowName == "ZP_" + name || rowName == "ZP_RC_" + name) return row;
        names.append(names.empty() ? "" : ", ").append(ShortName(rowName));
    }
    throw UsageError("no findings go by a setting " + name + ", only by " + names);
}

void SetKey(PolicyKind kind, const std::string& name, int value) {
    const zorby::ProfileKeyRow& row = KeyNamed(name);
    if (value < 0 || value > kMostValue) {
        throw UsageError(name + ": 0 for an error, 1 for a warning, 2 for nothing, not " +
                         std::to_string(value));
    }
    if (kind == kPolicyBasic && GroupOf(row.id) == nullptr) {
        throw UsageError(name + ": the policy basic leaves nothing to set");
    }
    const WarningGroupRow* group = GroupOf(row.id);
    const bool isOpen = kind == kPolicyProfile || group == nullptr ||
                        zorby::IsWarningOptionOpen(ZorbyPolicy(kind), *group, value);
    if (!isOpen) {
        throw UsageError(name + ": the policy " + std::string(NameOf(kind)) + " fixes it to " +
                         std::to_string(DefaultOf(kind, *group)));
    }
    SetInMemory(row.id, value);
}

}  // namespace

std::vector<std::pair<std::int32_t, int>> KeysSetBy(PolicyKind kind) {
    std::vector<std::pair<std::int32_t, int>> keys;
    if (kind == kPolicyProfile) return keys;
    for (const WarningGroupRow& group : zorby::WarningGroups()) {
        if (group.key >= 0) keys.emplace_back(group.key, DefaultOf(kind, group));
    }
    return keys;
}

void PutInForce(const PolicyChoice& choice) {
    for (const auto& [key, value] : KeysSetBy(choice.kind)) SetInMemory(key, value);
    for (const auto& [name, value] : choice.keys) SetKey(choice.kind, name, value);
}

zorby::ErrorCodeSet Policy::CodesWanted() const {
    zorby::ErrorCodeSet codes;
    for (int code = 0; code < zorby::ErrorCodeSet::kBits; ++code) {
        if (Wants(static_cast<zorby::E_ERROR_CODE>(code))) codes.Set(code);
    }
    return codes;
}

Verdict Policy::VerdictOf(const std::vector<Finding>& findings) const {
    zorby::ErrorCodeSet codes;
    for (const Finding& finding : findings) codes.Set(finding.code);
    const zorby::CErrorCodeBits bits(codes.Data(), zorby::ErrorCodeSet::kBits);
    return static_cast<Verdict>(bits.OKWarningError(bits_));
}

}  // namespace quillory
