#include <quillory/faults/FaultCode.h>
#include <quillory/jobs/ConvertFiles.h>

#include <gtest/gtest.h>
#include <zlib.h>

#include <algorithm>
#include <string>
#include <tests/quillory/exchange/TemporaryFile.h>
#include <tests/quillory/jobs/MemoryPort.h>
#include <utility>
#include <vector>

namespace quillory {
namespace {

using Lines = std::vector<std::string>;
using Codes = std::vector<FaultCode>;

std::string MarcOf(const std::string& id, const std::string& content) {
    zorby::CommFormatWriter writer;
    writer.SetLeader("00000nam  2200000 a 4500");
    writer.AddField("001", id);
    writer.AddField("245", content);
    std::string bytes;
    writer.Finish(bytes);
    return bytes;
}

std::string Sound(const std::string& id) {
    return MarcOf(id, "10\037aTitle");
}

std::string WithWrongLength(std::string record) {
    record[4] = record[4] == '0' ? '1' : '0';
    return record;
}

// What became of a conversion. The name of the file that was read is FILE.
struct Outcome {
    Status status = kStatusWell;
    std::string output, rejects;
    Lines lines;
    Codes codes;
};

struct Run {
    Charset from = kCharsetAuto;
    Charset charset = kCharsetAuto;
    bool lenient = false;
    bool eachLoss = false;
    ReporterOptions messages = {};
};

std::string WithName(std::string text, const std::string& path, const std::string& name) {
    for (auto at = text.find(path); at != text.npos; at = text.find(path)) {
        text.replace(at, path.size(), name);
    }
    return text;
}

Outcome Convert(const std::string& bytes, const Run& run = {}) {
    const TemporaryFile in(bytes);
    const TemporaryFile out;
    const TemporaryFile rejects;
    ConvertOptions options;
    options.input.files = {in.Path()};
    options.input.charset = run.from;
    options.input.lenient = run.lenient;
    options.output.output = out.Path();
    options.output.rejects = rejects.Path();
    options.output.charset = run.charset;
    options.output.eachLoss = run.eachLoss;
    MemoryPort port;
    Reporter reporter(port, run.messages);
    Outcome outcome;
    outcome.status = ConvertFiles(options, reporter);
    outcome.output = out.Read();
    outcome.rejects = rejects.Read();
    for (const std::string& line : port.lines) {
        const std::string short1 = WithName(line, in.Path(), "FILE");
        outcome.lines.push_back(WithName(short1, rejects.Path(), "REJECTS"));
    }
    outcome.codes = port.codes;
    return outcome;
}

TEST(ConvertFiles, SoundRecordsGoWithoutAWord) {
    const std::string bytes = Sound("a") + Sound("b");
    const Outcome outcome = Convert(bytes);
    EXPECT_EQ(outcome.status, kStatusWell);
    EXPECT_EQ(outcome.output, bytes);
    EXPECT_EQ(outcome.rejects, "");
    EXPECT_EQ(outcome.lines, Lines{});
}

TEST(ConvertFiles, WhatIsNotWrittenIsNamedAndKeptByteForByte) {
    const std::string damaged = WithWrongLength(Sound("b"));
    const std::string bytes = Sound("a") + "words" + damaged + Sound("c");
    const Outcome outcome = Convert(bytes);
    EXPECT_EQ(outcome.status, kStatusFindings);
    EXPECT_EQ(outcome.output, Sound("a") + Sound("c"));
    EXPECT_EQ(outcome.rejects, "words" + damaged);
    const std::string at = std::to_string(Sound("a").size());
    EXPECT_EQ(outcome.lines, (Lines{"FILE: record 2 at byte " + at +
                                        ": leader/00-04: the record length is not a "
                                        "number: \"words\"",
                                    "2 records written, 1 not (kept in REJECTS)"}));
}

// Filler between records is no damage.
TEST(ConvertFiles, FillerIsToldOnRequest) {
    const std::string bytes = "\xEF\xBB\xBF" + Sound("a") + "\r\n" + Sound("b") + "\x1A";
    const Outcome quiet = Convert(bytes);
    EXPECT_EQ(quiet.status, kStatusWell);
    EXPECT_EQ(quiet.output, Sound("a") + Sound("b"));
    EXPECT_EQ(quiet.rejects, "");
    EXPECT_EQ(quiet.lines, Lines{});
    const Outcome told = Convert(bytes, {.messages = {.all = true}});
    EXPECT_EQ(told.status, kStatusWell);
    EXPECT_EQ(told.codes, Codes(3, FaultCode::kFiller));
}

TEST(ConvertFiles, ARescuedRecordIsWrittenAndNamed) {
    const std::string twoFields = MarcOf("b", "10\037aTitle\036  \037aMore");
    const std::string mended = MarcOf("c", "10\037aTi\036tle");
    const Outcome outcome =
        Convert(WithWrongLength(Sound("a")) + twoFields + mended, {.lenient = true});
    EXPECT_EQ(outcome.output, Sound("a") + Sound("c"));
    EXPECT_EQ(outcome.rejects, twoFields + mended) << "what is read in part is kept whole";
    ASSERT_EQ(outcome.codes, (Codes{FaultCode::kLengthWrong, FaultCode::kFieldEndMisplaced,
                                    FaultCode::kFieldEndMisplaced, FaultCode::kFieldEndLeftOut,
                                    FaultCode::kNone}));
    EXPECT_TRUE(outcome.lines[0].ends_with("; read from its terminators")) << outcome.lines[0];
    EXPECT_NE(outcome.lines[1].find("; can't be read with certainty: the directory and the data "
                                    "differ in their number of fields"),
              std::string::npos)
        << outcome.lines[1];
    EXPECT_TRUE(outcome.lines[2].ends_with("; the rest is read")) << outcome.lines[2];
    EXPECT_EQ(outcome.lines[4],
              "2 records written, 1 not (kept in REJECTS), 1 read in part (kept "
              "whole in REJECTS)");
}

TEST(ConvertFiles, BytesThatAreNoUtf8AreRefusedOrReplaced) {
    const std::string bytes = MarcOf("a", "10\037aB\xC3\xA9 \xFF");
    const Outcome refused = Convert(bytes, {.from = kCharsetUtf8, .charset = kCharsetUtf8});
    EXPECT_EQ(refused.status, kStatusFindings);
    EXPECT_EQ(refused.rejects, bytes);
    EXPECT_EQ(refused.codes, (Codes{FaultCode::kInvalidUtf8, FaultCode::kNone}));
    const Outcome replaced =
        Convert(bytes, {.from = kCharsetUtf8, .charset = kCharsetUtf8, .lenient = true});
    EXPECT_EQ(replaced.status, kStatusFindings);
    EXPECT_NE(replaced.output.find("B\u00E9 \uFFFD"), std::string::npos);
    EXPECT_EQ(replaced.lines, (Lines{"characters not carried as they were:\n    byte 0xFF is no "
                                     "character, written as U+FFFD: 1\n",
                                     "1 record written"}));
}

// Gzip data that breaks off, or has something after it, gives what can be unpacked.
TEST(ConvertFiles, DamagedGzipGivesWhatUnpacks) {
    std::string bytes;
    for (int i = 0; i < 2000; ++i) bytes += Sound("id" + std::to_string(i * 7919 % 10007));
    const TemporaryFile packed;
    gzFile file = gzopen(packed.Path().c_str(), "wb");
    ASSERT_EQ(gzwrite(file, bytes.data(), static_cast<unsigned>(bytes.size())),
              static_cast<int>(bytes.size()));
    gzclose(file);
    const std::string gzip = packed.Read();
    std::string flipped = gzip;
    flipped[gzip.size() / 2] ^= 0x55;
    const std::pair<std::string, std::string> kFiles[] = {
        {gzip.substr(0, gzip.size() / 2), "cut short"},
        {gzip.substr(0, gzip.size() - 3), "cut short"},
        {gzip.substr(0, 5), "cut short"},
        {gzip + "words", "bytes after the gzip data"},
        {flipped, "the gzip data is damaged"},
    };
    for (const auto& row : kFiles) {
        const std::string& given = row.first;
        const std::string& words = row.second;
        SCOPED_TRACE(words);
        const Outcome outcome = Convert(given);
        EXPECT_EQ(outcome.status, kStatusFindings);
        EXPECT_TRUE(outcome.output.size() > bytes.size() / 10 || given.size() == 5);
        const bool isThere = std::ranges::any_of(outcome.lines, [&](const std::string& line) {
            return line.find(words) != line.npos && line.ends_with("unpacked has been read");
        });
        EXPECT_TRUE(isThere) << testing::PrintToString(outcome.lines);
    }
    EXPECT_EQ(Convert(gzip + gzip).output, bytes + bytes);
}

TEST(ConvertFiles, ANameWithoutAFormAsksForOne) {
    const TemporaryFile in(Sound("a"));
    for (const std::string name : {"x.txt", "dir.mrk/x.out", "x.gz"}) {
        ConvertOptions options;
        options.input.files = {in.Path()};
        options.output.output = name;
        MemoryPort port;
        Reporter reporter(port, {});
        EXPECT_THROW(ConvertFiles(options, reporter), UsageError) << name;
    }
    for (const std::string name : {"x", "dir.d/x", "-", "/dev/fd/3", ".hidden", "..", "x.mrc.gz"}) {
        OutputOptions options;
        options.output = name;
        EXPECT_EQ(&FormOfOutput(options), &Forms().front()) << name;
    }
}

TEST(ConvertFiles, MessagesOfAKindAreCounted) {
    std::string bytes;
    for (std::size_t i = 0; i < 8; ++i) {
        bytes += WithWrongLength(MarcOf("a", std::string(20 + i, ' ')));
    }
    const std::string more = "FILE: 3 more: the record length is ..., but the record has ... bytes";
    const Outcome few = Convert(bytes);
    ASSERT_EQ(few.lines.size(), 7U);
    EXPECT_EQ(few.lines[5], more);
    EXPECT_EQ(few.lines[6], "0 records written, 8 not (kept in REJECTS)");
    EXPECT_EQ(few.rejects, bytes);
    EXPECT_EQ(Convert(bytes, {.messages = {.all = true}}).lines.size(), 9U);
    EXPECT_EQ(Convert(bytes, {.messages = {.quiet = true}}).lines.size(), 6U);
}

TEST(ConvertFiles, ARecordThatAFormCantHoldIsKept) {
    const auto mrkOf = [](const std::string& id, const std::string& title) {
        return "=LDR  00000nam  2200000 a 4500\n=001  " + id + "\n=245  10$a" + title + "\n\n";
    };
    const std::string big = mrkOf("big", std::string(10000, 'x'));
    const Outcome outcome = Convert(mrkOf("a", "Title") + big + mrkOf("b", "Title"));
    EXPECT_EQ(outcome.output, Sound("a") + Sound("b"));
    EXPECT_EQ(outcome.rejects, big);
    ASSERT_EQ(outcome.codes, (Codes{FaultCode::kFieldTooLong, FaultCode::kNone}));
    EXPECT_TRUE(outcome.lines[0].ends_with(
        "(001 big): 245: the field has 10005 bytes, over the 9,999 of the format"))
        << outcome.lines[0];
}

TEST(ConvertFiles, WhatCharactersBecomeIsReported) {
    const std::string title = MarcOf("a", "10\037aB\xC3\xA9 \xE4\xB8\x80 \xF0\x9F\x98\x80");
    const Outcome outcome = Convert(title, {.charset = kCharsetMarc8, .eachLoss = true});
    EXPECT_EQ(outcome.status, kStatusWell);
    EXPECT_EQ(outcome.codes,
              (Codes{FaultCode::kMislabelled, FaultCode::kCharactersNotCarried, FaultCode::kNone}));
    EXPECT_TRUE(
        outcome.lines[0].ends_with(": leader/09: the record says MARC-8, its bytes are UTF-8"))
        << outcome.lines[0];
    EXPECT_TRUE(
        outcome.lines[1].ends_with(": characters not carried:\n    U+1F600 (\U0001F600) is "
                                   "not in the character set, written as &#x1F600;: 1\n"))
        << outcome.lines[1];
    const std::string lost = MarcOf("a", "10\037aB\xFF");
    EXPECT_EQ(Convert(lost, {.from = kCharsetUtf8, .charset = kCharsetMarc8}).status,
              kStatusFindings);
}

TEST(ConvertFiles, AnEmptyFileDoesNotEndTheWork) {
    const TemporaryFile empty;
    const TemporaryFile full("=LDR  00000nam\\\\2200000\\a\\4500\n=001  a\n\n");
    const TemporaryFile out;
    ConvertOptions options;
    options.input.files = {empty.Path(), full.Path()};
    options.output.output = out.Path();
    options.output.form = FormNamed("mrk");
    MemoryPort port;
    Reporter reporter(port, {});
    EXPECT_EQ(ConvertFiles(options, reporter), kStatusFindings);
    EXPECT_EQ(out.Read(), full.Read());
    EXPECT_EQ(port.lines, (Lines{empty.Path() + ": the file is empty", "1 record written"}));
}

// Whatever would overwrite something is refused before anything is written.
TEST(ConvertFiles, NoFileIsOverwrittenByAnother) {
    const TemporaryFile in(Sound("a"));
    const TemporaryFile out("old");
    const std::pair<std::string, std::string> kOutputs[] = {
        {in.Path(), ""}, {out.Path(), in.Path()}, {out.Path(), out.Path()}};
    for (const auto& [output, rejects] : kOutputs) {
        ConvertOptions options;
        options.input.files = {in.Path()};
        options.output.output = output;
        options.output.rejects = rejects;
        MemoryPort port;
        Reporter reporter(port, {});
        EXPECT_THROW(ConvertFiles(options, reporter), UsageError) << output << " " << rejects;
    }
    EXPECT_EQ(in.Read(), Sound("a"));
    EXPECT_EQ(out.Read(), "old");
}

// Keeps what it is given, and can't write records of one title.
class PickyWriter : public RecordWriter {
public:
    WriteResult Write(const Record& record, Losses&) override {
        if (record.fields[1].content.ends_with("no")) return NotWritten({FaultCode::kFieldTooLong});
        ids += record.ControlNumber();
        return {};
    }

