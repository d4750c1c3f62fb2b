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
    shown = Visible(shown);
    shown.resize(std::max<std::size_t>(shown.size(), 2), ' ');
    text += ' ' + shown + "  ";
}

// The field that a field in another script stands for, by its link in $6.
std::string_view NamedTag(const zorby::CommFormatField& field) {
    const std::size_t link = field.content.find("\0376");
    const bool isLinked = field.tag == "880" && link != field.content.npos;
    return isLinked ? field.content.substr(link + 2, 3) : field.tag;
}

void AppendNamedSubfields(const zorby::CommFormatField& field, const ScreenOptions& options,
                          std::string& text) {
    const std::string_view tag = NamedTag(field);
    AppendTag(field.tag, field.content.substr(0, 2), options, text);
    text += options.fieldName(tag) + '\n';
    std::string_view rest = field.content.substr(std::min<std::size_t>(2, field.content.size()));
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(zorby::kDelimiter, 1), rest.size());
        const std::string_view subfield = rest.substr(0, end);
        text.append(kTextColumn, ' ');
        Line line(options.width, kTextColumn, text);
        if (subfield.size() > 1 && subfield.front() == zorby::kDelimiter) {
            line.Add(Visible(options.subfieldName(tag, subfield[1])) + ": " +
                     Visible(subfield.substr(2)));
        } else {
            line.Add(Visible(subfield));
        }
        text += '\n';
        rest.remove_prefix(end);
    }
}

void AppendData(const zorby::CommFormatField& field, const ScreenOptions& options,
                std::string& text) {
    AppendTag(field.tag, field.content.substr(0, 2), options, text);
    Line line(options.width, kTextColumn, text);
    std::string_view rest = field.content.substr(std::min<std::size_t>(2, field.content.size()));
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(zorby::kDelimiter, 1), rest.size());
        const std::string_view subfield = rest.substr(0, end);
        if (subfield.front() == zorby::kDelimiter) {
            line.AddCode(Visible(subfield.substr(1, 1)), options.colour);
            line.Add(Visible(subfield.substr(std::min<std::size_t>(2, subfield.size()))));
        } else {
            line.Add(Visible(subfield));
        }
        rest.remove_prefix(end);
    }
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
    std::vector<DecodedField> decoded = {decoder.Leader(record.leader)};
    for (const zorby::CommFormatField& field : record.fields) {
        if (field.tag == "006") decoded.push_back(decoder.Field006(field.content));
        if (field.tag == "007") decoded.push_back(decoder.Field007(field.content));
        if (field.tag == "008") decoded.push_back(decoder.Field008(field.content, record.leader));
    }
    return decoded;
}

void AppendScreen(const Record& record, const std::vector<DecodedField>& decoded,
                  const ScreenOptions& options, std::string& text) {
    auto next = decoded.begin();
    const auto appendDecoded = [&next, &decoded, &options, &text] {
        if (next != decoded.end()) AppendDecoded(*next++, kTextColumn, options, text);
    };
    AppendTag("LDR", {}, options, text);
    text += Visible(record.leader) + '\n';
    appendDecoded();
    for (const zorby::CommFormatField& field : record.fields) {
        if (field.IsControlField()) {
            AppendControlField(field, options, text);
            if (next != decoded.end() && field.tag == next->place.Tag()) appendDecoded();
        } else if (options.subfieldName) {
            AppendNamedSubfields(field, options, text);
        } else {
            AppendData(field, options, text);
        }
    }
}

}  // namespace quillory
