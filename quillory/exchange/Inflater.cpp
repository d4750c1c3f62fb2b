#include <quillory/exchange/Inflater.h>
#include <quillory/faults/FaultCode.h>

#include <cstring>
#include <utility>

namespace quillory {
namespace {

constexpr std::size_t kPackedSize = std::size_t{1} << 20;

Bytef* Bytes(char* p) {
    return reinterpret_cast<Bytef*>(p);
}

}  // namespace

Inflater::Inflater(Source source, const std::string& name)
    : source_(std::move(source)), packed_(kPackedSize) {
    constexpr int kGzipOnly = 15 + 16;  // largest window, gzip header
    if (inflateInit2(&stream_, kGzipOnly) != Z_OK) throw FileError(name + ": no memory");
}

void Inflater::Give(std::string_view packed) {
    std::memcpy(packed_.data(), packed.data(), packed.size());
    stream_.next_in = Bytes(packed_.data());
    stream_.avail_in = static_cast<uInt>(packed.size());
}

std::size_t Inflater::Unpack(char* target, std::size_t size) {
    stream_.next_out = Bytes(target);
    stream_.avail_out = static_cast<uInt>(size);
    while (stream_.avail_out == size && !damage_) {
        if (stream_.avail_in == 0 && !Refill()) return 0;
        if (memberEnded_) SkipZeros();
        if (stream_.avail_in == 0) continue;
        if (memberEnded_ && !BeginMember()) break;
        const int result = inflate(&stream_, Z_NO_FLUSH);
        memberEnded_ = result == Z_STREAM_END;
        if (result != Z_OK && !memberEnded_) damage_ = Fault{FaultCode::kGzipDamaged};
    }
    return size - stream_.avail_out;
}

// They fill up the blocks of a tape.
void Inflater::SkipZeros() {
    while (stream_.avail_in != 0 && *stream_.next_in == 0) {
        ++stream_.next_in;
        --stream_.avail_in;
    }
}

// Another member follows if its first byte is that of one; else it is no gzip data.
bool Inflater::BeginMember() {
    if (static_cast<char>(*stream_.next_in) != kGzipMagic.front()) {
        damage_ = Fault{FaultCode::kBytesAfterGzip};
        return false;
    }
    inflateReset(&stream_);
    memberEnded_ = false;
    return true;
}

bool Inflater::Refill() {
    const std::size_t size = source_(packed_.data(), packed_.size());
    if (size == 0 && !memberEnded_) damage_ = Fault{FaultCode::kGzipCutShort};
    stream_.next_in = Bytes(packed_.data());
    stream_.avail_in = static_cast<uInt>(size);
    return size != 0;
}

}  // namespace quillory
