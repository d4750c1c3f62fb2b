#pragma once

#include <zorby/archive/Archive.h>
#include <zorby/archive/MemoryStream.h>
#include <zorby/archive/Object.h>

#include <string>
#include <string_view>

inline std::string Store(zorby::CObject& object) {
    zorby::MemoryStream stream;
    zorby::CArchive archive(stream, zorby::CArchive::store);
    object.Serialize(archive);
    archive.Close();
    return stream.GetBytes();
}

// Gives the number of bytes that were read.
inline std::size_t Load(std::string_view bytes, zorby::CObject& object) {
    zorby::MemoryViewStream stream(bytes);
    zorby::CArchive archive(stream, zorby::CArchive::load);
    object.Serialize(archive);
    return static_cast<std::size_t>(stream.GetPosition());
}
