#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>
#include <zorby/archive/Object.h>
#include <zorby/archive/SerializeList.h>

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {
namespace {

using namespace std::string_literals;

template <class... Items>
std::string Stored(const Items&... items) {
    MemoryStream stream;
    CArchive archive(stream, CArchive::store);
    (archive << ... << items);
    archive.Close();
    return stream.GetBytes();
}

std::string LoadedText(std::string_view bytes) {
    MemoryViewStream stream(bytes);
    CArchive archive(stream, CArchive::load);
    std::string text = "what was there";
    archive >> text;
    EXPECT_EQ(stream.GetPosition(), bytes.size());
    return text;
}

template <class Action>
CArchiveException FailureOf(Action action) {
    try {
        action();
    } catch (const CArchiveException& failure) {
        return failure;
    }
    ADD_FAILURE() << "nothing was thrown";
    return {CArchiveException::kClosed, "", 0};
}

TEST(Archive, NumbersAreLittleEndianWithoutPadding) {
    const auto byte = static_cast<unsigned char>(0xFE);
    EXPECT_EQ(Stored(byte, 'a', std::int32_t{-2}, std::uint32_t{0x80000001}),
              "\376a\xFE\xFF\xFF\xFF\x01\x00\x00\x80"s);
}

TEST(Archive, TextLengthHasThreeForms) {
    struct Row {
        std::size_t length;
        std::string prefix;
    };
    const std::vector<Row> rows = {
        {0, "\x00"s},
        {1, "\x01"s},
        {254, "\xFE"s},
        {255, "\xFF\xFF\x00"s},
        {4097, "\xFF\x01\x10"s},
        {65533, "\xFF\xFD\xFF"s},
        {65534, "\xFF\xFF\xFF\xFE\xFF\x00\x00"s},
        {65535, "\xFF\xFF\xFF\xFF\xFF\x00\x00"s},
        {200000, "\xFF\xFF\xFF\x40\x0D\x03\x00"s},
    };
    for (const Row& row : rows) {
        const std::string text(row.length, '\x1F');
        const std::string bytes = Stored(std::string_view(text));
        EXPECT_EQ(bytes, row.prefix + text) << row.length;
        EXPECT_EQ(LoadedText(bytes), text) << row.length;
    }
}

TEST(Archive, LongFormsOfShortLengthsAreRead) {
    EXPECT_EQ(LoadedText("\xFF\x02\000ab"s), "ab");
    EXPECT_EQ(LoadedText("\xFF\xFF\xFF\x02\x00\x00\000a\0"s), "a\0"s);
}

TEST(Archive, WideTextIsNarrowed) {
    EXPECT_EQ(LoadedText("\xFF\xFE\xFF\x00"s), "");
    EXPECT_EQ(LoadedText("\xFF\xFE\xFF\004a\0\xE9\0\xAC\x20\0\0"s), "a\xE9?\0"s);
    std::string wide = "\xFF\xFE\xFF\xFF\x00\x80"s;
    for (int i = 0; i < 0x8000; ++i) wide += "x\0"s;
    EXPECT_EQ(LoadedText(wide), std::string(0x8000, 'x'));
}

TEST(Archive, LengthsBeyondTheStreamEndAsEndOfFile) {
    const std::vector<std::string> damaged = {
        ""s,
        "\005abcd"s,
        "\xFF"s,
        "\xFF\x01"s,
        "\xFF\xFF\xFF\xFF\xFF\xFF"s,
        "\xFF\xFF\xFF\xFF\xFF\xFF\377abc"s,
        "\xFF\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF\377abc"s,
        "\xFF\xFE\xFF\xFF\xFE\xFF\001a"s,
        "\xFF\xFE\xFF\001a"s,
    };
    for (const std::string& bytes : damaged) {
        SCOPED_TRACE(testing::PrintToString(bytes));
        MemoryViewStream stream(bytes);
        CArchive archive(stream, CArchive::load);
        std::string text = "kept";
        const CArchiveException failure = FailureOf([&] { archive >> text; });
        EXPECT_EQ(failure.GetCause(), CArchiveException::kEndOfFile);
        EXPECT_EQ(failure.GetOffset(), 0U);
        EXPECT_EQ(text, "kept");
    }
}

TEST(Archive, WrongDirectionAndUseAfterCloseAreRefused) {
    MemoryStream stream("abcdefgh");
    CArchive loading(stream, CArchive::load);
    CArchive storing(stream, CArchive::store);
    std::int32_t number = 0;
    char buffer[4] = {};
    EXPECT_EQ(FailureOf([&] { loading << number; }).GetCause(), CArchiveException::kReadOnly);
    EXPECT_EQ(FailureOf([&] { loading << ""; }).GetCause(), CArchiveException::kReadOnly);
    EXPECT_EQ(FailureOf([&] { storing >> number; }).GetCause(), CArchiveException::kWriteOnly);
    EXPECT_EQ(FailureOf([&] { storing.Read(buffer, 0); }).GetCause(),
              CArchiveException::kWriteOnly);
    loading.Close();
    loading.Close();
    EXPECT_EQ(FailureOf([&] { loading.Read(buffer, 4); }).GetCause(), CArchiveException::kClosed);
    EXPECT_EQ(stream.GetBytes(), "abcdefgh");
}

enum Material : std::int32_t { kBook = 0, kMap = 5 };

struct Pair : CObject {
    static const CRuntimeClass kRuntimeClass;
    const CRuntimeClass* GetRuntimeClass() const override { return &kRuntimeClass; }
    void Serialize(CArchive& archive) override {
        if (archive.IsStoring()) {
            archive << material << name;
        } else {
            archive >> material >> name;
        }
    }
    Material material = kBook;
    std::string name;
};
const CRuntimeClass Pair::kRuntimeClass = RuntimeClassOf<Pair>("Pair");

TEST(RuntimeClass, MakesNewObjects) {
    const Pair pair;
    const CObject& object = pair;
    EXPECT_STREQ(object.GetRuntimeClass()->name, "Pair");
    EXPECT_EQ(object.GetRuntimeClass()->schema, 0U);
    const std::unique_ptr<CObject> made = object.GetRuntimeClass()->CreateObject();
    EXPECT_NE(dynamic_cast<Pair*>(made.get()), nullptr);
    EXPECT_EQ(CObject::kRuntimeClass.CreateObject(), nullptr);
}

template <class List>
std::string StoredList(List& list) {
    MemoryStream stream;
    CArchive archive(stream, CArchive::store);
    SerializeList(archive, list);
    return stream.GetBytes();
}

template <class List>
void LoadList(std::string_view bytes, List& list) {
    MemoryViewStream stream(bytes);
    CArchive archive(stream, CArchive::load);
    SerializeList(archive, list);
}

TEST(List, IsACountAndTheElements) {
    std::vector<std::string> none;
    EXPECT_EQ(StoredList(none), "\0\0\0\0"s);
    std::vector<std::unique_ptr<Pair>> pairs;
    LoadList(
        "\x02\0\0\0"
        "\x05\0\0\0\x01m"
        "\0\0\0\0\0"s,
        pairs);
    ASSERT_EQ(pairs.size(), 2U);
    EXPECT_EQ(pairs[0]->material, kMap);
    EXPECT_EQ(pairs[0]->name, "m");
    EXPECT_EQ(StoredList(pairs),
              "\x02\0\0\0"
              "\x05\0\0\0\x01m"
              "\0\0\0\0\0"s);
}

TEST(List, LoadingAddsBehindWhatIsThere) {
    std::vector<Pair> pairs(1);
    LoadList(
        "\x01\0\0\0"
        "\x05\0\0\0\0"s,
        pairs);
    LoadList("\0\0\0\0"s, pairs);
    LoadList("\xFF\xFF\xFF\xFF"s, pairs);
    LoadList("\0\0\0\x80"s, pairs);
    ASSERT_EQ(pairs.size(), 2U);
    EXPECT_EQ(pairs[1].material, kMap);
}

TEST(List, AbsurdCountEndsAtTheEndOfTheStream) {
    std::vector<std::int32_t> numbers;
    const CArchiveException failure = FailureOf([&] {
        LoadList(
            "\xFF\xFF\xFF\177\1\0\0\0"
            "\2\0"s,
            numbers);
    });
    EXPECT_EQ(failure.GetCause(), CArchiveException::kEndOfFile);
    EXPECT_EQ(failure.GetOffset(), 8U);
    EXPECT_EQ(numbers, std::vector<std::int32_t>{1});
}

// What a persisted class might hold: some of everything, of random size.
struct Everything {
    void Serialize(CArchive& archive) {
        if (archive.IsStoring()) {
            archive << letter << number << tag;
            archive.Write(raw, sizeof raw);
        } else {
            archive >> letter >> number >> tag;
            archive.Read(raw, sizeof raw);
        }
        SerializeList(archive, texts);
    }
    char letter = 0;
    std::int32_t number = 0;
    std::uint32_t tag = 0;
    char raw[3] = {};
    std::vector<std::string> texts;
};

Everything Random(std::mt19937& random) {
    Everything made;
    made.letter = static_cast<char>(random());
    made.number = static_cast<std::int32_t>(random());
    made.tag = static_cast<std::uint32_t>(random());
    for (char& byte : made.raw) byte = static_cast<char>(random());
    for (std::size_t left = random() % 5; left > 0; --left) {
        std::string& text = made.texts.emplace_back(random() % 600, '\0');
        for (char& byte : text) byte = static_cast<char>(random());
    }
    return made;
}

TEST(Archive, StoringLoadingStoringGivesTheSameBytesAndEveryCutIsNoticed) {
    std::mt19937 random(20);
    for (int round = 0; round < 50; ++round) {
        SCOPED_TRACE(round);
        std::vector<Everything> original(random() % 4 + 1);
        for (Everything& element : original) element = Random(random);
        const std::string bytes = StoredList(original);
        std::vector<Everything> loaded;
        LoadList(bytes, loaded);
        EXPECT_EQ(StoredList(loaded), bytes);

        const std::size_t cut = random() % bytes.size();
        std::vector<Everything> partial;
        const CArchiveException failure =
            FailureOf([&] { LoadList(std::string_view(bytes).substr(0, cut), partial); });
        EXPECT_EQ(failure.GetCause(), CArchiveException::kEndOfFile);
        EXPECT_LE(failure.GetOffset(), cut);
        EXPECT_LT(partial.size(), original.size());
    }
}

}  // namespace
}  // namespace zorby
