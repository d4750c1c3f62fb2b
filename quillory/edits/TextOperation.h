#pragma once

#include <quillory/edits/Operation.h>

#include <string>
#include <string_view>

namespace quillory {

// A step that changes texts of subfields and of control fields, each for itself.
class TextOperation : public Operation {
public:
    explicit TextOperation(PlaceSet places) : places_(std::move(places)) {}

    void Run(EditedRecord& record, const FieldFilter& isMeant) const override;

protected:
    // `field` is the content of the field that has the text.
    virtual std::string Changed(std::string_view text, std::string_view field) const = 0;

private:
    std::string ChangedField(std::string_view content, const PlacePattern& pattern) const;

    PlaceSet places_;
};

}  // namespace quillory
