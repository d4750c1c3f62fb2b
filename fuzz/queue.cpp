#include <quillory/cards/CardLayout.h>
#include <quillory/cards/Pages.h>
#include <quillory/cards/PrintQueue.h>
#include <quillory/faults/Errors.h>
#include <zorby/platform/PortInForce.h>
#include <zorby/queues/CardFile.h>

#include <fuzz/Home.h>

namespace quillory::fuzz {
namespace {

// Lays out what can be read of a queue.
bool WalkIsSound() {
    static FontTypesetter typesetter;
    const CardOptions options = CardOptionsOfProfile();
    PrintQueue queue(PrintQueue::kCards, false);
    bool isSound = true;
    const auto take = [&](const QueuedItem& queued) {
        Expect(!LayOutCard(queued.item, options, typesetter).empty(), "an item is a card");
        return true;
    };
    queue.ForEach(take, [&isSound](const QueueDamage& damage) {
        Expect(!damage.reason.empty(), "damage has a reason");
        isSound = false;
    });
    return isSound;
}

void AddOne() {
    PrintQueue queue(PrintQueue::kCards, true);
    const int before = queue.Count();
    queue.BeginAdding();
    queue.Add({{kUseMainEntry, "1", {{kBlockBody, "text"}}}, 1});
    queue.FinishAdding();
    Expect(queue.Count() == before + 1, "what is added counts");
}

}  // namespace
}  // namespace quillory::fuzz

// A sound queue takes a further item, any other stays as it is.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace quillory;
    static const bool isReady = (fuzz::PutAllInForce(), true);
    if (!isReady) return 0;
    zorby::MemoryFiles files;
    const zorby::FilesInForce inForce(files);
    const auto file = std::make_shared<zorby::MemoryFiles::File>();
    file->bytes.assign(reinterpret_cast<const char*>(data), size);
    files.files[zorby::CCardFile::GetFilePath()] = file;
    const std::string before = file->bytes;
    try {
        const bool isSound = fuzz::WalkIsSound();
        fuzz::Expect(file->bytes == before, "reading changes nothing");
        if (!isSound) return 0;
        fuzz::AddOne();
        fuzz::Expect(fuzz::WalkIsSound(), "a queue stays sound");
    } catch (const FileError& error) {
        fuzz::Expect(error.what()[0] != '\0', "an error has words");
        fuzz::Expect(file->bytes == before, "what is no queue stays as it is");
    }
    return 0;
}
