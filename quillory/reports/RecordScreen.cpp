#include <quillory/coded/Material.h>
#include <quillory/exchange/Subfields.h>
#include <quillory/reports/CodedScreen.h>
#include <quillory/reports/RecordScreen.h>
#include <quillory/reports/ScreenText.h>

#include <algorithm>

namespace quillory {
namespace {

constexpr std::size_t kTextColumn = 8;

void AppendTag(std::string_view tag, std::string_view indicators, const ScreenOptions& options,
               std::string& text) {
    if (options.colour) text += kBold;
    text += Visible(tag);
    if (options.colour) text += kPlain;
    std::string shown(indicators);
    std::replace(shown.begin(), shown.end(), ' ', '#');
    text += ' ' + Padded(Visible(shown), 2) + "  ";
}

// The field that a field in another script stands for, by its link in $6.
std::string_view NamedTag(const zorby::CommFormatField& field) {
    const std::size_t link = field.content.find("\0376");
    const bool isLinked = field.tag == "880" && link != field.content.npos;
    return isLinked ? field.content.substr(link + 2, 3) : field.tag;
}

std::string_view WithoutIndicators(std::string_view content) {
    return content.substr(std::min<std::size_t>(2, content.size()));
}

void AppendNamedSubfields(const zorby::CommFormatField& field, const ScreenOptions& options,
                          std::string& text) {
    const std::string_view tag = NamedTag(field);
    AppendTag(field.tag, field.content.substr(0, 2), options, text);
    text += options.fieldName(tag) + '\n';
    ForEachPart(WithoutIndicators(field.content), [&](std::string_view part) {
        std::string name;
        if (part.size() > 1 && part.front() == zorby::kDelimiter) {
            name = Visible(options.subfieldName(tag, part[1])) + ": ";
            part.remove_prefix(2);
        }
        text.append(kTextColumn, ' ');
        Line(options.width, kTextColumn, text).Add(name + Visible(part));
        text += '\n';
    });
}

void AppendData(const zorby::CommFormatField& field, const ScreenOptions& options,
                std::string& text) {
    AppendTag(field.tag, field.content.substr(0, 2), options, text);
    Line line(options.width, kTextColumn, text);
    ForEachPart(WithoutIndicators(field.content), [&](std::string_view part) {
        if (part.front() == zorby::kDelimiter) {
            line.AddCode(Visible(part.substr(1, 1)), options.colour);
            part.remove_prefix(std::min<std::size_t>(2, part.size()));
        }
        line.Add(Visible(part));
    });
    text += '\n';
}

void AppendControlField(const zorby::CommFormatField& field, const ScreenOptions& options,
                        std::string& text) {
    AppendTag(field.tag, {}, options, text);
    if (options.fieldName) {
        text += options.fieldName(field.tag) + '\n' + std::string(kTextColumn, ' ');
    }
    text += Visible(field.content) + '\n';
}

}  // namespace

std::vector<DecodedField> DecodeRecord(const Record& record, const Decoder& decoder) {
    const std::string_view leader = record.leader;
    const bool isBibliographic = IsBibliographic(leader);
    std::vector<DecodedField> decoded = {isBibliographic ? decoder.Leader(leader)
                                                         : decoder.SharedOfLeader(leader)};
    for (const zorby::CommFormatField& field : record.fields) {
        if (field.tag == "006") decoded.push_back(decoder.Field006(field.content));
        if (field.tag == "007") decoded.push_back(decoder.Field007(field.content));
        if (field.tag != "008") continue;
        decoded.push_back(isBibliographic ? decoder.Field008(field.content, leader)
                                          : decoder.SharedOf008(field.content, leader));
    }
    return decoded;
}

void AppendLeader(std::string_view leader, const ScreenOptions& options, std::string& text) {
    AppendTag("LDR", {}, options, text);
    text += Visible(leader) + '\n';
}

void AppendField(const zorby::CommFormatField& field, const ScreenOptions& options,
                 std::string& text) {
    // A field whose tag has letters may be text alone.
    if (field.IsControlField() || (!field.IsDataField() && ShapeOf(field) == kControlShape)) {
        AppendControlField(field, options, text);
    } else if (options.subfieldName) {
        AppendNamedSubfields(field, options, text);
    } else {
        AppendData(field, options, text);
    }
}

void AppendScreen(const Record& record, const std::vector<DecodedField>& decoded,
                  const ScreenOptions& options, std::string& text) {
    auto next = decoded.begin();
    const auto appendDecoded = [&next, &decoded, &options, &text] {
        if (next != decoded.end()) AppendDecoded(*next++, kTextColumn, options, text);
    };
    AppendLeader(record.leader, options, text);
    appendDecoded();
    for (const zorby::CommFormatField& field : record.fields) {
        AppendField(field, options, text);
        if (next != decoded.end() && field.tag == next->place.Tag()) appendDecoded();
    }
}

}  // namespace quillory
