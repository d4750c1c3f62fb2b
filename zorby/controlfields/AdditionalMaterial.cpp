#include <zorby/archive/Archive.h>
#include <zorby/controlfields/AdditionalMaterial.h>
#include <zorby/controlfields/detail/PartBytes.h>
#include <zorby/controlfields/detail/StandardWorkforms.h>
#include <zorby/record/Pmarc.h>
#include <zorby/text/General.h>

#include <algorithm>
#include <tuple>
#include <type_traits>

namespace zorby {

const CRuntimeClass CCFAdditionalMaterial::kRuntimeClass =
    RuntimeClassOf<CCFAdditionalMaterial>("CCFAdditionalMaterial");

namespace {

constexpr unsigned char kMaterialVersion = 1;

}  // namespace

CCFAdditionalMaterial::CCFAdditionalMaterial() {
    field006_.fill(kBlank);
    field007_.fill(kBlank);
}

void CCFAdditionalMaterial::Create(MaterialType material, CFType type006, CFType type007,
                                   std::string_view field007, std::string_view field006) {
    material_ = material;
    type006_ = type006;
    type007_ = type007;
    const std::size_t length =
        std::min({field007.size(), k007Size, Default007For(material, '\0').size()});
    length007_ = static_cast<std::int32_t>(length);
    field006_[0] = ByteZeroFor(field006);
    const std::size_t shift = field006.size() == k006Size ? 0 : kFrom006To008;
    for (std::size_t i = 1; i < k006Size; ++i) {
        field006_[i] = i + shift < field006.size() ? field006[i + shift] : kBlank;
    }
    field007.copy(field007_.data(), length);
    table006_ = OffsetsFor006Type(type006_);
    table007_ = OffsetsFor007Type(type007_);
}

char CCFAdditionalMaterial::ByteZeroFor(std::string_view field006) const {
    constexpr std::string_view kMusicAndSound = "cdij";
    const bool isMusicOrSound = type006_ == CF006MusicSound && !field006.empty();
    if (isMusicOrSound && kMusicAndSound.find(field006[0]) != std::string_view::npos) {
        return field006[0];
    }
    if (!isMusicOrSound && material_ == MTBookComputerFile) return 'm';
    return ByteZeroForMaterialType(material_);
}

template <class Material>
auto CCFAdditionalMaterial::FieldOf(Material& material, CFPart part) {
    using Byte = std::remove_pointer_t<decltype(material.field006_.data())>;
    using Found = Field<Byte>;
    if (PartBelongsTo(part, material.type006_, ByteZero::Included)) {
        return Found{material.table006_, {material.field006_.data(), k006Size}};
    }
    if (PartBelongsTo(part, material.type007_, ByteZero::Included)) {
        return Found{material.table007_, {material.field007_.data(), k007Size}};
    }
    return Found{};
}

int CCFAdditionalMaterial::Get(CFPart part, std::string& text) const {
    if (part == CFPCombinedFormOfItem) return GetCombinedFormOfItem(text);
    return ReadPart(FieldOf(*this, part), part, text);
}

int CCFAdditionalMaterial::GetCombinedFormOfItem(std::string& text) const {
    if (type006_ == CF006None) return 0;
    const CFPart formOfItem = FormOfItemPart(type006_, CFP006BooksFormOfItem);
    text.clear();
    ReadPart(Field<const char>{table006_, field006_}, formOfItem, text);
    std::string designation;
    const int found = Get(CFP007MicroformSMD, designation);
    if (!text.empty() && designation != " ") text += designation;
    return found;
}

int CCFAdditionalMaterial::Set(CFPart part, std::string_view text) {
    if (part == CFPCombinedFormOfItem) return SetCombinedFormOfItem(text);
    return WritePart(FieldOf(*this, part), part, text);
}

int CCFAdditionalMaterial::SetCombinedFormOfItem(std::string_view text) {
    text = UpToZero(text);
    const CFPart formOfItem = FormOfItemPart(type006_, CFP006BooksFormOfItem);
    const int written = WritePart(Field<char>{table006_, field006_}, formOfItem, text.substr(0, 1));
    if (text.size() > 1) return Set(CFP007MicroformSMD, text.substr(1));
    std::fill_n(field007_.begin(), length007_, kBlank);
    return written;
}

int CCFAdditionalMaterial::GetPartSize(CFPart part) const {
    std::string text;
    return Get(part, text) == 0 ? 0 : static_cast<int>(text.size());
}

std::string_view CCFAdditionalMaterial::Field007() const {
    return {field007_.data(), static_cast<std::size_t>(length007_)};
}

void CCFAdditionalMaterial::GetAll(std::string& field006, std::string& field007) const {
    field006 = Field006();
    field007 = Field007();
}

void CCFAdditionalMaterial::Set006Complete(std::string_view field006) {
    field006_.fill(kBlank);
    field006.copy(field006_.data(), k006Size);
}

void CCFAdditionalMaterial::Set007Complete(std::string_view field007) {
    field007 = UpToZero(field007);
    const std::size_t length = field007.copy(field007_.data(), k007Size);
    field007_[length] = '\0';
    length007_ = static_cast<std::int32_t>(length);
}

unsigned CCFAdditionalMaterial::GetMARCSize() const {
    const std::string_view field007 = Field007();
    const std::size_t size =
        k006Size + kFieldEndSize +
        (CGeneral::IsAllBlanks(field007) ? 0 : field007.size() + kFieldEndSize);
    return static_cast<unsigned>(size);
}

void CCFAdditionalMaterial::CloneFrom(const CCFAdditionalMaterial& other) {
    *this = other;
}

int CCFAdditionalMaterial::IsEqualTo(const CCFAdditionalMaterial& other) const {
    const auto shape = [](const CCFAdditionalMaterial& m) {
        return std::tuple(m.type006_, m.Field006(), m.field007_[0], m.type007_, m.Field007());
    };
    return shape(*this) == shape(other);
}

void CCFAdditionalMaterial::AddToPseudoMARC(CPmarc& record) const {
    record.FieldAddControlField(6, 0, Field006(), 0);
    if (!CGeneral::IsAllBlanks(Field007())) record.FieldAddControlField(7, 0, Field007(), 0);
}

void CCFAdditionalMaterial::Serialize(CArchive& archive) {
    if (archive.IsLoading()) {
        Load(archive);
        return;
    }
    archive << kMaterialVersion;
    archive.Write(field006_.data(), k006Size);
    archive << length007_;
    archive.Write(field007_.data(), Field007().size());
    archive << static_cast<std::int32_t>(material_) << static_cast<std::int32_t>(type006_)
            << static_cast<std::int32_t>(type007_);
}

// A 007 that is too long keeps its first bytes, and the rest is skipped. A short one leaves the
// bytes after it as they are, as all changes of the 007 do.
void CCFAdditionalMaterial::Load(CArchive& archive) {
    unsigned char version = 0;
    archive >> version;
    if (version != kMaterialVersion) return;
    CCFAdditionalMaterial loaded = *this;
    archive.Read(loaded.field006_.data(), k006Size);
    std::int32_t length = 0;
    archive >> length;
    loaded.length007_ = std::clamp(length, 0, static_cast<std::int32_t>(k007Size));
    archive.Read(loaded.field007_.data(), loaded.Field007().size());
    for (std::int32_t i = loaded.length007_; i < length; ++i) {
        char passedOver = 0;
        archive >> passedOver;
    }
    archive >> loaded.material_ >> loaded.type006_ >> loaded.type007_;
    loaded.table006_ = OffsetsFor006Type(loaded.type006_);
    loaded.table007_ = OffsetsFor007Type(loaded.type007_);
    *this = loaded;
}

char CCFAdditionalMaterial::ByteZeroForMaterialType(MaterialType material) {
    switch (material) {
        case MTComputerFile:
        case MTComputerFileDisk:
        case MTComputerFileOther:
            return 'm';
        case MTGlobe:
        case MTAtlas:
        case MTMap:
        case MTRemoteSensing:
            return 'e';
        case MTKit:
            return 'o';
        case MTMixed:
            return 'p';
        case MTMusic:
            return 'c';
        case MTSerial:
            return 's';
        case MTSoundDisc:
        case MTSoundTape:
        case MTSoundRecord:
        case MTSoundOther:
            return 'j';
        case MTMotionPicture:
        case MTVideoTape:
        case MTVideoDisc:
        case MTVideoOther:
        case MTProjectedGraphic:
        case MTVideoPlain:
            return 'g';
        case MTNonprojectedGraphic:
            return 'k';
        case MTThreeDObject:
            return 'r';
        case MTText:
        case MTUnspecified:
        case MTTactile:
        case MTNotatedMusic:
            return '\0';
        case MTSoundNonmusical:
            return 'i';
        default:
            return 'a';
    }
}

bool CCFAdditionalMaterial::IsEmpty() const {
    return material_ == kNoMaterial;
}

MaterialType CCFAdditionalMaterial::GetMaterialType() const {
    return material_;
}

CFType CCFAdditionalMaterial::Get006Type() const {
    return type006_;
}

CFType CCFAdditionalMaterial::Get007Type() const {
    return type007_;
}

}  // namespace zorby
