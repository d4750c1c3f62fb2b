#include <zorby/archive/Object.h>

#include <ostream>

namespace zorby {

std::unique_ptr<CObject> CRuntimeClass::CreateObject() const {
    return factory == nullptr ? nullptr : factory();
}

const CRuntimeClass CObject::kRuntimeClass{"CObject", 0, nullptr};

const CRuntimeClass* CObject::GetRuntimeClass() const {
    return &kRuntimeClass;
}

CObject::~CObject() = default;

void CObject::Serialize(CArchive&) {}

void CObject::AssertValid() const {}

void CObject::Dump(std::ostream& out) const {
    out << GetRuntimeClass()->name;
}

}  // namespace zorby
