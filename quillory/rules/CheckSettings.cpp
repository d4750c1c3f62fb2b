#include <quillory/exchange/TomlTree.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/faults/Hints.h>
#include <quillory/rules/CheckSettings.h>
#include <quillory/text/Visible.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

constexpr const char* kOnly = "only";
constexpr const char* kSkip = "skip";
constexpr const char* kFailOn = "fail-on";
constexpr const char* kSeverity = "severity";
constexpr const char* kRule = "rule";
constexpr const char* kId = "id";
constexpr const char* kWhere = "where";
constexpr const char* kExact = "exact";
constexpr const char* kMessage = "message";
constexpr const char* kPlace = "place";
constexpr const char* kWhy = "why";
constexpr const char* kExample = "example";

[[noreturn]] void Refuse(const TomlNode& node, const std::string& why) {
    throw TomlFault(node.at, UsageError(why));
}

// What `make` makes of a value; what it finds wrong is told with the value's place.
template <class Make>
auto MadeOf(const TomlNode& node, Make make) {
    try {
        return make(node.Text());
    } catch (const UsageError& error) {
        throw TomlFault(node.at, error);
    }
}

std::optional<Severity> SeverityOf(const TomlNode& node) {
    return MadeOf(node, SeverityNamed);
}

bool IsNameOfRule(const std::string& name) {
    return !name.empty() && std::ranges::all_of(name, [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-';
    });
}

// Whether a word other than "found" stands in braces.
bool HasOtherSlot(std::string_view message) {
    constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz";
    for (std::size_t at = 0; (at = message.find('{', at)) != message.npos; ++at) {
        const std::size_t end =
            std::min(message.find_first_not_of(kLetters, at + 1), message.size());
        const std::string_view word = message.substr(at + 1, end - at - 1);
        if (message.substr(end).starts_with('}') && !word.empty() && word != "found") return true;
    }
    return false;
}

// Reads one [[rule]].
class OwnRuleReader {
public:
    OwnRuleReader(const TomlNode& table, const ConditionTools& tools)
        : table_(table), tools_(tools) {}

    OwnRule Read(const std::string& file) const {
        CheckKeys(table_, {kId, kWhere, kMessage, kSeverity, kPlace, kWhy, kExample, kExact});
        return {Needed(kId).Text(), SeverityOfRule(), Message(),
                TextOf(kWhy),       TextOf(kExample), "rule of the library's own, " + file,
                PlaceOf(kPlace),    Condition()};
    }

    // A rule may be kept that is not wanted now.
    bool IsOff() const {
        const TomlNode* node = table_.Get(kSeverity);
        return node != nullptr && !SeverityOf(*node);
    }

private:
    const TomlNode& Needed(const char* key) const {
        const TomlNode* node = table_.Get(key);
        if (node != nullptr && !node->Text().empty()) return *node;
        throw TomlFault(node == nullptr ? table_.at : node->at,
                        UsageError(key, {FaultCode::kParameterMissing, {}, kRule}));
    }

    std::string Message() const {
        const TomlNode& node = Needed(kMessage);
        if (HasOtherSlot(node.Text())) Refuse(node, "only {found} stands for a text of the record");
        return Visible(node.Text());
    }

    std::string TextOf(const char* key) const {
        const TomlNode* node = table_.Get(key);
        return node == nullptr ? std::string() : Visible(node->Text());
    }

    Severity SeverityOfRule() const {
        const TomlNode* node = table_.Get(kSeverity);
        if (node == nullptr) return Severity::Warning;
        return SeverityOf(*node).value_or(Severity::Warning);
    }

    std::optional<Place> PlaceOf(const char* key) const {
        const TomlNode* node = table_.Get(key);
        if (node == nullptr) return std::nullopt;
        return MadeOf(*node, [](const std::string& text) {
            const auto place = ParsePlace(text);
            if (!place) throw UsageError({FaultCode::kNoPlace, {}, text});
            return place;
        });
    }

    bool IsExact() const {
        const TomlNode* node = table_.Get(kExact);
        if (node == nullptr) return false;
        if (node->kind != TomlKind::Flag) Refuse(*node, "exact is neither true nor false");
        return node->text == "true";
    }

