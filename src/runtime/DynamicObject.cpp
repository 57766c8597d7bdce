#include "runtime/DynamicObject.h"

namespace Vorin::Runtime {

IDynamicObject* CDynamicObject::GetObject(const char* name) {
    auto* entry = name ? objects.Find(name) : nullptr;
    return entry ? entry->value.Get() : nullptr;
}

const IDynamicObject* CDynamicObject::GetObject(const char* name) const {
    const auto* entry = name ? objects.Find(name) : nullptr;
    return entry ? entry->value.Get() : nullptr;
}

bool CDynamicObject::SetObject(const char* name, IDynamicObject* object,
                               Core::EOwnership ownership) {
    if (!name) {
        return false;
    }
    if (!object) {
        RemoveObject(name);
        return true;
    }
    objects.Obtain(name).value.Set(object, ownership);
    return true;
}

bool CDynamicObject::RemoveObject(const char* name) { return name && objects.Remove(name); }

} // namespace Vorin::Runtime
