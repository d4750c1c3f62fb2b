#pragma once

#include <quillory/edits/OperationTable.h>

namespace quillory {

// One for each row of the table of operations.
using MadeOperation = std::unique_ptr<Operation>;

// Fields and subfields.
MadeOperation MakeAdd(const Parameters& parameters, const EditTools& tools);
MadeOperation MakeDelete(const Parameters& parameters, const EditTools& tools);
MadeOperation MakeRename(const Parameters& parameters, const EditTools& tools);
MadeOperation MakeCopy(const Parameters& parameters, const EditTools& tools);
MadeOperation MakeMove(const Parameters& parameters, const EditTools& tools);
MadeOperation MakeBuild(const Parameters& parameters, const EditTools& tools);
MadeOperation MakeIndicators(const Parameters& parameters, const EditTools& tools);

// Texts.
MadeOperation MakeReplace(const Parameters& parameters, const EditTools& tools);
MadeOperation MakeForce(const Parameters& parameters, const EditTools& tools);
MadeOperation MakeCase(const Parameters& parameters, const EditTools& tools);
MadeOperation MakeTrim(const Parameters& parameters, const EditTools& tools);

// Order, and what is too many.
MadeOperation MakeSortFields(const Parameters& parameters, const EditTools& tools);
MadeOperation MakeOrderSubfields(const Parameters& parameters, const EditTools& tools);
MadeOperation MakeRemoveEmpty(const Parameters& parameters, const EditTools& tools);
MadeOperation MakeRemoveDouble(const Parameters& parameters, const EditTools& tools);

// Coded fields.
MadeOperation MakeSet(const Parameters& parameters, const EditTools& tools);

// Copies.
MadeOperation MakeMoveElement(const Parameters& parameters, const EditTools& tools);

// Checks of places, which throw ParameterError.
enum class PlaceKind { Field, ControlField, Subfield, Indicator, Positions };
PlaceKind KindOf(const Place& place);
PlaceKind KindOf(const PlacePattern& pattern);
// Each of the places is of one of the kinds; `allowed` names these in words.
PlaceSet PlacesOfKind(const Parameters& parameters, std::string_view name,
                      std::initializer_list<PlaceKind> kinds, std::string_view allowed);
Place PlaceOfKind(const Parameters& parameters, std::string_view name,
                  std::initializer_list<PlaceKind> kinds, std::string_view allowed);

}  // namespace quillory
