#include <zorby/record/CommFormat.h>
#include <zorby/record/Pmarc.h>

#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

namespace zorby {
namespace {

std::string SoundRecord() {
    CommFormatWriter writer;
    writer.SetLeader("00000nam a2200000 a 4500");
    writer.AddField("001", "id-1");
    writer.AddField("245", "10\037aTitle /\037cName.");
    writer.AddField("245", "  ");
    writer.AddField("CAT", "no indicators");
    std::string bytes;
    writer.Finish(bytes);
    return bytes;
}

TEST(CommFormat, ReadsWhatWasWritten) {
    const std::string bytes = SoundRecord();
    CPmarc record;
    ASSERT_FALSE(ReadCommFormat(bytes, record)) << CommFormatFaultText(CFR_None);
    const std::vector<std::string> fields(record.begin(), record.end());
    EXPECT_EQ(fields, (std::vector<std::string>{"000" + bytes.substr(0, 24), "001id-1",
                                                "24510\037aTitle /\037cName.", "245  ",
                                                "CATno indicators"}));
    std::string again;
    record.ConvertToUSMARCCommFormat(again);
    EXPECT_EQ(again, bytes);
}

// What is wrong in a field is found wherever it stands, though most of it is looked at in blocks.
TEST(CommFormat, FindsSignsInAnyPlaceOfAField) {
    for (const std::size_t size : {4U, 13U, 14U, 15U, 16U, 30U, 4080U, 4095U, 4097U}) {
        CommFormatWriter writer;
        writer.SetLeader("00000nam a2200000 a 4500");
        writer.AddField("245", "10\037a" + std::string(size, 'x'));
        std::string bytes;
        writer.Finish(bytes);
        CommFormatFields fields;
        ASSERT_FALSE(ReadCommFormat(bytes, fields)) << size;
        for (std::size_t at = 41; at + 2 < bytes.size(); at += at < 80 || at > 4050 ? 1 : 97) {
            std::string damaged = bytes;
            damaged[at] = kDelimiter;
            const bool isLast = at + 3 == bytes.size();
            const auto lone = ReadCommFormat(damaged, fields).reason;
            EXPECT_EQ(lone, isLast ? CFR_SubfieldCode : CFR_None) << size << " " << at;
            damaged[at] = kFieldEnd;
            EXPECT_EQ(ReadCommFormat(damaged, fields).reason, CFR_FieldEnd) << size << " " << at;
            if (isLast) continue;
            damaged.replace(at, 2, 2, kDelimiter);
            EXPECT_EQ(ReadCommFormat(damaged, fields).reason, CFR_SubfieldCode)
                << size << " " << at;
        }
    }
}

TEST(CommFormat, KeepsTheOrderOfTheDirectory) {
    std::string bytes = SoundRecord();
    const std::string first = bytes.substr(24, 12);
    bytes.replace(24, 12, bytes, 36, 12).replace(36, 12, first);
    CommFormatFields fields;
    ASSERT_FALSE(ReadCommFormat(bytes, fields));
    EXPECT_EQ(fields.fields[0].tag, "245");
    EXPECT_EQ(fields.fields[1].content, "id-1");
}

using Damage = std::function<void(std::string&)>;

struct DamageCase {
    const char* name;
    Damage damage;
    CommFormatReason reason;
    std::size_t offset;
    CommFormatReason rescueReason;
};

// Offsets in SoundRecord: directory 24-71, its end 72, data from 73, "Title" at 82.
const DamageCase kDamages[] = {
    {"empty", [](std::string& b) { b.clear(); }, CFR_Empty, 0, CFR_Empty},
    {"cut in the leader", [](std::string& b) { b.resize(20); }, CFR_CutShort, 20, CFR_CutShort},
    {"cut in a field", [](std::string& b) { b.resize(90); }, CFR_CutShort, 90, CFR_CutShort},
    {"no record terminator", [](std::string& b) { b.pop_back(); }, CFR_CutShort, 114, CFR_None},
    {"letters for a length", [](std::string& b) { b[2] = 'x'; }, CFR_LengthNotNumber, 0, CFR_None},
    {"wrong length", [](std::string& b) { b[4] = '0'; }, CFR_LengthWrong, 0, CFR_None},
    {"text behind", [](std::string& b) { b += "\n"; }, CFR_TextAfterEnd, 115, CFR_None},
    {"three indicators", [](std::string& b) { b[10] = '3'; }, CFR_CountsNotTwo, 10, CFR_None},
    {"entry map", [](std::string& b) { b[21] = '4'; }, CFR_EntryMap, 20, CFR_None},
    {"base address", [](std::string& b) { b[16] = '4'; }, CFR_BaseAddressWrong, 12, CFR_None},
    {"base address of 0", [](std::string& b) { b.replace(12, 5, "00000"); }, CFR_BaseAddressWrong,
     12, CFR_None},
    {"directory without end", [](std::string& b) { b[72] = '\x1F'; }, CFR_BaseAddressWrong, 12,
     CFR_None},
    {"letters in an entry", [](std::string& b) { b[42] = 'x'; }, CFR_DirectoryEntry, 36, CFR_None},
    {"a sign in a start", [](std::string& b) { b.replace(43, 5, "0001+"); }, CFR_DirectoryEntry, 36,
     CFR_None},
    {"start outside", [](std::string& b) { b[43] = '9'; }, CFR_DirectoryEntry, 36,
     CFR_DirectoryEntry},
    {"length too small", [](std::string& b) { b[42] = '1'; }, CFR_FieldEnd, 89, CFR_None},
    {"no field terminator", [](std::string& b) { b[77] = 'x'; }, CFR_FieldEnd, 78, CFR_FieldCount},
    {"entry twice", [](std::string& b) { b.replace(60, 12, b, 48, 12); }, CFR_DirectoryGap, 24,
     CFR_DirectoryEntry},
    {"no indicator", [](std::string& b) { b[79] = '\x1F'; }, CFR_Indicators, 78, CFR_Indicators},
    {"no code", [](std::string& b) { b[81] = '\x1F'; }, CFR_SubfieldCode, 80, CFR_SubfieldCode},
    {"no code at the end", [](std::string& b) { b[95] = '\x1F'; }, CFR_SubfieldCode, 95, CFR_None},
};

TEST(CommFormat, NamesEachDamage) {
    const std::string sound = SoundRecord();
    for (const DamageCase& c : kDamages) {
        std::string bytes = sound;
        c.damage(bytes);
        CommFormatFields fields;
        ASSERT_FALSE(ReadCommFormat(sound, fields));  // of which nothing may stay
        const CommFormatFault fault = ReadCommFormat(bytes, fields);
        EXPECT_EQ(fault.reason, c.reason) << c.name << ": " << CommFormatFaultText(fault.reason);
        EXPECT_EQ(fault.offset, c.offset) << c.name;
        EXPECT_TRUE(fields.fields.empty()) << c.name;
        CPmarc record;
        EXPECT_EQ(ReadCommFormat(bytes, record).reason, c.reason) << c.name;
        EXPECT_EQ(record.FieldCount(), 0U) << c.name;
    }
}

TEST(CommFormat, FindsFaultsAnywhereInAField) {
    for (std::size_t size = 8; size < 60; ++size) {
        CommFormatWriter writer;
        writer.SetLeader("00000nam a2200000 a 4500");
        writer.AddField("500", "10\037a" + std::string(size - 4, 'x'));
        std::string sound;
        writer.Finish(sound);
        CommFormatFields fields;
        ASSERT_FALSE(ReadCommFormat(sound, fields)) << size;
        const std::size_t begin = sound.size() - 2 - size;
        for (std::size_t at = begin + 4; at < begin + size; ++at) {
            SCOPED_TRACE(std::to_string(size) + ", " + std::to_string(at - begin));
            std::string bytes = sound;
            bytes[at] = kFieldEnd;
            const CommFormatFault end = ReadCommFormat(bytes, fields);
            EXPECT_TRUE(end.reason == CFR_FieldEnd && end.offset == at);
            bytes[at] = kDelimiter;
            const bool isLast = at + 1 == begin + size;
            EXPECT_EQ(ReadCommFormat(bytes, fields).reason, isLast ? CFR_SubfieldCode : CFR_None);
            if (!isLast) bytes[at + 1] = kDelimiter;
            const CommFormatFault code = ReadCommFormat(bytes, fields);
            EXPECT_TRUE(code.reason == CFR_SubfieldCode && code.offset == at);
        }
    }
}

// Both ways of writing give the same bytes up to the longest field and the longest record, and only
// the builder goes on from there.
TEST(CommFormat, WritesAtOnceWhatTheBuilderWrites) {
    const std::string longest = "  \037a" + std::string(kLongestField - 5, 'x');
    const std::string tooLong = longest + "x";
    std::vector<CommFormatField> nine(9, {"500", longest});
    struct {
        std::string_view leader;
        std::vector<CommFormatField> fields;
        bool fits;
    } const kCases[] = {
        {"00000nam a2200000 a 4500", {{"001", "1"}, {"5", ""}, {"", "x"}, {"9999", "y"}}, true},
        {"00000nam a2200000 a 4500 and more", {{"001", "1"}}, true},
        {"00000nam", {{"245", "10\037aShort leader"}}, true},
        {"", {{"245", longest}}, true},
        {"", {{"245", tooLong}}, false},
        {"", {nine[0], nine[1], {"500", tooLong}}, false},
        {"", nine, true},
        {"", {}, false},
    };
    for (const auto& c : kCases) {
        const std::string before(70, '.');  // longer than some of them
        std::string record = before;
        EXPECT_EQ(WriteCommFormat(c.leader, c.fields, record), c.fits) << c.fields.size();
        CommFormatWriter writer;
        writer.SetLeader(c.leader);
        for (const auto& [tag, content] : c.fields) writer.AddField(tag, content);
        std::string built;
        EXPECT_EQ(writer.Finish(built), 0U);
        EXPECT_EQ(record, c.fits ? built : before);
    }
    nine.push_back({"900", ""});
    const std::string last(kLongestRecord - CommFormatSize(nine) + 1, 'y');
    std::string record;
    nine.back().content = last;
    EXPECT_FALSE(WriteCommFormat("", nine, record));
    nine.back().content.remove_suffix(1);
    EXPECT_TRUE(WriteCommFormat("", nine, record));
    EXPECT_EQ(record.size(), kLongestRecord);
}

// More field terminators than a byte can count, all as far from one another.
TEST(CommFormat, ReadsManyFields) {
    CommFormatWriter writer;
    writer.SetLeader("00000nam a2200000 a 4500");
    const std::string content = "  \037aof 16 bytes";
    for (int i = 0; i < 600; ++i) writer.AddField("500", content.substr(0, 15));
    std::string bytes;
    writer.Finish(bytes);
    CommFormatFields fields;
    ASSERT_FALSE(ReadCommFormat(bytes, fields));
    EXPECT_EQ(fields.fields.size(), 600U);
    for (const std::size_t place : {std::size_t{1}, std::size_t{5}, std::size_t{14}}) {
        const std::size_t at = bytes.size() - 1 - std::size_t{16} * 300 + place;
        std::string damaged = bytes;
        damaged[at] = kFieldEnd;
        EXPECT_EQ(ReadCommFormat(damaged, fields).offset, at) << "byte " << place << " of a field";
    }
}

TEST(CommFormat, RescuesWhatIsCertain) {
    for (const DamageCase& c : kDamages) {
        std::string bytes = SoundRecord();
        c.damage(bytes);
        CommFormatRescue rescue;
        const CommFormatFault fault = RescueCommFormat(bytes, rescue);
        EXPECT_EQ(fault.reason, c.rescueReason)
            << c.name << ": " << CommFormatFaultText(fault.reason);
        if (fault) continue;
        ASSERT_EQ(rescue.fields.size(), 4U) << c.name;
        EXPECT_EQ(rescue.fields[0].content, "id-1") << c.name;
        EXPECT_EQ(rescue.fields[3].content, "no indicators") << c.name;
        EXPECT_EQ(rescue.leader.substr(10, 2) + rescue.leader.substr(20), "224500") << c.name;
    }
}

TEST(CommFormat, TooLongIsToldFromWrong) {
    CommFormatWriter writer;
    writer.SetLeader("00000nam a2200000 a 4500");
    for (int i = 0; i < 11; ++i) writer.AddField("500", "  \037a" + std::string(9000, 'x'));
    std::string bytes;
    writer.Finish(bytes);
    bytes.insert(bytes.size() - 2, 2000, 'y');
    CommFormatFields fields;
    EXPECT_EQ(ReadCommFormat(bytes, fields).reason, CFR_TooLong);
    CommFormatRescue rescue;
    EXPECT_EQ(RescueCommFormat(bytes, rescue).reason, CFR_None);
    EXPECT_EQ(rescue.fields.back().content.size(), 9004U + 2000U);
}

// Random damage: no crash, a fault inside the bytes, and a rescue that writes a sound record.
TEST(CommFormat, RandomDamage) {
    std::mt19937 random(42);
    const std::string sound = SoundRecord();
    constexpr char kBytes[] = {'\x1D', '\x1E', '\x1F', '0', '9', ' ', 'a', '\0', '\xFF'};
    for (int round = 0; round < 50000; ++round) {
        std::string bytes = sound;
        for (std::size_t i = 0; i < 1 + random() % 4; ++i) {
            bytes[random() % bytes.size()] = kBytes[random() % sizeof kBytes];
        }
        if (random() % 8 == 0) bytes.resize(random() % bytes.size());
        CommFormatFields fields;
        const CommFormatFault fault = ReadCommFormat(bytes, fields);
        EXPECT_LE(fault.offset, bytes.size()) << round;
        CommFormatRescue rescue;
        if (RescueCommFormat(bytes, rescue)) continue;
        CommFormatWriter writer;
        writer.SetLeader(rescue.leader);
        for (const CommFormatField& field : rescue.fields) {
            writer.AddField(field.tag, field.content);
        }
        std::string again;
        writer.Finish(again);
        const CommFormatFault second = ReadCommFormat(again, fields);
        EXPECT_FALSE(second) << CommFormatFaultText(second.reason) << " in round " << round;
    }
}

}  // namespace
}  // namespace zorby
