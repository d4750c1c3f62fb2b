#include <quillory/cli/PolicyArguments.h>

namespace quillory {

void DeclarePolicy(Arguments& command, PolicyOptions& options) {
    command.Choice("--policy", options.policy.kind,
                   {{"basic", kPolicyBasic}, {"tlc", kPolicyTLC}, {"custom", kPolicyCustom}},
                   "What the findings count as; as the settings say if not given");
    command
        .KeyValue("--set", options.policy.keys, "KEY=0|1|2",
                  "What one kind of finding counts as, by its setting: 0 an error, 1 a warning, 2 "
                  "nothing; may be given several times")
        .Range(0, 2);
    command.Option("--user-defined", options.userDefined,
                   "Fields and subfields of your own, such as \"590ab 591-595\"; any others that "
                   "the format leaves to libraries are findings then");
}

void DeclareFailOn(Arguments& command, std::optional<Severity>& failsOn) {
    command.Choice(
        "--fail-on", failsOn,
        {{"error", Severity::Error}, {"warning", Severity::Warning}, {"note", Severity::Note}},
        "The least weight of a finding that makes the status 1; warning if not given");
}

}  // namespace quillory
