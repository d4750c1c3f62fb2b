#include <quillory/arguments/MeantName.h>
#include <quillory/text/NearestNames.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr std::size_t kMostNames = 3;

std::string_view WithoutDashes(std::string_view name) {
    return name.substr(std::min(name.find_first_not_of('-'), name.size()));
}

}  // namespace

std::string MeantNames(std::string_view word, const std::vector<std::string>& names) {
    const std::string wanted(WithoutDashes(word));
    if (wanted.size() < 2) return {};
    std::vector<std::string> bare;  // but those of one letter, which are near to anything short
    for (const std::string& name : names) {
        const std::string_view known = WithoutDashes(name);
        if (known.size() > 1) bare.emplace_back(known);
    }
    std::string meant;
    std::size_t count = 0;
    for (const std::string& near : NearestNames(wanted, bare)) {
        const bool isPart = near.find(wanted) != near.npos;
        if (count > 0 && (!isPart || count == kMostNames)) break;
        const auto name = std::ranges::find(names, near, WithoutDashes);
        meant += (count++ == 0 ? "" : " or ") + *name;
    }
    return meant.empty() ? meant : "; did you mean " + meant + "?";
}

}  // namespace quillory
