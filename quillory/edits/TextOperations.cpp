#include <quillory/edits/FieldParts.h>
#include <quillory/edits/OperationMakers.h>
#include <quillory/edits/TextOperation.h>
#include <quillory/exchange/Subfields.h>
#include <quillory/text/Capitals.h>
#include <quillory/text/LetterCase.h>
#include <quillory/text/Utf8.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr std::string_view kTexts =
    "subfields such as 245ab, fields such as 5XX, or control fields such as 001";

PlaceSet PlacesOfTexts(const Parameters& parameters) {
    using enum PlaceKind;
    return PlacesOfKind(parameters, "place", {Field, ControlField, Subfield}, kTexts);
}

class ChangeCase : public TextOperation {
public:
    ChangeCase(PlaceSet places, LetterCase letterCase)
        : TextOperation(std::move(places)), case_(letterCase) {}

protected:
    std::string Changed(std::string_view text, std::string_view) const override {
        return InCase(text, case_);
    }

private:
    LetterCase case_;
};

bool HasSmall(std::string_view text) {
    return std::ranges::any_of(text, [](char c) { return 'a' <= c && c <= 'z'; });
}

// Whether a subfield has small letters; its code is none of them.
bool HasFieldSmall(std::string_view content) {
    bool has = false;
    ForEachSubfield(content, [&has](char, std::string_view text) { has = has || HasSmall(text); });
    return has;
}

// Texts in capitals alone. A single word, such as CSS, may be an abbreviation.
class FixUpperCase : public TextOperation {
public:
    using TextOperation::TextOperation;

protected:
    std::string Changed(std::string_view text, std::string_view field) const override {
        const auto capitals = CapitalsOfUtf8(text);
        const bool isFixed =
            capitals && AreInCapitals(*capitals) && (capitals->words > 1 || !HasFieldSmall(field));
        return isFixed ? InCase(text, LetterCase::Sentence) : std::string(text);
    }
};

class Trim : public TextOperation {
public:
    Trim(PlaceSet places, std::string signs, std::string_view at)
        : TextOperation(std::move(places)),
          signs_(signs.empty() ? " " : std::move(signs)),
          atStart_(at != "end"),
          atEnd_(at != "start") {}

protected:
    std::string Changed(std::string_view text, std::string_view) const override {
        while (atStart_ && !text.empty() && IsSign(text.substr(0, DecodeUtf8(text).size))) {
            text.remove_prefix(DecodeUtf8(text).size);
        }
        while (atEnd_ && !text.empty() && IsSign(LastCharacter(text))) {
            text.remove_suffix(LastCharacter(text).size());
        }
        return std::string(text);
    }

private:
    bool IsSign(std::string_view character) const { return signs_.find(character) != signs_.npos; }

    std::string signs_;
    bool atStart_;
    bool atEnd_;
};

enum class Forced { Whole, Start, End };

std::string ForcedText(std::string_view text, const std::string& wanted, Forced forced) {
    switch (forced) {
        case Forced::Start:
            return text.starts_with(wanted) ? std::string(text) : wanted + std::string(text);
        case Forced::End:
            return text.ends_with(wanted) ? std::string(text) : std::string(text) + wanted;
        default:
            return wanted;
    }
}

class ForceTexts : public TextOperation {
public:
    ForceTexts(PlaceSet places, std::string text, Forced forced)
        : TextOperation(std::move(places)), text_(std::move(text)), forced_(forced) {}

protected:
    std::string Changed(std::string_view text, std::string_view) const override {
        return ForcedText(text, text_, forced_);
    }

private:
    std::string text_;
    Forced forced_;
};

// The whole of a text: fields without the subfield get it, and a record its control field.
class ForceWhole : public Operation {
public:
    ForceWhole(const Place& place, std::string text)
        : place_(place), text_(std::move(text)), present_({{{place}}}, text_, Forced::Whole) {}

    void Run(EditedRecord& record, const FieldFilter& isMeant) const override {
        const auto fields = FieldsOf(record, {place_}, isMeant);
        if (place_.IsControl()) {
            const bool isMissing = FieldsOf(record, {place_.Field()}, {}).empty();
            if (isMissing) InsertField(record, place_.Tag(), text_);
        } else {
            for (const std::size_t index : fields) AddMissing(record, index);
        }
        present_.Run(record, isMeant);
    }

private:
    void AddMissing(EditedRecord& record, std::size_t index) const {
        std::string content(record.ContentOf(index));
        bool has = false;
        ForEachSubfield(content,
                        [&](char code, std::string_view) { has = has || code == place_.code; });
        if (!has) record.SetContent(index, content + Part(place_.code, text_));
    }

    Place place_;
    std::string text_;
    ForceTexts present_;
};

}  // namespace

MadeOperation MakeCase(const Parameters& parameters, const EditTools&) {
    PlaceSet places = PlacesOfTexts(parameters);
    const std::string to = parameters.Text("as");
    if (to == "fix") return std::make_unique<FixUpperCase>(std::move(places));
    const auto letterCase = to == "upper"   ? LetterCase::Upper
                            : to == "lower" ? LetterCase::Lower
                            : to == "title" ? LetterCase::Title
                                            : LetterCase::Sentence;
    return std::make_unique<ChangeCase>(std::move(places), letterCase);
}

MadeOperation MakeTrim(const Parameters& parameters, const EditTools&) {
    return std::make_unique<Trim>(PlacesOfTexts(parameters), parameters.FieldText("signs"),
                                  parameters.Text("at"));
}

MadeOperation MakeForce(const Parameters& parameters, const EditTools&) {
    using enum PlaceKind;
    const std::string at = parameters.Text("at");
    std::string text = parameters.FieldText("text");
    if (at == "start" || at == "end") {
        return std::make_unique<ForceTexts>(PlacesOfTexts(parameters), std::move(text),
                                            at == "start" ? Forced::Start : Forced::End);
    }
    const Place place = PlaceOfKind(parameters, "place", {Subfield, ControlField},
                                    "a subfield such as 245h, or a control field such as 003");
    return std::make_unique<ForceWhole>(place, std::move(text));
}

}  // namespace quillory
