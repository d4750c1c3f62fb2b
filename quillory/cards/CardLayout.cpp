#include <quillory/cards/CardLayout.h>

#include <algorithm>
#include <utility>

namespace quillory {
namespace {

constexpr double kCardMargin = 5 * kPointsPerMillimetre;
constexpr double kLeftEdge = 4 * kPointsPerMillimetre;
constexpr double kCallNumberWidth = 21.5 * kPointsPerMillimetre;
constexpr double kFirstIndention = 27 * kPointsPerMillimetre;
constexpr double kSecondIndention = 35 * kPointsPerMillimetre;
constexpr double kRightEdge = kCardWidth - kCardMargin;
constexpr double kClearOfHole = 5 * kPointsPerMillimetre;  // around its centre
constexpr std::size_t kMostHeadingLines = 2;               // of a card that continues another
constexpr const char* kContinued = "(Continued on next card)";

// A line before it has its place from above.
struct FlowLine {
    PlacedLine line;
    double height = 0;
    bool isOfMainEntry = false;  // where the call number stands
    bool isTracing = false;
};

struct Shape {
    const zorby::CFont& font;
    double first;   // where the first line begins
    double others;  // where all others do
};

Shape ShapeOf(BlockRole role, const CardFonts& fonts) {
    switch (role) {
        case kBlockAddedHeading:
            return {fonts.heading, kSecondIndention, kSecondIndention};
        case kBlockMainHeading:
            return {fonts.heading, kFirstIndention, kSecondIndention};
        case kBlockTitleEntry:
            return {fonts.body, kFirstIndention, kSecondIndention};
        case kBlockTracings:
            return {fonts.tracings, kSecondIndention, kFirstIndention};
        default:
            return {fonts.body, kSecondIndention, kFirstIndention};
    }
}

// Where the last cutter of a call number begins, the point before a letter; npos for none but at
// the front.
std::size_t CutterIn(const std::string& part) {
    const auto isLetter = [](char c) { return 'A' <= c && c <= 'Z'; };
    for (std::size_t at = part.rfind('.'); at != part.npos && at > 0;
         at = part.rfind('.', at - 1)) {
        if (at + 1 < part.size() && isLetter(part[at + 1])) return at;
    }
    return part.npos;
}

double BottomOf(const CardOptions& options) {
    const double hole = options.holeCenter * kPointsPerInch;
    const bool hasHole = kCardHeight / 2 < hole && hole < kCardHeight;
    return hasHole ? hole - kClearOfHole : kCardHeight - kCardMargin;
}

// Lays one card out.
class CardSetter {
public:
    CardSetter(const PrintItem& card, const CardOptions& options, Typesetter& typesetter)
        : card_(card), options_(options), typesetter_(typesetter), bottom_(BottomOf(options)) {}

    std::vector<Panel> Set() {
        for (const Block& block : card_.blocks) {
            if (block.role != kBlockCallNumber && block.role != kBlockContinued) AddBlock(block);
        }
        do {
            BeginPanel();
            FillPanel();
        } while (next_ < flow_.size());
        return std::move(panels_);
    }

private:
    std::vector<FlowLine> Lines(const std::string& text, const Shape& shape) {
        const SetText set = typesetter_.Break(text, shape.font, kRightEdge - shape.first,
                                              kRightEdge - shape.others);
        std::vector<FlowLine> lines;
        double indention = shape.first;
        for (const SetText::Line& line : set.lines) {
            // What is read from the right begins there.
            const double x = set.isRightToLeft
                                 ? kRightEdge - (indention - kFirstIndention) - line.width
                                 : indention;
            lines.push_back({{x, 0, line.text, shape.font, set.isRightToLeft},
                             typesetter_.LineHeight(shape.font)});
            indention = shape.others;
        }
        return lines;
    }

    void AddBlock(const Block& block) {
        for (FlowLine& line : Lines(block.text, ShapeOf(block.role, options_.fonts))) {
            line.isOfMainEntry = block.role != kBlockAddedHeading;
            line.isTracing = block.role == kBlockTracings;
            flow_.push_back(std::move(line));
        }
    }

    void BeginPanel() {
        panels_.push_back({kCardWidth, kCardHeight, {}, options_.holeCenter * kPointsPerInch});
        y_ = kCardMargin;
        hasCallNumber_ = false;
        if (panels_.size() > 1) BeginContinuation();
    }

