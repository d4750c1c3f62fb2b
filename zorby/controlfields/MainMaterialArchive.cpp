#include <zorby/archive/Archive.h>
#include <zorby/controlfields/MainMaterial.h>
#include <zorby/controlfields/detail/PartBytes.h>

#include <algorithm>

namespace zorby {
namespace {

constexpr unsigned char kVersionWithoutSecond006 = 1;
constexpr unsigned char kMainMaterialVersion = 2;

template <class Buffer>
void LoadText(CArchive& archive, Buffer& buffer) {
    std::string text;
    archive >> text;
    buffer[text.copy(buffer.data(), buffer.size() - 1)] = '\0';
}

std::int32_t LoadLength(CArchive& archive, std::size_t limit) {
    std::int32_t length = 0;
    archive >> length;
    return std::clamp(length, 0, static_cast<std::int32_t>(limit));
}

}  // namespace

void CCFMainMaterial::Serialize(CArchive& archive) {
    if (archive.IsStoring()) {
        archive << kMainMaterialVersion;
        Store(archive);
        return;
    }
    second006_.clear();
    unsigned char version = 0;
    archive >> version;
    if (version == kMainMaterialVersion || version == kVersionWithoutSecond006) {
        Load(archive, version == kMainMaterialVersion);
    }
    AttachTables();
}

void CCFMainMaterial::Store(CArchive& archive) const {
    const auto text = [](const auto& buffer, std::size_t size) {
        return UpToZero(std::string_view(buffer.data(), size));
    };
    archive << UpToZero(second006_) << text(leader_, kLeaderSize) << text(block_, kBlockSize)
            << text(field008_, static_cast<std::size_t>(length008_)) << text(image006_, k006Size)
            << UpToZero(Field007()) << length007_ << length008_
            << static_cast<std::int32_t>(type006_) << static_cast<std::int32_t>(type007_);
}

void CCFMainMaterial::Load(CArchive& archive, bool withSecond006) {
    if (withSecond006) {
        std::string text;
        archive >> text;
        second006_ = text.substr(0, std::min(text.find('\0'), k006Size));
    }
    LoadText(archive, leader_);
    LoadText(archive, block_);
    LoadText(archive, field008_);
    LoadText(archive, image006_);
    LoadText(archive, field007_);
    length007_ = LoadLength(archive, k007Size);
    length008_ = LoadLength(archive, k008Size);
    archive >> type006_ >> type007_;
}

}  // namespace zorby
