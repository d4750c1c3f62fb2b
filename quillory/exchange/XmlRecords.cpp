#include <quillory/exchange/MarcXml.h>
#include <quillory/exchange/XmlRecords.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/text/LateLibrary.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <libxml/parser.h>
#include <libxml/xmlerror.h>
#include <new>
#include <utility>

namespace quillory {
namespace {

constexpr std::size_t kDeepest = 256;  // elements in one another

std::string_view View(const xmlChar* text) {
    return text == nullptr ? std::string_view{} : reinterpret_cast<const char*>(text);
}

// The value of an attribute without a prefix; empty if there is none. The parser gives five
// pointers for each.
std::string_view Attribute(std::string_view name, const xmlChar** attributes, int count) {
    constexpr int kPointers = 5;
    for (int i = 0; i < count; ++i, attributes += kPointers) {
        if (View(attributes[0]) != name || attributes[1] != nullptr) continue;
        return {reinterpret_cast<const char*>(attributes[3]),
                static_cast<std::size_t>(attributes[4] - attributes[3])};
    }
    return {};
}

// The first line of what the parser says, without bytes that could steer a terminal.
std::string Words(const char* message) {
    std::string words = message == nullptr ? "" : message;
    words.resize(std::min(words.find('\n'), words.size()));
    std::replace_if(
        words.begin(), words.end(), [](char c) { return c < ' ' || c >= 0x7F; }, '?');
    return words;
}

bool IsXmlBlank(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; });
}

}  // namespace

struct XmlRecords::Callbacks {
    static void StartElement(void* self, const xmlChar* name, const xmlChar*, const xmlChar* uri,
                             int, const xmlChar**, int count, int, const xmlChar** attributes) {
        const bool isOurs = IsOfMarc(View(uri));
        Of(self).Begin(isOurs ? ElementOf(Of(self), View(name)) : kOther, attributes, count);
    }

    static void EndElement(void* self, const xmlChar*, const xmlChar*, const xmlChar*) {
        Of(self).End();
    }

    static void Characters(void* self, const xmlChar* text, int size) {
        Of(self).AddText({reinterpret_cast<const char*>(text), static_cast<std::size_t>(size)});
    }

    static void DocumentType(void* self, const xmlChar*, const xmlChar*, const xmlChar*) {
        XmlRecords& records = Of(self);
        records.Fail({FaultCode::kDocumentType}, records.TagStart());
        records.StopParser();
    }

    static void Error(void* self, const xmlError& error) {
        if (error.level != XML_ERR_FATAL) return;
        XmlRecords& records = Of(self);
        const bool cutShort = records.atEnd_ && error.code == XML_ERR_DOCUMENT_END;
        records.FailMalformed(cutShort ? "the document is cut short" : Words(error.message));
    }

    static xmlSAXHandler Handler() {
        xmlSAXHandler handler{};
        handler.initialized = XML_SAX2_MAGIC;
        handler.startElementNs = StartElement;
        handler.endElementNs = EndElement;
        handler.characters = Characters;
        handler.ignorableWhitespace = Characters;
        handler.cdataBlock = Characters;
        handler.internalSubset = DocumentType;
        // Versions of the library differ in whether the error is const.
        handler.serror = [](void* self, auto* error) { Error(self, *error); };
        return handler;
    }

private:
    // Of the namespace or of none; MarcXchange (ISO 25577) has the same elements.
    static bool IsOfMarc(std::string_view uri) {
        return uri.empty() || uri == kMarcXmlNamespace ||
               uri.starts_with("info:lc/xmlns/marcxchange-");
    }

    static XmlRecords& Of(void* self) { return *static_cast<XmlRecords*>(self); }

    static Element ElementOf(XmlRecords& records, std::string_view name) {
        constexpr std::array<std::pair<std::string_view, Element>, 5> kNames{{
            {"subfield", kSubfield},
            {"datafield", kDataField},
            {"controlfield", kControlField},
            {"leader", kLeader},
            {"record", kRecord},
        }};
        for (const auto& [known, element] : kNames) {
            if (name == known) return element;
        }
        if (!records.rootSeen_ && name == "collection") records.isMarc_ = true;
        return kOther;
    }
};