    // The heading of a card that continues another, with its number, which has to be seen whatever
    // the length of the heading.
    std::vector<FlowLine> ContinuedHeading() {
        const std::string number = "(Card " + std::to_string(panels_.size()) + ")";
        const Shape shape{options_.fonts.continued, kFirstIndention, kSecondIndention};
        std::vector<FlowLine> lines;
        if (heading_.size() <= kMostHeadingLines) {
            const std::vector<std::string> headings = card_.Texts(kBlockContinued);
            lines = Lines(headings.empty() ? number : headings.front() + " " + number, shape);
            if (lines.size() <= kMostHeadingLines) return lines;
            heading_ = std::move(lines);
        }
        lines.assign(heading_.begin(), heading_.begin() + kMostHeadingLines - 1);
        lines.push_back(Lines("\u2026 " + number, {shape.font, shape.others, shape.others})[0]);
        return lines;
    }

    void BeginContinuation() {
        for (FlowLine& line : ContinuedHeading()) {
            line.isOfMainEntry = true;
            Place(std::move(line));
        }
    }

    // A part that is too wide is broken before its cutter, as in "PK3798" and ".N313", or else
    // wherever it has to be.
    void BreakCallNumber(const std::string& part, std::vector<PlacedLine>& lines) {
        const zorby::CFont& font = options_.fonts.callNumber;
        const SetText set = typesetter_.Break(part, font, kCallNumberWidth, kCallNumberWidth);
        const std::size_t cutter = set.lines.size() > 1 ? CutterIn(part) : part.npos;
        if (cutter != part.npos) {
            BreakCallNumber(part.substr(0, cutter), lines);
            BreakCallNumber(part.substr(cutter), lines);
            return;
        }
        for (const SetText::Line& line : set.lines) {
            lines.push_back({kLeftEdge, 0, line.text, font, set.isRightToLeft});
        }
    }

    // Puts the call number beside the first line of the main entry.
    void PlaceCallNumber() {
        hasCallNumber_ = true;
        const double height = typesetter_.LineHeight(options_.fonts.callNumber);
        std::vector<PlacedLine> lines;
        for (const std::string& part : card_.Texts(kBlockCallNumber)) BreakCallNumber(part, lines);
        double y = y_;
        for (PlacedLine& line : lines) {
            if (y + height > kCardHeight) {
                panels_.back().lacksRoom = true;
                return;
            }
            line.y = y;
            y += height;
            panels_.back().lines.push_back(std::move(line));
        }
    }

    void Place(FlowLine line) {
        if (line.isOfMainEntry && !hasCallNumber_) PlaceCallNumber();
        line.line.y = y_;
        y_ += line.height;
        panels_.back().lines.push_back(std::move(line.line));
    }

    double HeightFrom(std::size_t first) const {
        double height = 0;
        for (std::size_t i = first; i < flow_.size(); ++i) height += flow_[i].height;
        return height;
    }

    // All that is left, or as much as leaves room for the note that there is more.
    void FillPanel() {
        const bool isLast = y_ + HeightFrom(next_) <= bottom_;
        const double note = typesetter_.LineHeight(options_.fonts.continued);
        const double limit = isLast ? bottom_ : bottom_ - note;
        bool isFirst = true;
        while (next_ < flow_.size() && (isFirst || y_ + flow_[next_].height <= limit)) {
            // Tracings stand at the foot.
            if (isLast && flow_[next_].isTracing) y_ = std::max(y_, bottom_ - HeightFrom(next_));
            Place(std::move(flow_[next_++]));
            isFirst = false;
        }
        if (next_ < flow_.size()) PlaceNote(note);
    }

    void PlaceNote(double height) {
        const zorby::CFont& font = options_.fonts.continued;
        const SetText set = typesetter_.Break(kContinued, font, kCardWidth, kCardWidth);
        const double x = kRightEdge - set.lines.front().width;
        panels_.back().lines.push_back({x, bottom_ - height, kContinued, font});
    }

    const PrintItem& card_;
    const CardOptions& options_;
    Typesetter& typesetter_;
    double bottom_;
    std::vector<FlowLine> heading_;  // of cards that continue, once it is known to be too long
    std::vector<FlowLine> flow_;
    std::size_t next_ = 0;  // of the lines to be placed
    std::vector<Panel> panels_;
    double y_ = 0;
    bool hasCallNumber_ = false;
};

}  // namespace

std::vector<Panel> LayOutCard(const PrintItem& card, const CardOptions& options,
                              Typesetter& typesetter) {
    return CardSetter(card, options, typesetter).Set();
}

}  // namespace quillory
