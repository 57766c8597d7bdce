#include "runtime/ObjectsFactory.h"

namespace Vorin::Runtime {

namespace {

Containers::CCharString KeyOf(const char* classId, const char* interfaceId) {
    Containers::CCharString key(classId);
    key.Append('-');
    key.Append(interfaceId);
    return key;
}

} // namespace

CObjectsFactory& CObjectsFactory::Instance() {
    static CObjectsFactory instance;
    return instance;
}

bool CObjectsFactory::Register(const char* classId, const char* interfaceId,
                               IObjectFactory* factory) {
    if (!classId || !interfaceId || !factory) {
        return false;
    }
    Instance().factories.Obtain(KeyOf(classId, interfaceId).Get()).value = factory;
    return true;
}

IDynamicObject* CObjectsFactory::CreateObject(const char* classId, const char* interfaceId) {
    if (!classId || !interfaceId) {
        return nullptr;
    }
    const auto* entry = factories.Find(KeyOf(classId, interfaceId).Get());
    return entry ? entry->value->CreateObject(classId, interfaceId) : nullptr;
}

IDynamicObject* CObjectsFactory::CreateObject(const char* id) { return CreateObject(id, id); }

} // namespace Vorin::Runtime