class XmlRecords::Parser {
public:
    explicit Parser(XmlRecords& records) {
        xmlSAXHandler handler = Callbacks::Handler();
        context_ = xml_.makePushParser(&handler, &records, nullptr, 0, nullptr);
        if (context_ == nullptr) throw std::bad_alloc();
        // Without a document type there are only the five entities of XML itself. In attributes the
        // parser replaces them only if it replaces all.
        xml_.useOptions(context_, XML_PARSE_NONET | XML_PARSE_NOENT);
    }
    ~Parser() { xml_.free(context_); }
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    void Take(std::string_view bytes, bool atEnd) {
        xml_.parse(context_, bytes.data(), static_cast<int>(bytes.size()), atEnd ? 1 : 0);
    }
    void Stop() { xml_.stop(context_); }
    bool IsInTag() const { return context_->instate == XML_PARSER_START_TAG; }
    bool IsWellFormed() const { return context_->wellFormed != 0; }
    // Whether it is between tags, in a document that is in UTF-8.
    bool IsInContent() const {
        const auto* const buffer = context_->input == nullptr ? nullptr : context_->input->buf;
        return context_->instate == XML_PARSER_CONTENT && buffer != nullptr &&
               buffer->encoder == nullptr;
    }
    void PassLines(std::uint64_t lines) { context_->input->line += static_cast<int>(lines); }
    // Bytes of the document that have been read; less than 0 if that is not known.
    long Position() const { return xml_.bytesConsumed(context_); }

private:
    // It brings ICU.
    struct Library {
        static const Library& Loaded() {
            static const Library loaded;
            return loaded;
        }

        decltype(&xmlCreatePushParserCtxt) makePushParser;
        decltype(&xmlCtxtUseOptions) useOptions;
        decltype(&xmlFreeParserCtxt) free;
        decltype(&xmlParseChunk) parse;
        decltype(&xmlStopParser) stop;
        decltype(&xmlByteConsumed) bytesConsumed;

    private:
        Library() {
            static_assert(LIBXML_VERSION < 21400, "newer ones are called libxml2.so.16");
            const LateLibrary library("libxml2.so.2", "libxml2");
            library.Find("xmlCreatePushParserCtxt", makePushParser);
            library.Find("xmlCtxtUseOptions", useOptions);
            library.Find("xmlFreeParserCtxt", free);
            library.Find("xmlParseChunk", parse);
            library.Find("xmlStopParser", stop);
            library.Find("xmlByteConsumed", bytesConsumed);
        }
    };

    const Library& xml_ = Library::Loaded();
    xmlParserCtxtPtr context_;
};

XmlRecords::XmlRecords(std::uint64_t base)
    : base_(base), parser_(std::make_unique<Parser>(*this)) {}

XmlRecords::~XmlRecords() = default;

void XmlRecords::StopParser() {
    parser_->Stop();
}

void XmlRecords::Feed(std::string_view window, std::uint64_t offset, std::size_t fresh) {
    window_ = window;
    windowOffset_ = offset;
    fed_ = offset + window.size();
    atEnd_ = fresh == 0;
    const std::string_view bytes = window.substr(window.size() - fresh);
    parser_->Take(bytes, atEnd_);
    if (!parser_->IsWellFormed()) FailMalformed("it is not well-formed");
    if (!Failed() && IsWithinLongTag()) {
        Fail({FaultCode::kXmlTagTooLong}, Position());
        StopParser();
    }
}

// Of a tag the parser takes nothing before it is whole, and then time that grows with the square of
// its attributes.
bool XmlRecords::IsWithinLongTag() const {
    constexpr std::uint64_t kLongestTag = std::uint64_t{32} << 10;
    return parser_->IsInTag() && fed_ - Position() > kLongestTag;
}

void XmlRecords::Take(XmlRecord& record) {
    std::swap(record, ended_.front());
    ended_.pop_front();
}

bool XmlRecords::IsBetweenRecords() const {
    return !recordTag_.empty() && !Failed() && depth_ == 0 && openElements_ == around_ &&
           ended_.empty() && parser_->IsInContent() && Position() == fed_;
}

void XmlRecords::PassOver(std::uint64_t bytes) {
    base_ += bytes;
    fed_ += bytes;
}

void XmlRecords::PassLines(std::uint64_t lines) {
    parser_->PassLines(lines);
}

std::uint64_t XmlRecords::Position() const {
    const long position = parser_->Position();
    return std::clamp(position < 0 ? fed_ : base_ + static_cast<std::uint64_t>(position),
                      windowOffset_, fed_);
}

// No "<" stands within a tag, and the parser is not past the end of the tag.
std::uint64_t XmlRecords::TagStart() const {
    const std::uint64_t position = Position();
    const std::size_t start = window_.rfind('<', position - windowOffset_);
    return start == window_.npos ? position : windowOffset_ + start;
}

