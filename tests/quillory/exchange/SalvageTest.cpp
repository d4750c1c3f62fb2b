#include <quillory/exchange/Form.h>
#include <quillory/exchange/MarcWriter.h>
#include <quillory/exchange/Output.h>
#include <quillory/faults/FaultCode.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <random>
#include <string>
#include <tests/quillory/Records.h>
#include <tests/quillory/exchange/TemporaryFile.h>
#include <vector>

namespace quillory {
namespace {

// What a reader made of the one record of a file.
struct Reading {
    ItemKind kind = kItemStray;
    bool isPartial = false;
    std::string fields;
    std::vector<FaultCode> codes;  // the fault, then what was mended
};

Reading ReadOne(const std::string& bytes, bool lenient, const char* form = "marc") {
    const TemporaryFile file(bytes);
    Input input(file.Path());
    const auto reader = FormNamed(form)->makeReader(input, lenient);
    Item item;
    Reading reading;
    if (!reader->Next(item)) return reading;
    reading = {item.kind, item.isPartial, FieldsOf(item.record), {}};
    if (item.fault) reading.codes.push_back(item.fault->code);
    for (const ItemFault& mend : item.mends) reading.codes.push_back(mend.code);
    EXPECT_FALSE(reader->Next(item)) << "one item takes up the file";
    return reading;
}

const Lines kAround{"001id", "500  \037aLast"};

// A record whose field 245 holds what is given.
std::string WithTitle(const std::string& content) {
    return MarcOf({kAround[0], "245" + content, kAround[1]});
}

std::string Wrapped(std::string bytes, std::size_t width, const std::string& lineEnd,
                    bool atBlanks) {
    for (std::size_t at = width; at < bytes.size() - 1; at += width) {
        if (atBlanks) at = bytes.rfind(' ', at);
        bytes.replace(at, atBlanks ? 1 : 0, lineEnd);
    }
    return bytes;
}

// One field is damaged: the others come as they are.
TEST(Salvage, AFieldIsMendedOrLeftOutByItself) {
    using enum FaultCode;
    struct Case {
        std::string content;
        std::string read;  // empty if the field is left out
        FaultCode fault, mend;
    };
    const Case kCases[] = {
        {"10 \037aTitle", "24510$aTitle", kNoIndicatorsBeforeDelimiter, kIndicatorBytes},
        {"1\037aTitle", "2451 $aTitle", kNoIndicatorsBeforeDelimiter, kIndicatorsAdded},
        {"\037aTitle", "245  $aTitle", kNoIndicatorsBeforeDelimiter, kIndicatorsAdded},
        {"1\u00A0\037aTitle", "2451 $aTitle", kNoIndicatorsBeforeDelimiter, kIndicatorForBlank},
        {"10\037aTitle\037\037bRest", "24510$aTitle$bRest", kNoSubfieldCode, kDelimiterLeftOut},
        {"  Title alone", "245  $aTitle alone", kNoIndicatorsBeforeDelimiter, kNoDelimiter},
        {"10Title alone", "", kNoIndicatorsBeforeDelimiter, kFieldNotRead},
        {"10Title\037cName", "", kNoIndicatorsBeforeDelimiter, kFieldNotRead},
        {"10Title that is long /\037cName", "", kNoIndicatorsBeforeDelimiter, kFieldNotRead},
        {"", "", kNoIndicatorsBeforeDelimiter, kFieldNotRead},
        {"10\037aTi\036tle", "24510$aTitle", kFieldEndMisplaced, kFieldEndLeftOut},
    };
    for (const Case& c : kCases) {
        SCOPED_TRACE(testing::PrintToString(c.content));
        const std::string bytes = WithTitle(c.content);
        const Reading lenient = ReadOne(bytes, true);
        EXPECT_EQ(lenient.kind, kItemRecord);
        EXPECT_TRUE(lenient.isPartial);
        const std::string title = c.read.empty() ? "" : c.read + "\n";
        EXPECT_EQ(lenient.fields, "001id\n" + title + "500  $aLast");
        EXPECT_EQ(lenient.codes, (std::vector{c.fault, c.mend}));
        const Reading strict = ReadOne(bytes, false);
        EXPECT_EQ(strict.kind, kItemDamaged);
        EXPECT_TRUE(strict.fields.starts_with("001id\n")) << "a person can look at it";
    }
}

TEST(Salvage, LineEndsThatMailPutsInAreTakenOut) {
    const Lines lines{"001id", "24510\037aA title of many words, so that its lines are wrapped",
                      "500  \037aAnd a note of many words for the same reason as the title"};
    const std::string fields = FieldsOf(TestRecord(lines).record);
    for (const std::string lineEnd : {"\n", "\r\n"}) {
        for (const bool atBlanks : {false, true}) {
            if (atBlanks && lineEnd.size() == 1) continue;  // no length changes: a sound record
            SCOPED_TRACE(testing::PrintToString(lineEnd) + (atBlanks ? " for blanks" : ""));
            const std::string bytes = Wrapped(MarcOf(lines), 72, lineEnd, atBlanks);
            const Reading reading = ReadOne(bytes, true);
            ASSERT_EQ(reading.kind, kItemRecord);
            EXPECT_EQ(reading.fields, fields);
            EXPECT_EQ(reading.codes.back(),
                      atBlanks ? FaultCode::kLineEndsForBlanks : FaultCode::kLineEndsLeftOut);
        }
    }
}

// The directory and the data don't match as wholes; what agrees with both comes.
TEST(Salvage, FieldsThatDirectoryAndDataAgreeOnCome) {
    const Lines lines{"001id", "010  \037a1", "24510\037aTitle", "500  \037aNote",
                      "650 0\037aTopic"};
    std::string noEnd = MarcOf(lines);
    noEnd[noEnd.rfind('\036', noEnd.rfind("Topic"))] = '.';  // of field 500
    const Reading reading = ReadOne(noEnd, true);
    EXPECT_EQ(reading.kind, kItemRecord);
    EXPECT_EQ(reading.fields, "001id\n010  $a1\n24510$aTitle");
    EXPECT_EQ(std::count(reading.codes.begin(), reading.codes.end(), FaultCode::kFieldNotRead), 2);
    EXPECT_EQ(std::count(reading.codes.begin(), reading.codes.end(), FaultCode::kDataNotRead), 1);
    // A field that breaks off with the file is not certain, even if it is the last.
    const std::string whole = MarcOf(lines);
    const Reading cut = ReadOne(whole.substr(0, whole.size() - 5), true);
    EXPECT_EQ(cut.fields, "001id\n010  $a1\n24510$aTitle\n500  $aNote");
    EXPECT_TRUE(cut.isPartial);
    // Where more is in doubt than certain, there is no record, but something to look at.
    const Reading hopeless = ReadOne("00100nam a2200049 a 4500words\036and words\036\035", true);
    EXPECT_EQ(hopeless.kind, kItemDamaged);
    EXPECT_NE(hopeless.fields.find("???and words"), std::string::npos) << hopeless.fields;
}

std::string TooLong(std::size_t notes, Lines& lines) {
    lines = {"001id"};
    for (std::size_t i = 0; i < notes; ++i) {
        lines.push_back("500  \037a" + std::to_string(i) + std::string(4990, 'x'));
    }
    // Lengths and starts as a program writes them that does not count digits.
    std::string directory;
    std::string data;
    for (const std::string& line : lines) {
        char entry[32];
        std::snprintf(entry, sizeof entry, "%s%04zu%05zu", line.substr(0, 3).c_str(),
                      line.size() - 2, data.size());
        directory += entry;
        data += line.substr(3) + "\036";
    }
    return "99999nam a22" + std::to_string(10000 + directory.size() % 10000) + " a 4500" +
           directory + "\036" + data + "\035";
}

// Over 99,999 bytes with fields that are sound: the record is read without being asked, and what is
// cut in writing it fits the format.
TEST(Salvage, ATooLongRecordIsReadAndCanBeCut) {
    for (const std::size_t notes : {21U, 45U}) {
        SCOPED_TRACE(notes);
        Lines lines;
        const std::string bytes = TooLong(notes, lines);
        const std::string fields = FieldsOf(TestRecord(lines).record);
        const Reading reading = ReadOne(bytes, false);
        ASSERT_EQ(reading.kind, kItemRecord);
        EXPECT_FALSE(reading.isPartial);
        EXPECT_EQ(reading.fields, fields);

        const TemporaryFile out;
        Output output(out.Path());
        const auto writer = FormNamed("marc")->makeWriter(output, kOversizeCut);
        Losses losses;
        const TestRecord record(lines);
        const WriteResult result = writer->Write(record.record, losses);
        output.Finish();
        EXPECT_TRUE(result.written);
        const Reading cut = ReadOne(out.Read(), false);
        EXPECT_EQ(cut.kind, kItemRecord);
        EXPECT_EQ(cut.codes, std::vector<FaultCode>());
        EXPECT_TRUE(fields.starts_with(cut.fields));
        EXPECT_EQ(result.faults.size() + Divided(cut.fields).size(), lines.size());
    }
}

TEST(Salvage, AFieldIsCutWhereItCanBe) {
    const std::string words(9990, 'x');
    const std::pair<std::string, std::size_t> kCases[] = {
        {"  \037a" + words + "\037bmore words", 4 + words.size()},
        {"  \037a" + words + " more words", 4 + words.size()},
        {"  \037a" + words + "words", 9998},
        {"  \037a" + words + "xxx\u00E9\u00E9", 9997},
        {"  \037a" + words + "xxxx", 9998},
    };
    for (const auto& [content, size] : kCases) {
        MarcAssembler assembler(kOversizeCut);
        const TestRecord record({"500" + content});
        const WriteResult result = assembler.Assemble(record.record);
        const Reading reading = ReadOne(std::string(assembler.Bytes()), false);
        EXPECT_EQ(reading.kind, kItemRecord) << content.substr(9980);
        EXPECT_EQ(reading.fields.size(), size + 3) << content.substr(9980);
        EXPECT_EQ(result.faults.size(), content.size() > size ? 1U : 0U) << content.substr(9980);
    }
}

// Whatever bytes change in the data, what comes of it has only fields that were there.
TEST(Salvage, NothingIsInvented) {
    std::mt19937 random(14);
    Lines lines{"001id"};
    for (int i = 0; i < 9; ++i) lines.push_back("5" + std::to_string(10 + i) + "  \037aNote");
    const std::string bytes = MarcOf(lines);
    for (int round = 0; round < 2000; ++round) {
        SCOPED_TRACE(round);
        std::string damaged = bytes;
        const std::size_t at = 24 + random() % (bytes.size() - 25);
        damaged.erase(at, random() % 2);
        if (random() % 2 == 0) damaged.insert(at, 1, "x\037\036"[random() % 3]);
        for (const std::string& line : Divided(ReadOne(damaged, true).fields)) {
            if (line.starts_with("???")) continue;
            EXPECT_TRUE(line.starts_with("001") || line.find('$') == 5 || line.size() < 7) << line;
        }
    }
}

TEST(Salvage, LinesThatCantBeReadAreLeftOut) {
    const std::pair<const char*, std::string> kFiles[] = {
        {"mrk", "=LDR  x\n=001  id\n=245  10Title\nwords\n=500  \\\\$aLast\n\n"},
        {"microlif", "LDRx^\r\n001id^\r\n24510Title^\r\n?\r\n500  _aLast^`\r\n"},
    };
    for (const auto& [form, bytes] : kFiles) {
        SCOPED_TRACE(form);
        const Reading lenient = ReadOne(bytes, true, form);
        EXPECT_EQ(lenient.kind, kItemRecord);
        EXPECT_TRUE(lenient.isPartial);
        EXPECT_EQ(lenient.fields, "001id\n500  $aLast");
        EXPECT_EQ(lenient.codes.size(), 2U);
        const Reading strict = ReadOne(bytes, false, form);
        EXPECT_EQ(strict.kind, kItemDamaged);
        EXPECT_EQ(strict.fields, lenient.fields);
    }
}

// Each field but the first and the last has a fault: an indicator, a tag, what subfields are made
// of, what stands between them, and what a data field is made of.
TEST(Salvage, FieldsOfMarkupThatCantBeReadAreLeftOut) {
    using enum FaultCode;
    const auto xml = [](const std::string& tag, const std::string& ind1, const std::string& parts) {
        return "<datafield tag='" + tag + "' ind1='" + ind1 + "' ind2=' '>" + parts +
               "</datafield>";
    };
    const std::string leader(24, ' ');
    const std::string note = "<subfield code='a'>Last</subfield>";
    const std::pair<const char*, std::string> kFiles[] = {
        {"marcxml",
         "<record><leader>" + leader + "</leader><controlfield tag='001'>id</controlfield>" +
             xml("245", "10", note) + xml("24", " ", note) +
             xml("245", " ", "<subfield>x</subfield>" + note) + xml("245", " ", "words" + note) +
             xml("245", " ", "<subfield code='a'>x<b>y<c>z</c></b>w</subfield>") +
             "<controlfield tag='245'>x</controlfield>" + xml("500", " ", note) + "</record>"},
        {"jsonl",
         "{\"leader\":\"" + leader +
             R"(","fields":[{"001":"id"},{"245":{"ind1":"10","subfields":[{"a":"x"}]}},)"
             R"({"24":{"ind1":"1","subfields":[{"a":"x"}]}},{"245":{"subfields":[{"a":5}]}},)"
             R"({"245":{"subfields":[{"a":["x",{"b":"y"}]},{"b":{"c":"z"}}]}},)"
             R"({"245":{"subfields":"words"}},{"245":"x"},)"
             R"({"500":{"subfields":[{"a":"Last"}]}}]})"},
    };
    for (const auto& [form, bytes] : kFiles) {
        SCOPED_TRACE(form);
        const Reading lenient = ReadOne(bytes, true, form);
        EXPECT_EQ(lenient.kind, kItemRecord);
        EXPECT_TRUE(lenient.isPartial);
        EXPECT_EQ(lenient.fields, "001id\n500  $aLast");
        EXPECT_EQ(lenient.codes.front(), kIndicatorNotAscii);
        EXPECT_EQ(std::ranges::count(lenient.codes, kFieldNotRead), 6);
        const Reading strict = ReadOne(bytes, false, form);
        EXPECT_EQ(strict.kind, kItemDamaged);
        EXPECT_EQ(strict.codes.front(), kIndicatorNotAscii);
        EXPECT_EQ(strict.fields, lenient.fields) << "for a person to look at";
    }
}

}  // namespace
}  // namespace quillory
