#include <quillory/coded/Material.h>
#include <quillory/queries/QueryNodes.h>
#include <quillory/text/SearchText.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr std::string_view k007 = "007";

std::vector<std::string> AllNames() {
    std::vector<std::string> names;
    const auto add = [&names](std::string_view name) {
        if (std::ranges::find(names, name) == names.end()) names.emplace_back(name);
    };
    for (const zorby::CFType form : FormsOf006()) add(FormName(form));
    for (const zorby::CFType form : FormsOf007()) add(FormName(form));
    // The Leaders of all that is no bibliographic record, and of none that is known.
    for (const char type : {'z', 'w', 'q', 'u', '?'}) {
        add(MaterialText(std::string("00000n") + type + "m"));
    }
    return names;
}

std::string Singular(std::string_view name) {
    return Folded(name.ends_with('s') ? name.substr(0, name.size() - 1) : name);
}

}  // namespace

bool JoinedNode::Holds(const QueriedRecord& queried) {
    const auto holds = [&](const QueryNodePtr& part) { return part->Holds(queried); };
    return all_ ? std::ranges::all_of(parts_, holds) : std::ranges::any_of(parts_, holds);
}

void JoinedNode::AddHits(const QueriedRecord& queried, std::vector<QueryHit>& hits) {
    for (const QueryNodePtr& part : parts_) {
        if (all_ || part->Holds(queried)) part->AddHits(queried, hits);
    }
}

bool ValueNode::Holds(const QueriedRecord& queried) {
    return AnySlice(queried.record, places_,
                    [&](const ValueSlice& slice) { return HoldsOf(queried, slice); });
}

void ValueNode::AddHits(const QueriedRecord& queried, std::vector<QueryHit>& hits) {
    ForEachSlice(queried.record, places_, [&](const ValueSlice& slice) {
        if (!HoldsOf(queried, slice)) return;
        const std::string_view text = queried.reader.TextOf(queried.record, slice);
        hits.push_back({slice.place, std::string(text), RangesIn(text, slice)});
    });
}

bool TextNode::HoldsOf(const QueriedRecord& queried, const ValueSlice& slice) {
    return test_.Holds(queried.reader.TextOf(queried.record, slice), slice.isCoded);
}

std::vector<TextRange> TextNode::RangesIn(std::string_view utf8, const ValueSlice& slice) {
    return test_.RangesIn(utf8, slice.isCoded);
}

bool NumberNode::HoldsOf(const QueriedRecord& queried, const ValueSlice& slice) {
    return test_.Holds(slice.place, queried.reader.TextOf(queried.record, slice));
}

bool CountNode::Holds(const QueriedRecord& queried) {
    std::uint64_t count = 0;
    ForEachSlice(queried.record, places_, [&count](const ValueSlice&) { ++count; });
    return Compare(count, op_, number_);
}

bool MaterialNode::Holds(const QueriedRecord& queried) {
    const auto isNamed = [this](std::string_view name) {
        return std::ranges::find(names_, name) != names_.end();
    };
    if (isNamed(MaterialText(queried.record.leader))) return true;
    return std::ranges::any_of(queried.record.fields, [&isNamed](const auto& field) {
        return field.tag == k007 && isNamed(FormName(CategoryOf007(field.content)));
    });
}

const std::vector<std::string>& MaterialNode::Names() {
    static const std::vector<std::string> names = AllNames();
    return names;
}

std::vector<std::string> MaterialNode::NamesFor(std::string_view given) {
    std::vector<std::string> names;
    for (const std::string& name : Names()) {
        if (Singular(name) == Singular(given)) names.push_back(name);
    }
    return names;
}

}  // namespace quillory
