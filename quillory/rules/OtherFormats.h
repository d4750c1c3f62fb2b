#pragma once

#include <quillory/checks/RecordInHand.h>
#include <quillory/coded/Material.h>
#include <quillory/exchange/Record.h>
#include <quillory/rules/RemarkSink.h>

#include <array>
#include <memory>

namespace quillory {

// The rules of the formats for authority, classification, community and holdings data. The table of
// a format is read when its first record comes.
class OtherFormats {
public:
    // With `allowsLocal`, what the formats leave to libraries is known.
    explicit OtherFormats(bool allowsLocal);
    ~OtherFormats();

    // The object that takes records of the format apart.
    RecordInHand& RecordOf(MarcFormat format);
    // What the rules say of the record that this object took last.
    void Check(MarcFormat format, RemarkSink& remarks);

private:
    struct Work;
    Work& WorkOf(MarcFormat format);

    bool allowsLocal_;
    std::array<std::unique_ptr<Work>, kFormatHoldings + 1> works_;
};

}  // namespace quillory
