#include <quillory/edits/FieldParts.h>
#include <quillory/edits/NewField.h>
#include <quillory/edits/OperationMakers.h>
#include <quillory/edits/Template.h>
#include <quillory/faults/FaultCode.h>

namespace quillory {
namespace {

// A field that the record already has just so is not put in again.
void AddField(EditedRecord& record, std::string_view tag, const std::string& content) {
    if (!HasField(record, tag, content)) InsertField(record, tag, content);
}

void AddSubfield(EditedRecord& record, std::size_t index, char code, const std::string& text,
                 bool atStart = false) {
    const std::string_view content = record.ContentOf(index);
    if (HasSubfield(content, code, text)) return;
    const std::string part = Part(code, text);
    FieldParts field = PartsOf(content);
    field.parts.insert(atStart ? field.parts.begin() : field.parts.end(), part);
    record.SetContent(index, Joined(field));
}

class AddNewField : public Operation {
public:
    explicit AddNewField(NewField field) : field_(std::move(field)) {}

    void Run(EditedRecord& record, const FieldFilter&) const override {
        AddField(record, field_.tag, field_.content);
    }

private:
    NewField field_;
};

class AddNewSubfield : public Operation {
public:
    AddNewSubfield(const Place& place, std::string text, bool atStart)
        : place_(place), text_(std::move(text)), atStart_(atStart) {}

    void Run(EditedRecord& record, const FieldFilter& isMeant) const override {
        for (const std::size_t index : FieldsOf(record, {place_}, isMeant)) {
            AddSubfield(record, index, place_.code, text_, atStart_);
        }
    }

private:
    Place place_;
    std::string text_;
    bool atStart_;
};

// A new field with places in braces among its texts.
class BuildField : public Operation {
public:
    explicit BuildField(const NewField& field) : tag_(field.tag) {
        const FieldParts parts = PartsOf(field.content);
        indicators_ = parts.parts.empty() ? std::string() : std::string(parts.head);
        if (parts.parts.empty()) texts_.emplace_back('\0', Template(parts.head));
        for (const std::string_view part : parts.parts) {
            texts_.emplace_back(CodeOf(part), Template(TextOf(part)));
        }
    }

    void Run(EditedRecord& record, const FieldFilter&) const override {
        std::string content = indicators_;
        for (const auto& [code, text] : texts_) {
            const auto filled = text.Fill(record);
            if (!filled) return;
            content += code == '\0' ? *filled : Part(code, *filled);
        }
        if (texts_.front().first == '\0') {
            SetControlField(record, content);
        } else {
            AddField(record, tag_, content);
        }
    }

private:
    // A control field that is there gets the text.
    void SetControlField(EditedRecord& record, const std::string& content) const {
        const auto known = FieldsOf(record, {Place::OfField(tag_)}, {});
        if (known.empty()) {
            InsertField(record, tag_, content);
        } else {
            record.SetContent(known.front(), content);
        }
    }

    std::string tag_;
    std::string indicators_;
    std::vector<std::pair<char, Template>> texts_;
};

// A subfield with places in braces in its text. Places of its own tag mean the field in hand.
class BuildSubfield : public Operation {
public:
    BuildSubfield(const Place& place, std::string_view text) : place_(place), text_(text) {}

    void Run(EditedRecord& record, const FieldFilter& isMeant) const override {
        for (const std::size_t index : FieldsOf(record, {place_}, isMeant)) {
            if (const auto text = text_.Fill(record, index)) {
                AddSubfield(record, index, place_.code, *text);
            }
        }
        if (!FieldsOf(record, {Place::OfField(place_.Tag())}, {}).empty()) return;
        const auto text = text_.Fill(record);
        if (text) AddField(record, place_.Tag(), "  " + Part(place_.code, *text));
    }

private:
    Place place_;
    Template text_;
};

}  // namespace

MadeOperation MakeAdd(const Parameters& parameters, const EditTools&) {
    NewField field = ReadNewField(parameters, "place", "text");
    const Place place = parameters.OnePlace("place");
    if (KindOf(place) != PlaceKind::Subfield) {
        return std::make_unique<AddNewField>(std::move(field));
    }
    return std::make_unique<AddNewSubfield>(place, parameters.FieldText("text"),
                                            parameters.Text("at") == "start");
}

MadeOperation MakeBuild(const Parameters& parameters, const EditTools&) {
    const NewField field = ReadNewField(parameters, "place", "text");
    const Place place = parameters.OnePlace("place");
    try {
        if (KindOf(place) != PlaceKind::Subfield) return std::make_unique<BuildField>(field);
        return std::make_unique<BuildSubfield>(place, parameters.FieldText("text"));
    } catch (const TemplateError& error) {
        throw ParameterError("text", error.What());
    }
}

}  // namespace quillory