void XmlRecords::Fail(Fault fault, std::uint64_t offset) {
    if (!Failed()) fault_ = ItemFault{std::move(fault), offset};
}

void XmlRecords::FailMalformed(std::string words) {
    Fail({FaultCode::kMalformedXml, {}, std::move(words)}, Position());
}

// The parser is at the end of the tag.
void XmlRecords::KeepTag() {
    constexpr std::size_t kLongest = 1024;
    const auto size = static_cast<std::size_t>(Position() - current_.start);
    recordTag_ = window_.substr(current_.start - windowOffset_, size < kLongest ? size : 0);
    around_ = openElements_ - 1;
}

void XmlRecords::BeginRecord() {
    current_.builder.Clear();
    current_.start = TagStart();
    KeepTag();
    isMarc_ = true;
    depth_ = 1;
    foreign_ = 0;
    within_ = kRecord;
}

void XmlRecords::Begin(Element element, const xmlChar** attributes, int count) {
    rootSeen_ = true;
    if (++openElements_ > kDeepest) {
        Fail({FaultCode::kXmlTooDeep, {}, {}, std::to_string(kDeepest)}, TagStart());
        StopParser();
        return;
    }
    // A record of another kind may hold one of MARC.
    const bool isWrapper = depth_ != 0 && current_.builder.Empty();
    if (element == kRecord && (depth_ == 0 || isWrapper)) {
        BeginRecord();
        return;
    }
    if (depth_ == 0) return;
    ++depth_;
    if (current_.builder.Failed() || foreign_ != 0) return;
    if (element == kOther && (within_ == kRecord || within_ == kDataField)) {
        current_.builder.Note(FaultCode::kForeignParts);
        foreign_ = depth_;
    } else {
        BeginPart(element, attributes, count);
    }
}

void XmlRecords::BeginPart(Element element, const xmlChar** attributes, int count) {
    RecordBuilder& builder = current_.builder;
    const bool isInPlace = element == kSubfield ? within_ == kDataField : within_ == kRecord;
    text_.clear();
    if (!isInPlace || element == kRecord || element == kOther) {
        Mark(builder.Fail(FaultCode::kMisplacedElement));
        foreign_ = depth_;
        return;
    }
    within_ = element;
    if (element == kControlField) tag_ = Attribute("tag", attributes, count);
    if (element == kSubfield) code_ = Attribute("code", attributes, count);
    if (element != kDataField) return;
    Mark(builder.AddDataField(Attribute("tag", attributes, count)) &&
         builder.SetIndicator(0, Attribute("ind1", attributes, count)) &&
         builder.SetIndicator(1, Attribute("ind2", attributes, count)));
}

// Notes the place of the first fault, or of the one that ends the record.
void XmlRecords::Mark(bool sound) {
    const bool isFirst = current_.faultOffset == 0;
    if (!sound && (isFirst || current_.builder.Failed())) current_.faultOffset = TagStart();
}

void XmlRecords::AddText(std::string_view text) {
    if (depth_ == 0 || foreign_ != 0 || current_.builder.Failed()) return;
    if (within_ != kRecord && within_ != kDataField) {
        text_ += text;
    } else if (!IsXmlBlank(text)) {
        Mark(current_.builder.Fail(FaultCode::kMisplacedText));
    }
}

void XmlRecords::EndPart(Element element) {
    RecordBuilder& builder = current_.builder;
    within_ = element == kSubfield ? kDataField : kRecord;
    switch (element) {
        case kLeader:
            Mark(builder.SetLeader(text_));
            break;
        case kControlField:
            Mark(builder.AddControlField(tag_, text_));
            break;
        case kSubfield:
            Mark(builder.AddSubfield(code_, text_));
            break;
        default:
            Mark(builder.EndDataField());
    }
}

void XmlRecords::End() {
    if (--openElements_ < around_) recordTag_.clear();
    if (depth_ == 0) return;
    const bool isForeign = foreign_ != 0;
    if (foreign_ == depth_) foreign_ = 0;
    if (--depth_ != 0) {
        if (!isForeign && !current_.builder.Failed()) EndPart(within_);
        return;
    }
    current_.end = Position();
    if (!current_.builder.Failed() && !current_.builder.End()) {
        current_.faultOffset = current_.start;
    }
    ended_.push_back(std::exchange(current_, {}));
}

}  // namespace quillory
