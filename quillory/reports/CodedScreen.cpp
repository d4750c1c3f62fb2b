#include <quillory/coded/Material.h>
#include <quillory/reports/CodedDocument.h>
#include <quillory/reports/CodedScreen.h>
#include <quillory/reports/ScreenText.h>

#include <algorithm>

namespace quillory {
namespace {

// The cells of a line; positions and name are empty in a further line of the same element.
struct Row {
    std::string positions;
    std::string name;
    std::string value;
    std::string text;
    const char* colour = nullptr;
};

constexpr const char* kGap = "  ";
constexpr std::size_t kGapColumns = 2;
// Longer values push the text of their own line to the right.
constexpr std::size_t kWidestValue = 6;
constexpr std::size_t kLeastText = 16;

std::string WithRemark(const CodeMeaning& code) {
    const std::string remark = RemarkText(code);
    return remark.empty() ? code.text : code.text + " (" + remark + ")";
}

void FillCode(const CodeMeaning& code, bool isUndefined, Row& row) {
    row.value = Visible(CodeText(code.code));
    if (code.state == CodeState::Unknown) {
        row.text = isUndefined             ? "? undefined position"
                   : IsAll(code.code, ' ') ? "? blank, which is not a code here"
                                           : "? unknown code";
        row.colour = kRed;
        return;
    }
    row.text = WithRemark(code);
    const bool isOfItsTime = code.state == CodeState::Newer || code.state == CodeState::Obsolete;
    if (isOfItsTime) row.colour = kYellow;
}

void FillValue(const DecodedElement& element, Row& row) {
    row.value = Visible(CodeText(element.value));
    row.text = element.text;
    if (element.state == ElementState::Free) return;
    if (element.state == ElementState::Misfit) row.text = "not a value of this element";
    if (element.state == ElementState::Undefined) row.text = "undefined position";
    row.text = "? " + row.text;
    row.colour = kRed;
}

std::vector<Row> RowsOf(const DecodedField& field) {
    std::vector<Row> rows;
    for (const DecodedElement& element : field.elements) {
        Row row;
        row.positions = PositionsText(element.place.first, element.place.last);
        row.name = element.name;
        if (element.codes.empty()) {
            FillValue(element, row);
            rows.push_back(row);
        }
        for (const CodeMeaning& code : element.codes) {
            FillCode(code, element.state == ElementState::Undefined, row);
            rows.push_back(row);
            row = {};
        }
    }
    return rows;
}

// The blanks that bring a value up to the column of texts.
std::size_t ValueColumns(const std::vector<Row>& rows) {
    return Widest(rows, [](const Row& row) {
        return Columns(row.value) <= kWidestValue ? std::string_view(row.value) : "";
    });
}

}  // namespace

void AppendDecoded(const DecodedField& field, std::size_t indent, const ScreenOptions& options,
                   std::string& text) {
    const std::vector<Row> rows = RowsOf(field);
    // A field 008 does not say itself by which material it is read.
    const bool hasMaterial = field.place.Tag() == "008" && !FormName(field.form).empty();
    if (hasMaterial) {
        text += std::string(indent, ' ') + "(" + std::string(FormName(field.form)) + ")\n";
    }
    const std::size_t positions = Widest(rows, &Row::positions);
    const std::size_t names = Widest(rows, &Row::name);
    const std::size_t values = ValueColumns(rows);
    for (const Row& row : rows) {
        const std::string value = Padded(row.value, values);
        text += std::string(indent, ' ') + Padded(row.positions, positions) + kGap +
                Padded(row.name, names) + kGap;
        text += row.text.empty() ? row.value : value + kGap;
        const std::size_t column = indent + positions + names + Columns(value) + 3 * kGapColumns;
        const bool fits = options.width >= column + kLeastText;
        const char* colour = options.colour ? row.colour : nullptr;
        if (colour != nullptr) text += colour;
        Line(fits ? options.width : 0, column, text).Add(row.text);
        if (colour != nullptr) text += kPlain;
        text += '\n';
    }
}

}  // namespace quillory
