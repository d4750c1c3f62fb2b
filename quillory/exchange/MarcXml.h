#pragma once

#include <quillory/exchange/Input.h>
#include <quillory/exchange/MarkupWriter.h>
#include <quillory/exchange/PlainXml.h>
#include <quillory/exchange/PlainXmlAhead.h>
#include <quillory/exchange/PlainXmlRun.h>
#include <quillory/exchange/RecordRuns.h>
#include <quillory/exchange/TextPlace.h>
#include <quillory/exchange/XmlRecords.h>
#include <quillory/text/TextBuilder.h>

#include <optional>
#include <utility>

namespace quillory {

inline constexpr std::string_view kMarcXmlNamespace = "http://www.loc.gov/MARC21/slim";

// MARC 21 XML. Records may lie anywhere in a document, such as the answer of a server; elements may
// be of the namespace, of that of MarcXchange, or of none. Elements of other kinds are passed over.
// A record that is not made as it should be is damage, and the next one goes on. Another document
// may follow the first, with its own declaration, as where files were joined; XML that is not
// well-formed, or has a document type (DOCTYPE), is read no further.
class MarcXmlReader : public RecordReader, public RecordRuns {
public:
    // With `lenient` a damaged record is given without the fields that can't be read.
    explicit MarcXmlReader(Input& input, bool lenient = false) : input_(input), lenient_(lenient) {}

    static bool Fits(std::string_view head) { return head.starts_with('<'); }

    bool Next(Item& item) override;

    // Records that can be read without the parser. They are read here, half of them in a thread
    // beside, since only then is it known where the next one begins. Where they are given, nothing
    // of them is copied.
    RecordRun PassOver(std::size_t most) override;
    std::unique_ptr<RecordReader> ReaderOf(const RecordRun& run, Input& input) const override;

private:
    void SkipTaken();
    std::string_view NextPiece();
    bool Feed();
    bool CanReadPlain();
    PlainXmlAhead::Part ReadRun(std::string_view xml, std::size_t most);
    void PassPlain(std::size_t bytes);
    bool ReadPlain();
    bool TakeNext();
    void Give(Item& item, ItemKind kind, std::uint64_t end);
    void GiveRecord(Item& item);
    void GiveUpToRecord(Item& item);
    void GiveDamage(Item& item, std::uint64_t end);
    bool GivePassed(Item& item);
    bool BeginNextDocument(Item& item);
    bool GiveRest(Item& item);
    bool GiveEnd(Item& item);
    void SetFault(Item& item, const Fault& fault, std::uint64_t offset);

    Input& input_;
    bool lenient_;
    std::optional<XmlRecords> records_{std::in_place};
    PlainXml plain_;
    PlainXmlRuns runs_;
    PlainXmlAhead ahead_;
    XmlRecord record_;                      // given last, or to be given
    bool isPlain_ = false;                  // record_ was read without the parser
    bool isToGive_ = false;                 // record_, which has been read
    std::uint64_t begin_ = 0;               // of the document
    std::optional<std::uint64_t> lineFed_;  // where the parser is, if it is to pass over records
    TextPlace place_;                       // of the input
    std::uint64_t count_ = 0;
    std::uint64_t fed_ = 0;  // bytes of the file that the parser has
    std::size_t taken_ = 0;  // bytes of the item given last
    bool inDamage_ = false;  // more of the same damage is to come
    bool fedAll_ = false;
};

// One document that holds a collection, laid out with an element a line.
class MarcXmlWriter : public MarkupWriter {
public:
    explicit MarcXmlWriter(Output& output, const WriterOptions& options = {});

    void Finish() override;

protected:
    void BeginRecord(std::string_view leader) override;
    void AddControlField(const zorby::CommFormatField& field) override;
    void AddDataField(std::string_view tag, char first, char second,
                      std::string_view subfields) override;
    std::string_view EndRecord() override;

private:
    void BeginDataField(std::string_view tag, char first, char second);
    void BeginSubfield(std::string_view& subfield);

    TextBuilder text_;
};

}  // namespace quillory
