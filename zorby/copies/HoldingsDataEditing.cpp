#include <zorby/conditions/OnlyWhenState.h>
#include <zorby/copies/HoldingsDataRecord.h>
#include <zorby/copies/detail/HoldingsIDRoles.h>
#include <zorby/holdings/HoldingsDelimiters.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>
#include <zorby/platform/detail/Decimal.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace zorby {
namespace {

constexpr int kOutside = -1;

// The numbers in a path, in their order.
std::vector<int> NumbersIn(std::string_view path) {
    std::vector<int> numbers;
    path.remove_prefix(std::min(path.find('\\'), path.size()));
    while (!path.empty()) {
        path.remove_prefix(1);
        const std::size_t end = path.find('\\');
        if (end == std::string_view::npos) break;
        numbers.push_back(DecimalInt(path.substr(0, end)));
        path.remove_prefix(end);
    }
    return numbers;
}

// The pairs of elements at the same positions of two paths, up to the first -1.
std::vector<std::pair<EHOLDINGSID, EHOLDINGSID>> Moves(std::string_view fromPath,
                                                       std::string_view toPath) {
    const std::vector<int> from = NumbersIn(fromPath);
    const std::vector<int> to = NumbersIn(toPath);
    std::vector<std::pair<EHOLDINGSID, EHOLDINGSID>> moves;
    for (std::size_t i = 0; i < std::min(from.size(), to.size()); ++i) {
        if (from[i] == kOutside || to[i] == kOutside) break;
        moves.emplace_back(static_cast<EHOLDINGSID>(from[i]), static_cast<EHOLDINGSID>(to[i]));
    }
    return moves;
}

bool MeetsText(CHoldingsDataElement& element, std::string_view onlyWhenText) {
    COnlyWhenState state;
    state.InitializeOnlyWhenState("0", onlyWhenText);
    state.parsedHoldingsID = element.GetID();
    return element.OnlyWhenElement(state, 1) != nullptr;
}

template <class Predicate>
CHoldingsDataRecord::Elements TakeIf(CHoldingsDataRecord::Elements& elements, Predicate isTaken) {
    const auto stays = [&](const auto& element) { return !isTaken(*element); };
    const auto taken = std::stable_partition(elements.begin(), elements.end(), stays);
    CHoldingsDataRecord::Elements result(std::make_move_iterator(taken),
                                         std::make_move_iterator(elements.end()));
    elements.erase(taken, elements.end());
    return result;
}

}  // namespace

void CHoldingsDataRecord::EmptyBarCode() {
    std::erase_if(elements_, [](const auto& element) { return IsBarCode(element->GetID()); });
}

void CHoldingsDataRecord::AddMissingElements() {
    const auto* type = CInfoAboutHoldingsTypeList::FindFromType(holdingsType_);
    if (!type) return;
    for (int i = 0; i < type->GetSize(); ++i) {
        const EHOLDINGSID id = type->GetAt(i)->GetHoldingsID();
        if (Get(id).empty()) Add(id, "", 1, 0);
    }
}

void CHoldingsDataRecord::RemoveEmptyElements() {
    std::erase_if(elements_, [](const auto& element) { return element->GetText().empty(); });
}

void CHoldingsDataRecord::AddToPreviousOrAddNew(EHOLDINGSID id, std::string_view text,
                                                char separator) {
    CHoldingsDataElement* element = Find(id);
    if (!element) return Add(id, text, 0, 0);
    std::string joined = element->GetText();
    if (!joined.empty()) {
        if (separator == kcHoldingsDelimiter) joined += ' ';
        joined.append({separator, ' '});
    }
    element->SetText(joined.append(text));
}

void CHoldingsDataRecord::SetCallNumber(std::string_view text) {
    const EHOLDINGSID id = HoldingsRowOf(holdingsType_).callNumber.Whole();
    if (id == EHOLDINGSID{}) return;
    if (elements_.empty()) {
        elements_.push_back(std::make_unique<CHoldingsDataElement>());
        elements_.front()->Create(id, "", 0);
    }
    if (elements_.front()->GetID() == id) elements_.front()->SetText(text);
}

std::unique_ptr<CHoldingsDataElement> CHoldingsDataRecord::DeleteElement(
    const CHoldingsDataElement* element) {
    const auto found = std::ranges::find(elements_, element, [](const auto& e) { return e.get(); });
    if (found == elements_.end()) return nullptr;
    auto taken = std::move(*found);
    elements_.erase(found);
    return taken;
}

std::unique_ptr<CHoldingsDataElement> CHoldingsDataRecord::DeleteElement(EHOLDINGSID id) {
    return DeleteElement(Find(id));
}

CHoldingsDataRecord::Elements CHoldingsDataRecord::DeleteAllElementsExcept(
    const std::vector<unsigned>& ids) {
    return TakeIf(elements_, [&](const CHoldingsDataElement& element) {
        return std::ranges::find(ids, static_cast<unsigned>(element.GetID())) == ids.end();
    });
}

CHoldingsDataRecord::Elements CHoldingsDataRecord::DeleteOnesMarkedForLaterDeletion() {
    return TakeIf(elements_, [](const CHoldingsDataElement& element) {
        return element.IsMarkedForDeletion() != 0;
    });
}

void CHoldingsDataRecord::MarkElementForLaterDeletion(EHOLDINGSID id) {
    if (CHoldingsDataElement* element = Find(id)) element->SetMarkedForDeletion(1);
}

int CHoldingsDataRecord::GetHoldingsID(int position, std::string_view path) {
    const std::vector<int> numbers = NumbersIn(path);
    const bool isInside = position >= 0 && static_cast<std::size_t>(position) < numbers.size();
    return isInside ? numbers[static_cast<std::size_t>(position)] : kOutside;
}

std::unique_ptr<CHoldingsDataRecord> CHoldingsDataRecord::ChangeElementsNewDR(
    std::string_view fromPath, std::string_view toPath,
    const std::vector<std::string>& onlyWhenTexts, int keepOthers) {
    auto changed = std::make_unique<CHoldingsDataRecord>();
    changed->CloneFrom(*this);
    std::vector<unsigned> targets;
    std::size_t position = 0;
    for (const auto& [from, to] : Moves(fromPath, toPath)) {
        const std::size_t i = position++;
        CHoldingsDataElement* element = Find(from);
        if (!element) continue;
        if (i < onlyWhenTexts.size() && !MeetsText(*element, onlyWhenTexts[i])) continue;
        changed->DeleteElement(from);
        changed->MarkElementForLaterDeletion(to);
        changed->Add(to, element->GetText(), 1, 0);
        targets.push_back(static_cast<unsigned>(to));
    }
    if (keepOthers == 0) changed->DeleteAllElementsExcept(targets);
    changed->DeleteOnesMarkedForLaterDeletion();
    return IsEqualTo(*changed) ? nullptr : std::move(changed);
}

}  // namespace zorby
