#include <quillory/cli/Choice.h>
#include <quillory/cli/PolicyArguments.h>

namespace quillory {
namespace {

std::pair<std::string, int> KeyAndValue(const std::string& text) {
    const std::size_t sign = text.find('=');
    const std::string value = sign == text.npos ? "" : text.substr(sign + 1);
    if (sign == 0 || (value != "0" && value != "1" && value != "2")) {
        throw CLI::ValidationError("--set", text + " is not KEY=0, KEY=1 or KEY=2");
    }
    return {text.substr(0, sign), value.front() - '0'};
}

}  // namespace

void AddPolicyOptions(CLI::App& command, PolicyOptions& options) {
    AddChoice<PolicyKind>(command, "--policy", options.policy.kind,
                          {{"basic", kPolicyBasic}, {"tlc", kPolicyTLC}, {"custom", kPolicyCustom}},
                          "What the findings count as; as the settings say if not given");
    command
        .add_option_function<std::vector<std::string>>(
            "--set",
            [&options](const std::vector<std::string>& keys) {
                for (const std::string& key : keys) options.policy.keys.push_back(KeyAndValue(key));
            },
            "What one kind of finding counts as, by its setting: 0 an error, 1 a warning, 2 "
            "nothing; may be given often")
        ->option_text("KEY=0|1|2")
        ->allow_extra_args(false);
    command.add_option("--user-defined", options.userDefined,
                       "Fields and subfields of your own, such as \"590ab 591-595\"; any others "
                       "that the format leaves to libraries are findings then");
}

}  // namespace quillory