    std::string ids;
};

struct CarriedItem {
    explicit CarriedItem(std::string record) : bytes(std::move(record)) {
        zorby::CommFormatFields fields;
        EXPECT_FALSE(zorby::ReadCommFormat(bytes, fields));
        item.Begin(kItemRecord, 100, bytes);
        item.number = 1;
        item.record = {fields.leader, fields.fields, bytes};
    }

    std::string bytes;
    Item item;
};

TEST(Carrier, ARecordStaysThatIsNotUtf8OrThatAJobRefuses) {
    const TemporaryFile rejects;
    MemoryPort port;
    Reporter reporter(port, {.quiet = true});
    PickyWriter writer;
    const Preparation prepare = [](const Item& item, Losses&) -> std::string {
        return item.record.ControlNumber() == "c" ? "    245: a finding\n" : "";
    };
    const RecoderOptions recoder{kCharsetUtf8, kCharsetUtf8, {}, true};
    Carrier carrier({recoder, false, rejects.Path(), prepare}, writer, reporter);
    CarriedItem items[] = {CarriedItem(Sound("a")), CarriedItem(MarcOf("b", "10\037aX\xFFY")),
                           CarriedItem(Sound("c")), CarriedItem(MarcOf("d", "10\037ano"))};
    for (CarriedItem& carried : items) carrier.Take(carried.item);
    carrier.Finish();
    EXPECT_EQ(carrier.Result(), kStatusFindings);
    EXPECT_EQ(writer.ids, "a");
    EXPECT_EQ(rejects.Read(), items[1].bytes + items[2].bytes + items[3].bytes);
    const auto at = std::to_string(100 + items[1].bytes.find('\xFF'));
    ASSERT_EQ(port.lines.size(), 3U);
    EXPECT_TRUE(port.lines[0].ends_with(
        " (001 b): 245: byte 0xFF is not UTF-8; the record is not written (byte " + at + ")"))
        << port.lines[0];
    EXPECT_TRUE(port.lines[1].ends_with(" (001 c): not written:\n    245: a finding\n"))
        << port.lines[1];
    EXPECT_EQ(port.codes, (Codes{FaultCode::kInvalidUtf8, FaultCode::kStoppedByPolicy,
                                 FaultCode::kFieldTooLong}));
}

}  // namespace
}  // namespace quillory
