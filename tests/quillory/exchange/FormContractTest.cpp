// What every form promises, whichever it is. What only one of them does is tested with it.

#include <quillory/exchange/Form.h>
#include <quillory/exchange/Output.h>
#include <quillory/exchange/RecordRuns.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <tests/quillory/Records.h>
#include <tests/quillory/exchange/TemporaryFile.h>
#include <vector>

namespace quillory {

static void PrintTo(const Form& form, std::ostream* out) {
    *out << form.name;
}

namespace {

// An item that outlives its reader.
struct Found {
    ItemKind kind;
    std::uint64_t number, offset;
    std::string bytes;
    bool continues;
    std::string reason;
    Lines lines;

    explicit Found(const Item& item)
        : kind(item.kind),
          number(item.number),
          offset(item.offset),
          bytes(item.bytes),
          continues(item.continues),
          reason(item.fault ? FaultText(*item.fault) : ""),
          lines(item.kind == kItemRecord ? LinesOf(item.record) : Lines()) {}

    std::uint64_t End() const { return offset + bytes.size(); }
    bool operator==(const Found&) const = default;
};

std::vector<Found> ReadAll(const Form& form, std::string_view bytes, bool lenient = false) {
    const TemporaryFile file(bytes);
    Input input(file.Path());
    const auto reader = form.makeReader(input, lenient);
    std::vector<Found> all;
    Item item;
    while (reader->Next(item)) all.emplace_back(item);
    EXPECT_FALSE(reader->Next(item)) << "nothing follows the end";
    EXPECT_EQ(input.Offset() + input.Peek(1).size(), bytes.size()) << "a file is read to its end";
    return all;
}

// The same, with records passed over by the reader, of about `most` bytes at a time, and read by
// another one.
std::vector<Found> ReadAllInRuns(const Form& form, std::string_view bytes, bool lenient,
                                 std::size_t most) {
    const TemporaryFile file(bytes);
    Input input(file.Path());
    const auto reader = form.makeReader(input, lenient);
    auto* const runs = dynamic_cast<RecordRuns*>(reader.get());
    std::vector<Found> all;
    for (Item item;;) {
        const RecordRun run = runs == nullptr ? RecordRun() : runs->PassOver(most);
        Input inRun(Input::kFromMemory, run.bytes, "run");
        const auto other = runs == nullptr ? nullptr : runs->ReaderOf(run, inRun);
        const std::size_t before = all.size();
        while (other && other->Next(item)) all.emplace_back(item);
        const auto isNew = [](const Found& found) {
            return found.kind == kItemRecord || found.kind == kItemDamaged;
        };
        EXPECT_EQ(std::ranges::count_if(all.begin() + static_cast<std::ptrdiff_t>(before),
                                        all.end(), isNew),
                  run.records);
        if (run.records > 0) continue;
        if (!reader->Next(item)) return all;
        all.emplace_back(item);
    }
}

std::vector<Lines> RecordsIn(const std::vector<Found>& all) {
    std::vector<Lines> records;
    for (const Found& found : all) {
        if (found.kind == kItemRecord) records.push_back(found.lines);
    }
    return records;
}

// Damaged ones as well.
std::size_t CountRecords(const std::vector<Found>& all) {
    return static_cast<std::size_t>(std::ranges::count_if(all, [](const Found& found) {
        return !found.continues && (found.kind == kItemRecord || found.kind == kItemDamaged);
    }));
}

bool NamesDamage(const std::vector<Found>& all) {
    return std::ranges::any_of(all, [](const Found& found) {
        return found.kind == kItemDamaged || found.kind == kItemStray;
    });
}

struct Written {
    std::string bytes;
    std::vector<Lines> records;  // those that the form carries in full
    bool allWhole = true;
    std::size_t written = 0;  // records, in full or in part
};

Written Write(const Form& form, const std::vector<Lines>& records) {
    Written written;
    Output output(Output::kToMemory, written.bytes);
    const auto writer = form.makeWriter(output, kOversizeRefuse);
    for (const Lines& lines : records) {
        Losses losses;
        const TestRecord test(lines);
        const WriteResult result = writer->Write(test.record, losses);
        const bool whole = result.written && result.faults.empty() && losses.Empty();
        written.allWhole = written.allWhole && (whole || !result.written);
        if (whole) written.records.push_back(lines);
        if (result.written) ++written.written;
        EXPECT_EQ(LinesOf(test.record), lines) << "a writer leaves a record as it is";
        EXPECT_TRUE(result.written || !result.faults.empty()) << "a refusal has a reason";
    }
    writer->Finish();
    output.Finish();
    return written;
}

// What a form writes for itself: lengths, counts, the base address, the entry map.
void Blank(Lines& lines) {
    for (const auto& [place, size] : {std::pair{0, 5}, {10, 7}, {20, 4}}) {
        lines[0].replace(static_cast<std::size_t>(place) + 3, static_cast<std::size_t>(size),
                         static_cast<std::size_t>(size), '-');
    }
}

void ExpectSame(std::vector<Lines> read, std::vector<Lines> written) {
    std::ranges::for_each(read, Blank);
    std::ranges::for_each(written, Blank);
    EXPECT_EQ(read, written);
}

const Lines kFirst{kLeaderLine, "001a", "008990101s1999    nyua          001 0 eng d",
                   "24510\037aRoughing it /\037cby Mark Twain."};
const Lines kSecond{"LDR00000cas a2200000 i 4500", "001b", "24500\037aT\u00e9l\u00e9rama",
                    "500  \037aA: b; c, d - 100 %"};
const Lines kThird{kLeaderLine, "001c", "500  \037ax"};
const std::vector<Lines> kSamples{kFirst, kSecond, kThird};

// Such as a reader of some form might give.
Lines RandomRecord(std::mt19937& random) {
    const Lines kSigns{"a",  " ",  "<",      "&",      "\"",         "\\",     "$",      "{",
                       "}",  "^",  "`",      "@",      "]]>",        "=",      "_",      "\t",
                       "\r", "\n", "\u00e9", "\u4e00", "\U0001D11E", "\u0301", "\u0085", "&#x41;"};
    const Lines kStarts{"008", "003  \037x", "CAT", "59012", "24510\037a", "9XX  \037x", "ZZZ 1"};
    const auto sign = [&] { return random() % 2 == 0 ? "b" : kSigns[random() % kSigns.size()]; };
    Lines lines{kLeaderLine};
    for (std::size_t fields = random() % 6; fields > 0; --fields) {
        std::string line = kStarts[random() % kStarts.size()];
        const bool isData = line.size() > 3;
        const bool hasSubfields = line.size() > 5;
        for (std::size_t signs = random() % 8; signs > 0; --signs) {
            if (isData && (!hasSubfields || random() % 2 == 0)) line += "\037" + sign();
            line += sign();
        }
        lines.push_back(line);
    }
    return lines;
}

class FormContract : public testing::TestWithParam<Form> {
protected:
    const Form& form_ = GetParam();
};

void ExpectAccounted(const std::vector<Found>& all, std::string_view bytes) {
    std::string together;
    std::uint64_t records = 0;
    bool continues = false;
    for (const Found& found : all) {
        SCOPED_TRACE("item at byte " + std::to_string(found.offset) + ": " + found.bytes);
        EXPECT_EQ(found.offset, together.size());
        together += found.bytes;
        if (found.kind == kItemRecord || found.kind == kItemDamaged) records += continues ? 0 : 1;
        EXPECT_EQ(found.number, records);
        const bool isSound = found.kind == kItemRecord || found.kind == kItemFrame;
        EXPECT_TRUE(isSound || !found.reason.empty());
        continues = found.continues;
    }
    EXPECT_FALSE(continues);
    EXPECT_EQ(together, bytes) << "every byte is in one item";
}

TEST_P(FormContract, WhatIsWrittenIsReadAgain) {
    const Written written = Write(form_, kSamples);
    EXPECT_EQ(written.records, kSamples);
    const auto all = ReadAll(form_, written.bytes);
    ExpectAccounted(all, written.bytes);
    ExpectSame(RecordsIn(all), kSamples);
    EXPECT_EQ(ReadAll(form_, written.bytes, true), all) << "sound records need no leniency";
    EXPECT_EQ(Write(form_, RecordsIn(all)).bytes, written.bytes) << "and are written the same";
}

TEST_P(FormContract, AFileOfNoRecordsHasNone) {
    const Written written = Write(form_, {});
    const auto all = ReadAll(form_, written.bytes);
    ExpectAccounted(all, written.bytes);
    EXPECT_FALSE(NamesDamage(all));
    EXPECT_EQ(RecordsIn(all).size(), 0U);
    ExpectAccounted(ReadAll(form_, ""), "");
}

TEST_P(FormContract, AFileIsKnownByItsContentAndItsName) {
    const TemporaryFile file(Write(form_, kSamples).bytes);
    Input input(file.Path());
    EXPECT_EQ(FormOfContent(input), FormNamed(form_.name));
    ASSERT_FALSE(form_.endings.empty());
    std::string_view rest = form_.endings;
    while (!rest.empty()) {
        const std::string ending(rest.substr(0, rest.find(' ')));
        rest.remove_prefix(std::min(ending.size() + 1, rest.size()));
        EXPECT_EQ(FormOfFileName("name" + ending), FormNamed(form_.name)) << ending;
    }
}

// Each record is written in full, or the writer says what is missing.
TEST_P(FormContract, RandomRecordsComeBackOrAreNamed) {
    std::mt19937 random(8);
    int carried = 0;
    for (int round = 0; round < 250; ++round) {
        const Lines record = RandomRecord(random);
        SCOPED_TRACE(testing::PrintToString(record));
        const Written written = Write(form_, {kSecond, record, kThird});
        const auto all = ReadAll(form_, written.bytes);
        ExpectAccounted(all, written.bytes);
        ASSERT_GE(written.records.size(), 2U);
        if (!written.allWhole) continue;
        EXPECT_FALSE(NamesDamage(all));
        ExpectSame(RecordsIn(all), written.records);
        if (written.records.size() == 3) ++carried;
    }
    EXPECT_GT(carried, 15);
}

// All numbers, every sign in each place, and what forms write for themselves.
std::vector<std::string> AllTags() {
    std::vector<std::string> tags{"00A", "ldr",    "LDr", "HDR", "CAT",   "RAZ", "2X5",
                                  "x2y", "===",    "=LD", "{5}", "$$$",   "^^^", "``^",
                                  "___", "\\\\\\", "###", "<&>", "\"'\"", "(1)", "~!~"};
    for (int number = 0; number < 1000; ++number) {
        tags.push_back(std::to_string(1000 + number).substr(1));
    }
    for (int byte = '!'; byte <= '~'; ++byte) {
        for (std::size_t at = 0; at < 3; ++at) {
            tags.emplace_back("555")[at] = static_cast<char>(byte);
        }
    }
    return tags;
}

// A leader with signs that forms have for themselves, a field under every tag, and with every byte
// as an indicator, a subfield code or text: it comes back, or the writer says that it does not.
TEST_P(FormContract, EveryTagAndByteComesBackOrIsNamed) {
    std::vector<Lines> records;
    for (const std::string& tag : AllTags()) {
        if (!zorby::CommFormatField{tag, {}}.IsDataField()) {
            records.push_back({kLeaderLine, "001t", tag + "x", "24510\037aAfter"});
        }
        records.push_back({kLeaderLine, "001t", tag + "12\037ax", "24510\037aAfter"});
    }
    for (int byte = 0; byte < 0x100; ++byte) {
        if (byte >= 0x1D && byte <= 0x1F) continue;
        const char c = static_cast<char>(byte);
        records.push_back(
            {kLeaderLine, "001i", std::string("245") + c + "1\037ax", "500  \037aLast"});
        records.push_back(
            {kLeaderLine, "001i", std::string("2451") + c + "\037ax", "500  \037aLast"});
        records.push_back({kLeaderLine, std::string("001") + c, std::string("003x") + c});
        records.push_back({kLeaderLine, "001s", std::string("24510\037") + c + "x", "001x"});
        records.push_back({kLeaderLine, "001s", std::string("24510\037a") + c + c, "001x"});
        records.push_back({kLeaderLine, "001s", std::string("24510\037ax") + c, "001x"});
    }
    using namespace std::string_view_literals;
    for (const char c : "\0\t\n\r\033\035\036\037\"#$&'<=>\\^_`{|}~\177\200\377"sv) {
        for (std::size_t at = zorby::kTagSize; at < zorby::kTagSize + zorby::kLeaderSize; ++at) {
            if (at == zorby::kTagSize + zorby::kLeaderCharacterCode) continue;  // forms have theirs
            records.push_back({kLeaderLine, "001l", "24510\037aTitle"});
            records.back()[0][at] = c;
        }
    }
    std::size_t carried = 0;
    for (const Lines& record : records) {
        SCOPED_TRACE(testing::PrintToString(record));
        const Written written = Write(form_, {kSecond, record, kThird});
        const auto all = ReadAll(form_, written.bytes);
        ExpectAccounted(all, written.bytes);
        EXPECT_EQ(CountRecords(all), written.written) << "no record is split or joined";
        if (!written.allWhole) continue;
        EXPECT_FALSE(NamesDamage(all));
        ExpectSame(RecordsIn(all), written.records);
        if (written.records.size() == 3) ++carried;
    }
    EXPECT_GT(carried * 3, records.size()) << "most are carried";
}

// The tag of the leader's own line, as a field's.
TEST_P(FormContract, AFieldOfTheLeadersTagSplitsNoRecord) {
    TestRecord test(kSecond);
    test.record.fields[1].tag = "LDR";
    const TemporaryFile file;
    Output output(file.Path());
    const auto writer = form_.makeWriter(output, kOversizeRefuse);
    Losses losses;
    const WriteResult result = writer->Write(test.record, losses);
    writer->Finish();
    output.Finish();
    const auto all = ReadAll(form_, file.Read());
    EXPECT_FALSE(NamesDamage(all));
    ASSERT_EQ(RecordsIn(all).size(), result.written ? 1U : 0U);
    const bool isWhole = result.written && RecordsIn(all)[0].size() == kSecond.size();
    EXPECT_EQ(isWhole, result.faults.empty());
}

// A cut file gives the records before the cut. Of the next one it may give a beginning, where the
// form has no end of a record; otherwise the damage is named.
TEST_P(FormContract, ACutFileGivesWhatIsBeforeTheCut) {
    const std::string bytes = Write(form_, kSamples).bytes;
    const auto whole = ReadAll(form_, bytes);
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        SCOPED_TRACE(bytes.substr(0, size));
        const auto all = ReadAll(form_, bytes.substr(0, size));
        ExpectAccounted(all, bytes.substr(0, size));
        std::vector<Lines> before;
        std::uint64_t end = 0;
        for (const Found& found : whole) {
            if (found.End() > size) break;
            end = found.End();
            if (found.kind == kItemRecord) before.push_back(found.lines);
        }
        std::vector<Lines> read = RecordsIn(all);
        ASSERT_GE(read.size(), before.size());
        ASSERT_LE(read.size(), before.size() + 1);
        if (read.size() > before.size()) {
            const Lines full = RecordsIn(whole)[before.size()];
            const Lines& cut = read.back();
            ASSERT_LE(cut.size(), full.size());
            for (std::size_t i = 0; i < cut.size(); ++i) {
                EXPECT_TRUE(full[i].starts_with(cut[i].substr(0, cut[i].find_last_not_of(' ') + 1)))
                    << cut[i];
            }
            read.pop_back();
        } else if (end < size && bytes.find_first_not_of('\n', size) != bytes.npos) {
            EXPECT_TRUE(NamesDamage(all));
        }
        EXPECT_EQ(read, before);
    }
}

// Whatever the bytes, they are accounted for, and no record has what no record can have.
TEST_P(FormContract, AnyBytesAreAccountedFor) {
    const std::string bytes = Write(form_, kSamples).bytes;
    std::mt19937 random(9);
    for (int round = 0; round < 400; ++round) {
        std::string damaged = bytes;
        for (std::size_t i = random() % 6; i > 0; --i) {
            const std::size_t at = random() % damaged.size();
            const char sign = random() % 4 == 0 ? static_cast<char>(random())
                                                : damaged[random() % damaged.size()];
            if (random() % 2 == 0) damaged[at] = sign;
            if (random() % 4 == 0) damaged.insert(at, random() % 9, sign);
            if (random() % 4 == 0) damaged.erase(at, random() % 30);
        }
        SCOPED_TRACE(damaged);
        for (const bool lenient : {false, true}) {
            SCOPED_TRACE(lenient ? "lenient" : "strict");
            const auto all = ReadAll(form_, damaged, lenient);
            ExpectAccounted(all, damaged);
            EXPECT_EQ(ReadAllInRuns(form_, damaged, lenient, random() % 500), all);
            // A record that a form does not carry in full is named (see Write).
            const Written written = Write(form_, RecordsIn(all));
            if (!written.allWhole) continue;
            ExpectSame(RecordsIn(ReadAll(form_, written.bytes)), written.records);
        }
    }
}

// Two readers of one form, in turn: neither disturbs what the other has given.
TEST_P(FormContract, ViewsHoldUntilTheReaderIsAskedAgain) {
    const TemporaryFile file(Write(form_, kSamples).bytes);
    const TemporaryFile other(Write(form_, {kThird, kFirst, kSecond}).bytes);
    Input input(file.Path()), otherInput(other.Path());
    const auto reader = form_.makeReader(input, false);
    const auto otherReader = form_.makeReader(otherInput, true);
    Item item, otherItem;
    while (reader->Next(item)) {
        const Found before(item);
        otherReader->Next(otherItem);
        EXPECT_EQ(Found(item), before) << "at byte " << item.offset;
    }
}

// Whatever one form gives, each other one takes while the views hold.
TEST_P(FormContract, EveryFormTakesItsRecords) {
    const TemporaryFile file(Write(form_, kSamples).bytes);
    for (const Form& to : Forms()) {
        SCOPED_TRACE(to.name);
        const TemporaryFile target;
        Input input(file.Path());
        Output output(target.Path());
        const auto reader = form_.makeReader(input, false);
        const auto writer = to.makeWriter(output, kOversizeRefuse);
        Losses losses;
        for (Item item; reader->Next(item);) {
            if (item.kind != kItemRecord) continue;
            EXPECT_TRUE(writer->Write(item.record, losses).faults.empty())
                << item.record.ControlNumber();
        }
        writer->Finish();
        output.Finish();
        EXPECT_TRUE(losses.Empty()) << losses.Text("");
        ExpectSame(RecordsIn(ReadAll(to, target.Read())), kSamples);
    }
}

INSTANTIATE_TEST_SUITE_P(All, FormContract, testing::ValuesIn(Forms().begin(), Forms().end()),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace quillory
