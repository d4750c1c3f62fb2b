#pragma once

#include <quillory/faults/Errors.h>

#include <zlib.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillory {

// The first bytes of each member.
inline constexpr std::string_view kGzipMagic = "\x1F\x8B";

// Unpacks gzip data, one member after the other, up to what is damaged.
class Inflater {
public:
    // Puts up to so many packed bytes where it is told. Result: how many; 0 at the end.
    using Source = std::function<std::size_t(char* target, std::size_t size)>;

    // Throws FileError for want of memory.
    Inflater(Source source, const std::string& name);
    ~Inflater() { inflateEnd(&stream_); }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    // What comes before the source; no more than the source is asked for at a time.
    void Give(std::string_view packed);
    // The same for unpacked bytes; 0 at the end or at the damage.
    std::size_t Unpack(char* target, std::size_t size);
    const std::optional<Fault>& Damage() const { return damage_; }

private:
    void SkipZeros();
    bool BeginMember();
    bool Refill();

    Source source_;
    std::vector<char> packed_;
    z_stream stream_{};
    bool memberEnded_ = false;
    std::optional<Fault> damage_;
};

}  // namespace quillory