    Query Condition() const {
        return MadeOf(Needed(kWhere), [this](const std::string& text) {
            QueryReading reading = ParseQuery(text, {IsExact(), tools_.charset});
            if (!reading.query) throw UsageError(CaretText(text, reading.fault));
            if (reading.query->AsksValidity()) reading.query->SetValidity(tools_.isValid);
            return std::move(*reading.query);
        });
    }

    const TomlNode& table_;
    const ConditionTools& tools_;
};

// Reads the whole: the own rules first, so that the others may name them.
class SettingsReader {
public:
    SettingsReader(const TomlNode& root, const ConditionTools& tools)
        : root_(root), tools_(tools) {}

    CheckSettings Read(const std::string& file) {
        CheckKeys(root_, {kOnly, kSkip, kFailOn, kSeverity, kRule});
        ReadOwnRules(file);
        ReadSeverities();
        settings_.choice.only = Names(kOnly);
        for (std::string& name : Names(kSkip)) settings_.choice.skip.push_back(std::move(name));
        if (const TomlNode* node = root_.Get(kFailOn)) ReadFailOn(*node);
        return std::move(settings_);
    }

private:
    void ReadOwnRules(const std::string& file) {
        const TomlNode* node = root_.Get(kRule);
        if (node == nullptr) return;
        std::vector<OwnRule> rules;
        for (const TomlNode& table : node->items) {
            if (table.kind != TomlKind::Table) Refuse(table, kEachIsATable);
            const OwnRuleReader reader(table, tools_);
            rules.push_back(reader.Read(file));
            CheckName(*table.Get(kId), rules);
            if (reader.IsOff()) settings_.choice.skip.push_back(rules.back().name);
        }
        if (rules.empty()) Refuse(*node, kEachIsATable);
        settings_.own = OwnRules(std::move(rules));
    }

    // Of the last of the rules.
    static void CheckName(const TomlNode& node, const std::vector<OwnRule>& rules) {
        const std::string& name = rules.back().name;
        if (!IsNameOfRule(name)) {
            Refuse(node, "the id of a rule is made of small letters a to z, digits and hyphens");
        }
        if (RuleNamed(name) != nullptr) {
            const std::string hint =
                HintText(kRulesHint, Place::OfRecord(), "quillory check --rules lists all");
            Refuse(node, "there is a rule of this id already" + (hint.empty() ? "" : "; " + hint));
        }
        if (std::ranges::count(rules, name, &OwnRule::name) > 1) {
            Refuse(node, "another rule of this file has the same id");
        }
    }

    void ReadSeverities() {
        const TomlNode* node = root_.Get(kSeverity);
        if (node == nullptr) return;
        if (node->kind != TomlKind::Table) {
            Refuse(*node,
                   "severity is a table: a line [severity], and below it a line such as "
                   "isbn-invalid = \"note\" for each rule");
        }
        for (const TomlMember& member : node->members) {
            CheckKnown(member.key, member.at);
            SeverityOf(member.value);
            settings_.choice.severities.emplace_back(member.key, member.value.Text());
        }
    }

    std::vector<std::string> Names(const char* key) const {
        const TomlNode* node = root_.Get(key);
        if (node == nullptr) return {};
        if (node->kind != TomlKind::Array) {
            Refuse(*node, "not a list of names of rules, such as [\"isbn-invalid\", \"no-040\"]");
        }
        std::vector<std::string> names;
        for (const TomlNode& item : node->items) {
            CheckKnown(item.Text(), item.at);
            names.push_back(item.Text());
        }
        return names;
    }

    void CheckKnown(const std::string& name, const LineColumn& at) const {
        try {
            KnownRule(name, settings_.own.List());
        } catch (const UsageError& error) {
            throw TomlFault(at, error);
        }
    }

    void ReadFailOn(const TomlNode& node) {
        settings_.failsOn = SeverityOf(node);
        if (!settings_.failsOn) Refuse(node, "fail-on is error, warning or note");
    }

    static constexpr const char* kEachIsATable = "each rule is a table that begins with [[rule]]";

    const TomlNode& root_;
    const ConditionTools& tools_;
    CheckSettings settings_;
};

}  // namespace

CheckSettings ReadCheckSettings(std::string_view toml, const std::string& name,
                                const ConditionTools& tools) {
    const TomlNode root = ReadToml(toml, name);
    try {
        return SettingsReader(root, tools).Read(name);
    } catch (const TomlFault& fault) {
        throw InFile(name, fault);
    }
}

}  // namespace quillory
