#pragma once

#include <quillory/places/Place.h>

#include <string>
#include <string_view>

namespace quillory {

// What a person can do about a fault or a finding, where the program stands. The tables of words
// have it for the command line, where it names a command; a window says what is done there.
class HintPort {
public:
    virtual ~HintPort() = default;

    // `id` is that of the fault or the rule, or kCodesHint. Empty if there is nothing to say. It
    // may have the signs that the words of a fault have, such as {found}.
    virtual std::string Hint(std::string_view id, const Place& place) const = 0;
};

// Where the codes of a place are listed, and where the rules of checking are.
inline constexpr std::string_view kCodesHint = "codes";
inline constexpr std::string_view kRulesHint = "rules";

// What the port in force says, or the command where none is.
std::string HintText(std::string_view id, const Place& place, std::string_view command);

// Puts a port in force as long as it lives, and then the one from before. Keeps the reference.
class HintsInForce {
public:
    explicit HintsInForce(const HintPort& port);
    ~HintsInForce();
    HintsInForce(const HintsInForce&) = delete;
    HintsInForce& operator=(const HintsInForce&) = delete;

private:
    const HintPort* before_;
};

}  // namespace quillory
