#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>
#include <zorby/archive/Object.h>
#include <zorby/archive/SerializeList.h>

#include <cstdint>
#include <fuzz/Expect.h>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zorby {
namespace {

using fuzz::Expect;

// An object with items of every kind, lists of plain items and of its own kind.
class Node : public CObject {
public:
    void Serialize(CArchive& archive) override {
        SerializeElement(archive, flag_);
        SerializeElement(archive, sign_);
        SerializeElement(archive, number_);
        SerializeElement(archive, count_);
        SerializeElement(archive, text_);
        SerializeList(archive, texts_);
        SerializeList(archive, numbers_);
        if (flag_ % 4 == 1 && Depth() < kDeepest) SerializeChildren(archive);
    }

private:
    static constexpr int kDeepest = 8;

    static int& Depth() {
        static int depth = 0;
        return depth;
    }

    void SerializeChildren(CArchive& archive) {
        struct Level {
            Level() { ++Depth(); }
            ~Level() { --Depth(); }
        } level;
        SerializeList(archive, children_);
    }

    unsigned char flag_ = 0;
    char sign_ = 0;
    std::int32_t number_ = 0;
    std::uint32_t count_ = 0;
    std::string text_;
    std::vector<std::string> texts_;
    std::vector<std::int32_t> numbers_;
    std::vector<std::unique_ptr<Node>> children_;
};

// The items up to the first that is not whole.
std::vector<std::unique_ptr<Node>> Load(std::string_view bytes) {
    std::vector<std::unique_ptr<Node>> nodes;
    MemoryViewStream stream(bytes);
    CArchive archive(stream, CArchive::load);
    try {
        SerializeList(archive, nodes);
    } catch (const CArchiveException& failure) {
        Expect(failure.GetCause() == CArchiveException::kEndOfFile, "loading fails at the end");
        Expect(failure.GetOffset() <= bytes.size(), "a failed item begins in the stream");
    }
    Expect(stream.GetPosition() <= bytes.size(), "nothing is read after the end");
    return nodes;
}

std::string Store(std::vector<std::unique_ptr<Node>>& nodes) {
    MemoryStream stream;
    CArchive archive(stream, CArchive::store);
    SerializeList(archive, nodes);
    archive.Close();
    return stream.GetBytes();
}

}  // namespace
}  // namespace zorby

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace zorby;
    auto nodes = Load({reinterpret_cast<const char*>(data), size});
    const std::string stored = Store(nodes);
    auto again = Load(stored);
    fuzz::Expect(again.size() == nodes.size(), "what was stored loads whole");
    fuzz::Expect(Store(again) == stored, "what was loaded stores the same");
    return 0;
}
