#include <quillory/faults/Errors.h>
#include <quillory/faults/FaultCode.h>
#include <quillory/store/WorkformFile.h>
#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>
#include <zorby/workforms/Template.h>

namespace quillory {
namespace {

// Reads the workform at the stream's position; `bytes` are all bytes of the stream.
FiledWorkform ReadNext(zorby::MemoryViewStream& stream, zorby::CArchive& archive,
                       std::string_view bytes) {
    const std::uint64_t begin = stream.GetPosition();
    zorby::CTemplate workform;
    workform.Serialize(archive);
    const std::string& base = workform.GetBaseTemplateName();
    return {workform.GetName(), base,
            std::string(bytes.substr(begin, stream.GetPosition() - begin))};
}

void CheckAtEnd(const zorby::MemoryViewStream& stream, std::string_view bytes,
                const std::string& what) {
    const std::uint64_t end = stream.GetPosition();
    if (end == bytes.size()) return;
    throw FileError(what + ": offset " + std::to_string(end),
                    {FaultCode::kBytesAfterWorkforms, {}, std::to_string(bytes.size() - end)});
}

}  // namespace

FiledWorkform ReadWorkformBlock(const std::string& block, const std::string& what) {
    zorby::MemoryViewStream stream(block);
    zorby::CArchive archive(stream, zorby::CArchive::load);
    try {
        FiledWorkform workform = ReadNext(stream, archive, block);
        CheckAtEnd(stream, block, what);
        return workform;
    } catch (const zorby::CArchiveException& damage) {
        throw FileError(what + ": " + damage.what());
    }
}

std::vector<FiledWorkform> ParseWorkformFile(std::string_view bytes, const std::string& fileName) {
    zorby::MemoryViewStream stream(bytes);
    zorby::CArchive archive(stream, zorby::CArchive::load);
    std::vector<FiledWorkform> workforms;
    std::int32_t count = 0;
    try {
        archive >> count;
        if (count < 0) throw FileError(fileName + ": offset 0", {FaultCode::kNotWorkformFile});
        for (std::int32_t i = 0; i < count; ++i) {
            workforms.push_back(ReadNext(stream, archive, bytes));
        }
    } catch (const zorby::CArchiveException& damage) {
        throw FileError(fileName + ": workform " + std::to_string(workforms.size() + 1) + ": " +
                        damage.what());
    }
    CheckAtEnd(stream, bytes, fileName);
    return workforms;
}

std::string WorkformFileBytes(const std::vector<FiledWorkform>& workforms) {
    zorby::MemoryStream stream;
    zorby::CArchive archive(stream, zorby::CArchive::store);
    archive << static_cast<std::int32_t>(workforms.size());
    for (const FiledWorkform& workform : workforms) {
        archive.Write(workform.block.data(), workform.block.size());
    }
    archive.Close();
    return stream.GetBytes();
}

}  // namespace quillory
