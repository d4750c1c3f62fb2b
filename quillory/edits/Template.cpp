#include <quillory/edits/Template.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/queries/Values.h>

namespace quillory {
namespace {

Place ReadPlace(std::string_view text) {
    if (const auto place = ParsePlace(text)) return *place;
    throw TemplateError(Fault{FaultCode::kNoPlace, {}, std::string(text)});
}

}  // namespace

Template::Template(std::string_view text) {
    Piece piece;
    while (!text.empty()) {
        const char c = text.front();
        const bool isBrace = c == '{' || c == '}';
        const bool isDouble = isBrace && text.substr(1).starts_with(c);
        if (!isBrace || isDouble) {
            piece.text += c;
            text.remove_prefix(isDouble ? 2 : 1);
            continue;
        }
        const std::size_t end = text.find('}');
        if (c == '}' || end == text.npos) throw TemplateError(Fault{FaultCode::kBraceAlone});
        piece.place = ReadPlace(text.substr(1, end - 1));
        pieces_.push_back(std::exchange(piece, {}));
        text.remove_prefix(end + 1);
    }
    pieces_.push_back(piece);
}

std::optional<std::string> Template::Fill(EditedRecord& record,
                                          std::optional<std::size_t> own) const {
    std::string text;
    for (const Piece& piece : pieces_) {
        text += piece.text;
        if (piece.place.IsRecord()) continue;
        const auto value = FirstValue(record, piece.place, own);
        if (!value) return std::nullopt;
        text += *value;
    }
    return text;
}

std::optional<std::string> FirstValue(EditedRecord& record, const Place& place,
                                      std::optional<std::size_t> own) {
    const bool isOwn = own && record.TagOf(*own) == place.Tag() && place.occurrence == 0;
    const Record& source = isOwn ? record.InUtf8(*own) : record.InUtf8();
    std::optional<std::string> first;
    ForEachValue(source, PlaceSet{{{place}}}, [&](const Place&, std::string_view value) {
        if (!first && !value.empty()) first = value;
    });
    return first;
}

}  // namespace quillory
