// A shared library over the static one, as the plug-in is: it names no class of the library.
#include "math/Function.h"
#include "runtime/ObjectsFactory.h"

#include <memory>

/// Makes an object by its ids in this library's own factory; -1 when nobody does, else 1 for one
/// of a type that says so, 0 for another.
extern "C" [[gnu::visibility("default")]] int FunctionsPluginMakes(const char* classId,
                                                                   const char* interfaceId) {
    using namespace Vorin;
    const std::unique_ptr<Runtime::IDynamicObject> made(
        Runtime::CObjectsFactory::Instance().CreateObject(classId, interfaceId));
    if (!made) {
        return -1;
    }
    const auto* typed = dynamic_cast<const Serialization::ITypeSerializable*>(made.get());
    return typed && Containers::CCharString(classId) == typed->GetType() ? 1 : 0;
}
