#pragma once

#include <zorby/Export.h>

#include <cstdint>
#include <iosfwd>
#include <memory>

namespace zorby {

class CArchive;
class CObject;

// What a persisted class says about itself. The stored form doesn't depend on this.
struct ZORBY_EXPORT CRuntimeClass {
    const char* name;
    std::uint32_t schema;
    std::unique_ptr<CObject> (*factory)();

    // Creates an object with the default constructor, or returns null if the class has no factory.
    std::unique_ptr<CObject> CreateObject() const;
};

// The base of all persisted classes. Serialize stores or loads, as the archive's direction says,
// and throws what the archive throws.
class ZORBY_EXPORT CObject {
public:
    static const CRuntimeClass kRuntimeClass;

    virtual const CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject();
    virtual void Serialize(CArchive& archive);
    // For diagnosis: one checks the object's state, the other describes it. The base class checks
    // nothing and writes the name of the class.
    virtual void AssertValid() const;
    virtual void Dump(std::ostream& out) const;

protected:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
};

// Makes the kRuntimeClass of a class that has a default constructor.
template <class Persisted>
constexpr CRuntimeClass RuntimeClassOf(const char* name) {
    return {name, 0, []() -> std::unique_ptr<CObject> { return std::make_unique<Persisted>(); }};
}

}  // namespace zorby
