#pragma once

#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>
#include <zorby/archive/Object.h>

#include <fuzz/Expect.h>
#include <string>
#include <string_view>

namespace zorby::fuzz {

inline std::string Store(CObject& object) {
    MemoryStream stream;
    CArchive archive(stream, CArchive::store);
    object.Serialize(archive);
    archive.Close();
    return stream.GetBytes();
}

// False where the bytes end too early.
inline bool Load(std::string_view bytes, CObject& object) {
    MemoryViewStream stream(bytes);
    CArchive archive(stream, CArchive::load);
    try {
        object.Serialize(archive);
    } catch (const CArchiveException& failure) {
        Expect(failure.GetCause() == CArchiveException::kEndOfFile, "loading fails at the end");
        Expect(failure.GetOffset() <= bytes.size(), "a failed item begins in the stream");
        return false;
    }
    return true;
}

// What was loaded loads again from its own bytes, and stores the same.
template <class Persisted>
void ExpectRoundTrip(CObject& loaded) {
    const std::string stored = Store(loaded);
    Persisted again;
    Expect(Load(stored, again), "what was stored loads whole");
    Expect(Store(again) == stored, "what was loaded stores the same");
}

}  // namespace zorby::fuzz
