#pragma once

#include <zorby/Export.h>

#include <cstdint>
#include <iosfwd>
#include <memory>

namespace zorby {

class CArchive;
class CObject;

// What a persisted class tells of itself. No stream depends on it.
struct ZORBY_EXPORT CRuntimeClass {
    const char* name;
    std::uint32_t schema;
    std::unique_ptr<CObject> (*factory)();

    // A new object as its default constructor leaves it, or null for a class without a factory.
    std::unique_ptr<CObject> CreateObject() const;
};

// The root of all persisted classes. Serialize stores or loads, as the archive's direction tells,
// and throws what the archive throws.
class ZORBY_EXPORT CObject {
public:
    static const CRuntimeClass kRuntimeClass;

    virtual const CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject();
    virtual void Serialize(CArchive& archive);
    // For diagnosis: to check one's own state, and to tell it. The root checks nothing and tells
    // the class's name.
    virtual void AssertValid() const;
    virtual void Dump(std::ostream& out) const;

protected:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
};

// The record of a class that has a default constructor: fit to initialise its kRuntimeClass.
template <class Persisted>
constexpr CRuntimeClass RuntimeClassOf(const char* name) {
    return {name, 0, []() -> std::unique_ptr<CObject> { return std::make_unique<Persisted>(); }};
}

}  // namespace zorby
