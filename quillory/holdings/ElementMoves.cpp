#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/holdings/CompositeText.h>
#include <quillory/holdings/ElementMoves.h>
#include <quillory/holdings/HoldingsColumn.h>
#include <quillory/text/QmText.h>
#include <quillory/text/Trimmed.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace quillory {
namespace {

using zorby::CHoldingsDataRecord;
using zorby::EHOLDINGSID;

std::string NameOf(const HoldingsSystem& system, EHOLDINGSID id) {
    return QmToUtf8(system.type->GetFieldInfo(id)->GetName());
}

Fault NotMoved(const HoldingsSystem& system, EHOLDINGSID from, EHOLDINGSID into) {
    return {FaultCode::kElementNotMoved, {}, NameOf(system, from), NameOf(system, into)};
}

// The order of output, in which values of one subfield keep the order of their elements' numbers:
// the library leaves the highest number first.
void PutInOrder(CHoldingsDataRecord& copy) {
    const auto elements = copy.DeleteAllElementsExcept({});
    for (auto element = elements.rbegin(); element != elements.rend(); ++element) {
        copy.Add((*element)->GetID(), (*element)->GetText(), 1, 0);
    }
    copy.SortByTagAndSubfield();
}

}  // namespace

std::vector<EHOLDINGSID> ElementsNamed(const HoldingsSystem& system, std::string_view names) {
    std::vector<EHOLDINGSID> elements;
    while (!names.empty()) {
        const std::size_t end = std::min(names.find(','), names.size());
        const std::string name(Trimmed(names.substr(0, end)));
        const auto* element = FindElement(system, name);
        if (element == nullptr) {
            throw FaultError({FaultCode::kNoSuchElement, {}, name, system.name});
        }
        if (std::ranges::count(elements, element->GetHoldingsID()) != 0) {
            throw FaultError(Fault{FaultCode::kHoldingsSameNames});
        }
        elements.push_back(element->GetHoldingsID());
        names.remove_prefix(std::min(end + 1, names.size()));
    }
    return elements;
}

ElementMoves::ElementMoves(HoldingsSystem system, const std::vector<EHOLDINGSID>& from,
                           const std::vector<EHOLDINGSID>& into)
    : system_(std::move(system)), fromPath_("\\"), intoPath_("\\") {
    for (std::size_t i = 0; i < from.size(); ++i) {
        moves_.push_back({from[i], into[i]});
        fromPath_.append(std::to_string(from[i])).append("\\");
        intoPath_.append(std::to_string(into[i])).append("\\");
    }
}

bool ElementMoves::IsSource(EHOLDINGSID id) const {
    return std::ranges::find(moves_, id, &Move::from) != moves_.end();
}

ElementMoves::Outcome ElementMoves::Carry(const CHoldingsDataRecord& copy) const {
    CHoldingsDataRecord before;
    before.CloneFrom(copy);
    before.RemoveEmptyElements();
    // A value for a number of a repeating item goes to a further number if this one is taken.
    for (const auto& [from, into] : moves_) {
        const std::string value = before.Get(from);
        if (!FitsItsElement(*system_.type->GetFieldInfo(into), value)) {
            return {nullptr, NotMoved(system_, from, into)};
        }
        if (!value.empty() && !IsSource(into)) before.DeleteElement(into);
    }
    Outcome outcome{before.ChangeElementsNewDR(fromPath_, intoPath_, {}, 1), {}};
    if (!outcome.copy) return outcome;
    PutInOrder(*outcome.copy);
    for (const auto& [from, into] : moves_) {
        const std::string value = before.Get(from);
        if (value.empty() || outcome.copy->Get(into) == value) continue;
        return {nullptr, NotMoved(system_, from, into)};
    }
    return outcome;
}

}  // namespace quillory
