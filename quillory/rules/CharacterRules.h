#pragma once

#include <quillory/checks/RecordInHand.h>
#include <quillory/rules/RemarkSink.h>
#include <quillory/text/TextConverter.h>

namespace quillory {

// Bytes and characters of a record in MARC-8 or UTF-8: what is no character, what no character set
// defines, and what MARC-8 lacks.
class CharacterRules {
public:
    // The character set of a record's bytes. One that says MARC-8 and is in UTF-8 is remarked on.
    static Charset CharsetOf(const RecordInHand& inHand, RemarkSink& remarks);

    // Nothing is found in other character sets. `inHand` is the record taken apart.
    void Check(const Record& record, const RecordInHand& inHand, Charset charset,
               RemarkSink& remarks);

private:
    void CheckField(const CheckedField& field, Charset charset, RemarkSink& remarks);
    void CheckUtf8(const Place& place, std::string_view text, RemarkSink& remarks);
    void CheckMarc8(const Place& place, std::string_view text, RemarkSink& remarks);

    TextConverter toMarc8_{kCharsetUtf8, kCharsetMarc8, kNormalFormC};
    TextConverter toUtf8_{kCharsetMarc8, kCharsetUtf8, kNormalFormC};
    std::string converted_;
    Losses losses_;
};

}  // namespace quillory
