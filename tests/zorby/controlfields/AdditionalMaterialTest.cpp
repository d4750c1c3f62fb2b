#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>
#include <zorby/controlfields/AdditionalMaterialsList.h>
#include <zorby/record/Pmarc.h>

#include <gtest/gtest.h>

#include <tests/zorby/archive/Persisted.h>

using namespace zorby;

namespace {

const std::string k006 = "a|||  b    000 1  ";
const std::string kMicrofiche = "he bmb---bucu";

std::string Entry(std::string_view field006, std::string_view field007, int material, int type006,
                  int type007) {
    MemoryStream stream;
    CArchive archive(stream, CArchive::store);
    archive << static_cast<unsigned char>(1);
    archive.Write(field006.data(), field006.size());
    archive << static_cast<std::int32_t>(field007.size());
    archive.Write(field007.data(), field007.size());
    archive << material << type006 << type007;
    archive.Close();
    return stream.GetBytes();
}

const std::string kBook = Entry(k006, kMicrofiche, MTBook, CF006Books, CF007Microform);

CCFAdditionalMaterial Make(std::string_view bytes = kBook) {
    CCFAdditionalMaterial material;
    Load(bytes, material);
    return material;
}

std::string Read(const CCFAdditionalMaterial& material, CFPart part) {
    std::string text;
    return material.Get(part, text) == 0 ? "(none) " + text : text;
}

TEST(AdditionalMaterial, HoldsItsWhole006) {
    CCFAdditionalMaterial book = Make();
    EXPECT_EQ(Read(book, CFP006BooksTypeOfRecord), "a");
    EXPECT_EQ(Read(book, CFP006BooksIllustrations), "||| ");
    EXPECT_EQ(Read(book, CFP007MicroformReductionRatio), "---");
    EXPECT_EQ(Read(book, CFPLdrRecordStatus), "(none) ");
    EXPECT_EQ(Read(book, CFP008Language), "(none) ");
    EXPECT_EQ(book.GetPartSize(CFP006BooksIllustrations), 4);
    EXPECT_EQ(book.Set(CFP006BooksTypeOfRecord, "t"), 1);
    EXPECT_EQ(book.Set(CFP006MusicSoundFormOfItem, "t"), 0);
    EXPECT_EQ(book.Set(CFP006VisualFormOfItem, "t"), 0);
    std::string field006;
    std::string field007;
    book.GetAll(field006, field007);
    EXPECT_EQ(field006, "t" + k006.substr(1));
    EXPECT_EQ(field007, kMicrofiche);
}

TEST(AdditionalMaterial, CombinedFormOfItem) {
    CCFAdditionalMaterial book = Make();
    EXPECT_EQ(Read(book, CFPCombinedFormOfItem), "be");
    EXPECT_EQ(book.Set(CFPCombinedFormOfItem, "aj"), 1);
    EXPECT_EQ(Read(book, CFPCombinedFormOfItem), "aj");
    EXPECT_EQ(book.Set(CFPCombinedFormOfItem, "s"), 1);
    EXPECT_EQ(Read(book, CFPCombinedFormOfItem), "s");
    EXPECT_EQ(book.GetMARCSize(), 19U);

    CCFAdditionalMaterial electronic = Make(Entry(k006, "cr", MTBook, CF006Books, CF007Electronic));
    EXPECT_EQ(electronic.Set(CFP006BooksFormOfItem, "s"), 1);
    EXPECT_EQ(Read(electronic, CFPCombinedFormOfItem), "(none) s");
    CCFAdditionalMaterial none = Make(Entry(k006, kMicrofiche, MTText, CF006None, CF007Microform));
    EXPECT_EQ(Read(none, CFPCombinedFormOfItem), "(none) ");
    EXPECT_EQ(none.Set(CFPCombinedFormOfItem, "ad"), 1);
    EXPECT_EQ(Read(none, CFP007MicroformSMD), "d");
    CCFAdditionalMaterial map = Make(Entry(k006, kMicrofiche, MTMap, CF006Map, CF007Microform));
    EXPECT_EQ(map.Set(CFPCombinedFormOfItem, "a"), 0);
    EXPECT_EQ(Read(map, CFP007MicroformCategory), " ");
}

TEST(AdditionalMaterial, Whole006) {
    CCFAdditionalMaterial book = Make();
    std::string field006;
    std::string field007;
    for (const auto& [given, held] : {std::pair{"tz", "tz                "},
                                      std::pair{"0123456789abcdefgh?", "0123456789abcdefgh"}}) {
        book.Set006Complete(given);
        book.GetAll(field006, field007);
        EXPECT_EQ(field006, held) << given;
    }
}

TEST(AdditionalMaterial, SizeAndRecord) {
    CCFAdditionalMaterial book = Make();
    book.Set007Complete(std::string(14, 'x'));
    EXPECT_EQ(book.GetMARCSize(), 34U);
    book.Set007Complete(std::string(99, 'x'));
    EXPECT_EQ(book.GetMARCSize(), 43U);
    book.Set007Complete("  ");
    EXPECT_EQ(book.GetMARCSize(), 19U);

    CCFAdditionalMaterialsList list;
    Load(std::string("\1\2\0\0\0", 5) + kBook + Store(book), list);
    CPmarc record;
    list.AddToPseudoMARC(record);
    std::string text;
    record.GetRecordAsCString(text);
    EXPECT_EQ(text, "006" + k006 + "\r\n006" + k006 + "\r\n007" + kMicrofiche + "\r\n");
    EXPECT_EQ(list.GetMARCSize(), 19U + 14 + 19);
}

TEST(AdditionalMaterial, EqualityGoesByBytes) {
    const CCFAdditionalMaterial book = Make();
    EXPECT_TRUE(
        book.IsEqualTo(Make(Entry(k006, kMicrofiche, MTSerial, CF006Books, CF007Microform))));
    EXPECT_FALSE(book.IsEqualTo(Make(Entry(k006, kMicrofiche, MTBook, CF006Map, CF007Microform))));
    EXPECT_FALSE(book.IsEqualTo(Make(Entry(k006, "he", MTBook, CF006Books, CF007Microform))));
    // Without a length, the first byte of the 007 still counts.
    CCFAdditionalMaterial blanked = Make();
    blanked.Set007Complete("");
    CCFAdditionalMaterial empty = Make(Entry(k006, "", MTBook, CF006Books, CF007Microform));
    EXPECT_FALSE(blanked.IsEqualTo(empty));
}

TEST(AdditionalMaterial, ArchiveForm) {
    CCFAdditionalMaterial book = Make();
    EXPECT_EQ(Store(book), kBook);
    EXPECT_FALSE(book.IsEmpty());
    Load("\002" + kBook.substr(1), book);
    EXPECT_EQ(Store(book), kBook);
    for (std::size_t size = 0; size < kBook.size(); ++size) {
        SCOPED_TRACE(size);
        EXPECT_THROW(Load(std::string_view(kBook).substr(0, size), book), CArchiveException);
        EXPECT_EQ(Store(book), kBook);
    }
    const std::string tooLong =
        Entry(k006, std::string(50, 'x') + "end", MTBook, CF006Books, CF007Text);
    CCFAdditionalMaterial cut = Make(tooLong);
    EXPECT_EQ(Store(cut), Entry(k006, std::string(23, 'x'), MTBook, CF006Books, CF007Text));
    // A short 007 leaves the bytes after it.
    Load(Entry(k006, "ta", MTBook, CF006Books, CF007Microform), cut);
    std::string dimensions;
    cut.Get(CFP007MicroformDimensions, dimensions);
    EXPECT_EQ(dimensions, "x");
    const std::string endless = kBook.substr(0, 19) + "\377\377\377\177";
    EXPECT_THROW(Load(endless, cut), CArchiveException);
}

TEST(AdditionalMaterialsList, KeepsOrderAndOwnsItsEntries) {
    CCFAdditionalMaterialsList list;
    EXPECT_EQ(list.AddEmptyAtEnd(), 1);
    list.Add(std::make_unique<CCFAdditionalMaterial>(Make()));
    list.Add(nullptr);
    list.AddEmptyAtEnd();
    list.AMAddDuplicateAtEnd(1);
    ASSERT_EQ(list.GetSize(), 4);
    EXPECT_EQ(list.Set(3, CFP006BooksAudience, "j"), 1);
    std::string text;
    EXPECT_EQ(list.Get(1, CFP006BooksAudience, text), 1);
    EXPECT_EQ(text, " ");
    EXPECT_EQ(list.GetPartSize(3, CFPCombinedFormOfItem), 2);

    for (const int index : {-1, 4, INT32_MAX}) {
        SCOPED_TRACE(index);
        EXPECT_EQ(list.GetAt(index), nullptr);
        EXPECT_EQ(list.Get(index, CFP006BooksAudience, text), 0);
        EXPECT_EQ(list.Set(index, CFP006BooksAudience, "j"), 0);
        EXPECT_EQ(list.GetPartSize(index, CFP006BooksAudience), 0);
        list.Set007Complete(index, "ta");
        list.AMAddDuplicateAtEnd(index);
        list.DeleteByNumber(index);
        EXPECT_EQ(list.GetSize(), 4);
    }

    CCFAdditionalMaterialsList copy;
    EXPECT_FALSE(list.IsEqualTo(copy));
    copy.CloneFrom(list);
    EXPECT_TRUE(list.IsEqualTo(copy));
    copy.Set007Complete(3, "ta");
    EXPECT_FALSE(list.IsEqualTo(copy));

    list.RemoveEmpty();
    EXPECT_EQ(list.GetSize(), 2);
    const std::string stored = Store(list);
    Load(stored, list);
    EXPECT_EQ(list.GetSize(), 4);
    Load("\002", list);
    EXPECT_EQ(list.GetSize(), 4);
    list.DeleteByNumber(0);
    list.DeleteByNumber(0);
    EXPECT_EQ(Store(list), stored);
    copy.Empty();
    copy.AddEmptyAtEnd();
    copy.RemoveEmpty();
    EXPECT_TRUE(copy.IsEqualTo(CCFAdditionalMaterialsList()));
}

TEST(AdditionalMaterial, ByteZero) {
    std::string types;
    for (int material = 0; material <= 31; ++material) {
        const char type =
            CCFAdditionalMaterial::ByteZeroForMaterialType(static_cast<MaterialType>(material));
        types += type == '\0' ? '-' : type;
    }
    EXPECT_EQ(types, "aammmeeeopcsjjjjgggggkr--e--agia");
}

}  // namespace
