#include <zorby/archive/Archive.h>
#include <zorby/controlfields/MainMaterial.h>
#include <zorby/controlfields/detail/PartBytes.h>
#include <zorby/controlfields/detail/StandardWorkforms.h>
#include <zorby/record/Pmarc.h>
#include <zorby/text/General.h>

#include <algorithm>
#include <span>
#include <tuple>
#include <type_traits>

namespace zorby {

const CRuntimeClass CCFMainMaterial::kRuntimeClass =
    RuntimeClassOf<CCFMainMaterial>("CCFMainMaterial");

namespace {

// The material section begins 17 bytes later in the 008 than in the 006.

template <class Buffer>
void Blank(Buffer& buffer, std::size_t size) {
    std::fill_n(buffer.begin(), size, kBlank);
}

// "#" is the display form of a blank.
template <class Buffer>
void Fill(Buffer& buffer, std::size_t size, std::string_view text) {
    char* const begin = buffer.data();
    char* const end = begin + text.copy(begin, size);
    std::fill(end, begin + size, kBlank);
    if (text.find('#') != text.npos) std::replace(begin, end, '#', kBlank);
}

// The byte after a field's own, which loading made a terminator.
template <class... Buffers>
void BlankEnds(Buffers&... buffers) {
    ((buffers.back() = kBlank), ...);
}

template <class Buffer>
std::string_view Bytes(const Buffer& buffer, std::size_t size) {
    return {buffer.data(), size};
}

std::string_view Cut(std::string_view text, std::size_t size) {
    return UpToZero(text).substr(0, size);
}

}  // namespace

CCFMainMaterial::CCFMainMaterial() {
    Empty();
    field007_.fill(kBlank);
}

int CCFMainMaterial::Create(CFType type006, CFType type007, std::string_view leader,
                            std::string_view block, std::string_view field007,
                            std::string_view field008, std::string_view second006) {
    field007 = Cut(field007, k007Size);
    field008 = Cut(field008, k008Size);
    second006 = Cut(second006, k006Size);
    type006_ = type006;
    type007_ = type007;
    length007_ = static_cast<std::int32_t>(field007.size());
    length008_ = static_cast<std::int32_t>(field008.size());
    Fill(leader_, kLeaderSize, leader);
    Fill(block_, kBlockSize, block);
    Fill(field007_, k007Size, field007);
    Fill(field008_, k008Size, field008);
    Fill(image006_, k006Size, field008.substr(std::min(kFrom006To008, field008.size())));
    image006_[0] = kBlank;
    BlankEnds(leader_, block_, field008_, image006_);
    AttachTables();
    second006_.assign(second006.empty() ? 0 : k006Size, kBlank);
    Fill(second006_, second006_.size(), second006);
    return 1;
}

void CCFMainMaterial::Empty() {
    leader_.fill(kBlank);
    block_.fill(kBlank);
    field008_.fill(kBlank);
    image006_.fill(kBlank);
    Blank(field007_, k007Size);
    type006_ = CF006None;
    type007_ = CF007None;
    length007_ = 0;
    length008_ = 0;
    leaderTable_ = table008_ = table007_ = table006_ = nullptr;
}

void CCFMainMaterial::AttachTables() {
    leaderTable_ = kLeaderOffsets;
    table008_ = OffsetsFor008(type006_);
    table007_ = OffsetsFor007Type(type007_);
    table006_ = OffsetsFor006Type(type006_);
}

template <class Material>
auto CCFMainMaterial::FieldOf(Material& material, CFPart part) {
    using Found = Field<std::remove_pointer_t<decltype(material.leader_.data())>>;
    if (PartBelongsTo(part, CFLdr, ByteZero::Included)) {
        return Found{material.leaderTable_, {material.leader_.data(), kLeaderSize}};
    }
    if (PartBelongsTo(part, CF008Standard, ByteZero::Included) ||
        PartBelongsTo(part, CF008Alternative, ByteZero::Included)) {
        return Found{material.table008_, {material.field008_.data(), k008Size}};
    }
    if (PartBelongsTo(part, material.type006_, ByteZero::Excluded)) {
        return Found{material.table006_, {material.image006_.data(), k006Size}};
    }
    if (PartBelongsTo(part, material.type007_, ByteZero::Included)) {
        return Found{material.table007_, {material.field007_.data(), k007Size}};
    }
    return Found{};
}

int CCFMainMaterial::Get(CFPart part, std::string& text) const {
    if (part == CFPCombinedFormOfItem) return GetCombinedFormOfItem(text);
    return ReadPart(FieldOf(*this, part), part, text);
}

int CCFMainMaterial::GetCombinedFormOfItem(std::string& text) const {
    const CFPart formOfItem = FormOfItemPart(type006_, CFPUndefined);
    if (Get(formOfItem, text) == 0) return 0;
    if (text == "s") return 1;
    std::string designation;
    const int found = Get(CFP007MicroformSMD, designation);
    if (!text.empty() && designation != " ") text += designation;
    return found;
}

auto CCFMainMaterial::Image006() {
    return Field<char>{table006_, {image006_.data(), k006Size}};
}

int CCFMainMaterial::Set(CFPart part, std::string_view text) {
    if (part == CFPCombinedFormOfItem) return SetCombinedFormOfItem(text);
    if (part == CFP006VisualFormOfItem && type006_ != CF006Visual) {
        return WritePart(Image006(), CFP006MusicSoundFormOfItem, text);
    }
    return WritePart(FieldOf(*this, part), part, text);
}

int CCFMainMaterial::SetCombinedFormOfItem(std::string_view text) {
    text = UpToZero(text);
    const CFPart formOfItem = FormOfItemPart(type006_, CFP006BooksFormOfItem);
    const int written = WritePart(Image006(), formOfItem, text.substr(0, 1));
    if (text.size() > 1) return Set(CFP007MicroformSMD, text.substr(1));
    Blank(field007_, Field007().size());
    return written;
}

int CCFMainMaterial::GetPartSize(CFPart part) const {
    std::string text;
    return Get(part, text) == 0 ? 0 : static_cast<int>(text.size());
}

int CCFMainMaterial::GetPartSizeNew(CFPart part) {
    return WidthOfPart(part);
}

std::string CCFMainMaterial::DefaultLdr(CFType type006, CFType type007) {
    return DefaultLdrFor(type006, type007);
}

std::string_view CCFMainMaterial::Field007() const {
    return Bytes(field007_, static_cast<std::size_t>(length007_));
}

std::string CCFMainMaterial::GetLeader() const {
    return std::string(Bytes(leader_, kLeaderSize));
}

std::string CCFMainMaterial::GetField007() const {
    return std::string(Field007());
}

std::string CCFMainMaterial::GetField008() const {
    std::string field;
    CopyField008(field);
    return field;
}

void CCFMainMaterial::CopyField008(std::string& field) const {
    field = Bytes(field008_, k008Size);
    const std::string_view section = Bytes(image006_, k006Size).substr(1);
    section.copy(field.data() + kFrom006To008 + 1, section.size());
    field.resize(static_cast<std::size_t>(length008_));
}

void CCFMainMaterial::GetAll(std::string& leader, std::string& field007, std::string& field008,
                             std::string& second006) const {
    leader = Bytes(leader_, kLeaderSize);
    field007 = Field007();
    CopyField008(field008);
    second006 = second006_;
}

std::string CCFMainMaterial::GetBlock() const {
    return std::string(Bytes(block_, kBlockSize));
}

void CCFMainMaterial::Set007Complete(std::string_view field007) {
    field007 = Cut(field007, k007Size);
    length007_ = static_cast<std::int32_t>(field007.copy(field007_.data(), k007Size));
    field007_[field007.size()] = '\0';
}

// If the block has no terminator of its own, its length goes on through the buffers after it.
std::size_t CCFMainMaterial::BlockLength() const {
    std::size_t length = 0;
    for (const std::string_view buffer :
         {Bytes(block_, block_.size()), Bytes(field008_, field008_.size()),
          Bytes(image006_, image006_.size()), Bytes(field007_, field007_.size())}) {
        const std::string_view text = UpToZero(buffer);
        length += text.size();
        if (text.size() < buffer.size()) break;
    }
    return length;
}

unsigned CCFMainMaterial::GetMARCSize() const {
    const std::size_t block = BlockLength();
    const std::string_view field007 = Field007();
    const std::size_t size =
        kLeaderSize + (block == 0 ? 0 : block + kFieldEndSize) +
        static_cast<std::size_t>(length008_) + kFieldEndSize +
        (CGeneral::IsAllBlanks(field007) ? 0 : field007.size() + kFieldEndSize) + second006_.size();
    return static_cast<unsigned>(size);
}

void CCFMainMaterial::CloneFrom(const CCFMainMaterial& other) {
    *this = other;
}

int CCFMainMaterial::IsEqualTo(const CCFMainMaterial& other) const {
    const auto shape = [](const CCFMainMaterial& m) {
        return std::tuple(Bytes(m.leader_, kLeaderSize), Bytes(m.block_, m.block_.size()),
                          Bytes(m.field008_, static_cast<std::size_t>(m.length008_)), m.type006_,
                          Bytes(m.image006_, m.image006_.size()), m.type007_, m.Field007());
    };
    return shape(*this) == shape(other);
}

void CCFMainMaterial::AddToPseudoMARC(CPmarc& record) const {
    std::string leader;
    std::string field007;
    std::string field008;
    std::string second006;
    GetAll(leader, field007, field008, second006);
    record.FieldAddControlField(0, 0, leader, 0);
    if (!second006.empty()) record.FieldAddControlField(6, 0, second006, 0);
    if (!CGeneral::IsAllBlanks(field007)) record.FieldAddControlField(7, 0, field007, 0);
    if (!field008.empty()) record.FieldAddControlField(8, 0, field008, 0);
}

bool CCFMainMaterial::IsMicroform(CFType type006, const tagCFOFFSETENTRY* table,
                                  std::string_view field006) {
    const CFPart formOfItem = FormOfItemPart(type006, CFPUndefined);
    std::string code;
    if (ReadPart({table, field006}, formOfItem, code) == 0) return false;
    return code == "a" || code == "b" || code == "c";
}

char CCFMainMaterial::FormOfItemFrom007Byte1(char designation) {
    switch (designation) {
        case 'b':
        case 'c':
        case 'd':
            return 'a';  // microfilm
        case 'e':
        case 'f':
            return 'b';  // microfiche
        case 'g':
            return 'c';  // microopaque
        default:
            return kBlank;
    }
}

const tagCFOFFSETENTRY* CCFMainMaterial::CFOFFSETENTRYARRAYFor006Type(CFType type006) {
    return OffsetsFor006Type(type006);
}

CFType CCFMainMaterial::Get006Type() const {
    return type006_;
}

CFType CCFMainMaterial::Get007Type() const {
    return type007_;
}

const std::string& CCFMainMaterial::GetSecond006() const {
    return second006_;
}

}  // namespace zorby
