#include <quillory/cli/Commands.h>
#include <quillory/cli/OfferedNames.h>
#include <quillory/exchange/Output.h>
#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/holdings/HoldingsSystem.h>
#include <quillory/jobs/Library.h>
#include <quillory/reports/CodedDocument.h>
#include <quillory/reports/DictionarySearch.h>
#include <quillory/reports/FieldDocument.h>
#include <quillory/reports/HoldingsTypeDocument.h>
#include <zorby/settings/Profile.h>
#include <zorby/settings/ProfileKeys.h>

#include <optional>
#include <string>
#include <vector>

namespace quillory {
namespace {

struct DescribeOptions {
    std::vector<std::string> words;  // of what is to be described
    bool subfields = false;
    std::string search;
    bool holdings = false;
    bool isJson = false;
    std::string userDefined;
    std::optional<int> display;  // as the settings have it if not given
};

// What is to be described, of one word or several: 245, part 310, a holdings type.
std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
    return text;
}

zorby::EDISPLAYOPTIONS DisplayOf(const DescribeOptions& options) {
    return static_cast<zorby::EDISPLAYOPTIONS>(
        options.display ? *options.display
                        : zorby::GetZorbyProfileInt(zorby::ZP_DisplayNameOrMARC));
}

template <class Document>
Status Print(const Document& document, const DescribeOptions& options) {
    WriteOutput("-", options.isJson ? JsonText(document) : ToText(document));
    return kStatusWell;
}

// `what` is named where the dictionary does not know it.
template <class Document>
Status Print(const std::optional<Document>& document, const std::string& what,
             const DescribeOptions& options) {
    if (!document) throw UsageError(Fault{FaultCode::kNotInDictionary, {}, what});
    return Print(*document, options);
}

// 245, 245a, 245$a or 245/2.
Status DescribePlace(const std::string& what, const DescribeOptions& options) {
    const zorby::EDISPLAYOPTIONS display = DisplayOf(options);
    const std::optional<Place> place = ParsePlace(what);
    const unsigned tag = place ? place->Number() : kNoTag;
    if (tag == kNoTag || place->occurrence != 0) {
        throw UsageError(FaultReason({FaultCode::kNoPlace, {}, what}) +
                         "; --search looks for words in names");
    }
    const std::string shown = PlaceText(*place);
    if (place->indicator != 0) {
        return Print(DescribeIndicator(tag, place->indicator, display), "indicator " + shown,
                     options);
    }
    if (place->code != '\0') {
        return Print(DescribeSubfield(tag, place->code, display), "subfield " + shown, options);
    }
    return Print(DescribeField(tag, display, options.subfields), "field " + shown, options);
}

Status DescribeHoldings(const std::string& type, const DescribeOptions& options) {
    if (type.empty()) return Print(DescribeHoldingsTypes(), options);
    const std::optional<HoldingsTypeDocument> document = DescribeHoldingsType(type);
    if (document) return Print(*document, options);
    throw UsageError({FaultCode::kNoHoldingsType, {}, type, MeantHoldingsType(type)});
}

// leader/06, 008/18, 007c/01, part 310; or all elements of a field.
Status DescribeCodedPlace(const std::string& what, const DescribeOptions& options) {
    const NamedPlace place = FindPlace(what);
    if (place.fault) throw UsageError(place.fault);
    const CodedElements elements = DescribeElements(place.elements, LoadCodeLists());
    const bool isOne = what.find_first_of("/ ") != what.npos;
    if (isOne || options.isJson) return Print(elements, options);
    WriteOutput("-", ToBriefText(elements));
    return kStatusWell;
}

Status Search(const DescribeOptions& options) {
    const SearchHits hits = SearchDictionary(options.search, DisplayOf(options));
    Print(hits, options);
    return hits.empty() ? kStatusFindings : kStatusWell;
}

Status RunDescribe(const DescribeOptions& options) {
    const std::string what = Joined(options.words);
    const bool isPlace = !options.holdings && options.search.empty();
    if (isPlace && what.empty()) {
        throw UsageError(
            "describe what? A field such as 245, an element such as 008/18; quillory "
            "describe --help says more");
    }
    if (isPlace && IsCodedPlace(what)) return DescribeCodedPlace(what, options);
    LoadSettings();
    LoadDictionaries(options.userDefined);
    if (options.holdings) return DescribeHoldings(what, options);
    if (!options.search.empty()) return Search(options);
    return DescribePlace(what, options);
}

}  // namespace

void DeclareDescribe(Arguments& command) {
    DescribeOptions& options = command.Runs(RunDescribe);
    command
        .Positional("WHAT", options.words,
                    "A field 245, a subfield 245a, an indicator 245/2, an element leader/06, "
                    "008/18, 007c/01 or part 310, or a holdings type")
        .OffersNow(OfferedHoldingsSystems);
    command.Flag("--subfields", options.subfields, "With the field's subfields");
    command.Option("--search", options.search, "Find names that have all these words");
    command.Flag("--holdings", options.holdings,
                 "The holdings systems, or the elements of the one named by WHAT");
    command.Choice("--format", options.isJson, {{"text", false}, {"json", true}},
                   "text, or json for a program");
    command.Option("--user-defined", options.userDefined,
                   "Fields and subfields of your own, such as \"590ab 591-595\"");
    command
        .Option("--display", options.display,
                "0 name and code, 1 name, 2 code and name, 3 code; as in the settings if not given")
        .Range(0, 3)
        .Shown("0|1|2|3")
        .Offers({"0", "1", "2", "3"});
}

}  // namespace quillory
