#include <quillory/coded/Decoder.h>
#include <quillory/coded/FreeValues.h>
#include <quillory/coded/Material.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

using namespace zorby;

const Place k006 = Place::OfField("006");
const Place k007 = Place::OfField("007");
const Place k008 = Place::OfField("008");

constexpr int kLastOfDayOfEntry = 5;  // in 008, in all formats

std::string Bytes(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

Place PlaceIn(const DecodedField& field, std::size_t first, std::size_t end) {
    return field.place.Positions(static_cast<int>(first), static_cast<int>(end) - 1);
}

// Adds the positions that the field lacks, or its bytes after the last position.
void AddEnd(std::size_t length, std::string_view content, DecodedField& field) {
    if (content.size() == length) return;
    DecodedElement end;
    end.text = Bytes(content.size()) + ", the format has " + std::to_string(length);
    if (content.size() < length) {
        end.place = PlaceIn(field, content.size(), length);
        end.name = "Missing";
        end.state = ElementState::Missing;
    } else {
        end.place = PlaceIn(field, length, content.size());
        end.name = "Beyond the format";
        end.value = content.substr(length);
        end.state = ElementState::Excess;
    }
    field.elements.push_back(end);
}

void AddUndecoded(std::size_t first, std::size_t end, std::string_view content, std::string reason,
                  DecodedField& field, ElementState state = ElementState::Undecoded) {
    end = std::min(end, content.size());
    if (first >= end) return;
    field.elements.push_back({PlaceIn(field, first, end),
                              "Not decoded",
                              std::string(content.substr(first, end - first)),
                              state,
                              {},
                              std::move(reason)});
}

// What a format other than the bibliographic one has of its own is as it should be, for all that is
// known here.
void AddOfOtherFormat(std::size_t first, std::size_t end, std::string_view content,
                      std::string_view leader, DecodedField& field) {
    AddUndecoded(first, end, content, "see the format for " + MaterialText(leader), field,
                 ElementState::Free);
}

}  // namespace

void Decoder::AddElement(const Element& element, std::string_view content,
                         DecodedField& field) const {
    const auto first = static_cast<std::size_t>(element.first);
    const std::string_view value = content.substr(first, static_cast<std::size_t>(element.Width()));
    if (element.IsUndefined() && (IsAll(value, ' ') || IsAll(value, kFill))) return;
    DecodedElement decoded;
    decoded.place = PlaceOf(element, field.place == k008);
    decoded.name = element.name;
    decoded.value = value;
    const auto freeValue =
        element.IsUndefined() ? std::nullopt : ReadFreeValue(element.parts.front(), value);
    if (element.IsUndefined()) {
        decoded.state = ElementState::Undefined;
        const std::string& former = lists_.FormerNameOf(element);
        if (!former.empty()) decoded.name = former;
        if (!former.empty()) decoded.codes = lists_.CodesIn(element, value);
    } else if (freeValue) {
        decoded.state = freeValue->fits ? ElementState::Free : ElementState::Misfit;
        decoded.text = freeValue->text;
    } else {
        decoded.codes = lists_.CodesIn(element, value);
    }
    field.elements.push_back(decoded);
}

void Decoder::AddElements(CFType form, int first, int last, std::string_view content,
                          DecodedField& field) const {
    for (const Element& element : ElementsOf(form)) {
        const bool isWanted = first <= element.first && element.first <= last &&
                              static_cast<std::size_t>(element.first) < content.size();
        if (isWanted) AddElement(element, content, field);
    }
}

DecodedField Decoder::WithForm(Place place, CFType form, std::string_view content) const {
    DecodedField field{place, form, {}};
    const int length = LengthOfForm(form);
    AddElements(form, 0, length, content, field);
    AddEnd(static_cast<std::size_t>(length), content, field);
    return field;
}

DecodedField Decoder::Leader(std::string_view leader) const {
    return WithForm(Place::OfLeader(), CFLdr, leader);
}

DecodedField Decoder::SharedOfLeader(std::string_view leader) const {
    DecodedField field{Place::OfLeader(), CFLdr, {}};
    AddElements(CFLdr, 0, 4, leader, field);
    AddOfOtherFormat(5, 9, leader, leader, field);
    AddElements(CFLdr, 9, 16, leader, field);
    AddOfOtherFormat(17, 20, leader, leader, field);
    AddElements(CFLdr, 20, LengthOfForm(CFLdr), leader, field);
    AddEnd(static_cast<std::size_t>(LengthOfForm(CFLdr)), leader, field);
    return field;
}

DecodedField Decoder::Field006(std::string_view content) const {
    const CFType form = MaterialOf006(content);
    if (form != CF006None) return WithForm(k006, form, content);
    DecodedField field{k006, form, {}};
    const auto length = static_cast<std::size_t>(LengthOfForm(CF006Books));
    AddUndecoded(0, length, content, "no form of material has this first byte", field);
    AddEnd(length, content, field);
    return field;
}

DecodedField Decoder::Field007(std::string_view content) const {
    const CFType form = CategoryOf007(content);
    if (form != CF007None) return WithForm(k007, form, content);
    DecodedField field{k007, form, {}};
    AddUndecoded(0, content.size(), content, "no category of material has this first byte", field);
    if (content.empty()) AddEnd(1, content, field);
    return field;
}

DecodedField Decoder::Field008(std::string_view content, std::string_view leader) const {
    const int length = LengthOfForm(CF008Standard);
    DecodedField field{k008, MaterialOfLeader(leader), {}};
    AddElements(CF008Standard, 0, kFirstMaterial008 - 1, content, field);
    if (field.form == CF006None) {
        AddUndecoded(kFirstMaterial008, kLastMaterial008 + 1, content,
                     "no material has such a type of record in its leader", field);
    } else if (content.size() > kFirstMaterial008) {
        AddElements(field.form, 1, LengthOfForm(field.form), content.substr(kMaterialOffset008),
                    field);
    }
    AddElements(CF008Standard, kLastMaterial008 + 1, length, content, field);
    AddEnd(static_cast<std::size_t>(length), content, field);
    return field;
}

DecodedField Decoder::SharedOf008(std::string_view content, std::string_view leader) const {
    DecodedField field{k008, CF006None, {}};
    AddElements(CF008Standard, 0, kLastOfDayOfEntry, content, field);
    AddOfOtherFormat(kLastOfDayOfEntry + 1, content.size(), content, leader, field);
    return field;
}

}  // namespace quillory
