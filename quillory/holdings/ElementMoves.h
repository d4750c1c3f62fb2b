#pragma once

#include <quillory/faults/Fault.h>
#include <quillory/holdings/HoldingsSystem.h>
#include <zorby/copies/HoldingsDataRecord.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// The elements of the system that a list of names or numbers has, such as "Price, Vendor". Throws
// FaultError for one that the system lacks, or that stands there twice.
std::vector<zorby::EHOLDINGSID> ElementsNamed(const HoldingsSystem& system, std::string_view names);

// Values of copies that go from one element to another, all at once, so that two can be swapped.
class ElementMoves {
public:
    // From the elements of one list to those at the same positions of the other, which is as long.
    ElementMoves(HoldingsSystem system, const std::vector<zorby::EHOLDINGSID>& from,
                 const std::vector<zorby::EHOLDINGSID>& into);

    // What came of a copy: its new form, null if nothing changes; or why its values can't move.
    struct Outcome {
        std::unique_ptr<zorby::CHoldingsDataRecord> copy;
        std::optional<Fault> fault;
    };

    // An element that is missing or empty moves nothing. A value takes the place of what its target
    // had.
    Outcome Carry(const zorby::CHoldingsDataRecord& copy) const;

private:
    struct Move {
        zorby::EHOLDINGSID from;
        zorby::EHOLDINGSID into;
    };

    bool IsSource(zorby::EHOLDINGSID id) const;

    HoldingsSystem system_;
    std::vector<Move> moves_;
    std::string fromPath_;  // as the library takes them: "\100\103\"
    std::string intoPath_;
};

}  // namespace quillory
