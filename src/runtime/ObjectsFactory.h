#pragma once

#include "containers/TextMap.h"
#include "runtime/DynamicObject.h"

#include <cstring>
#include <type_traits>

namespace Vorin::Runtime {

/// Makes objects of a class known by a text id, seen as an interface known by another.
///
/// Ids are unique texts, GUIDs in braces by custom; nothing parses them.
class IObjectFactory {
public:
    /// A new object that the caller owns, or null when the ids are not this factory's.
    virtual IDynamicObject* CreateObject(const char* classId, const char* interfaceId) = 0;
    virtual ~IObjectFactory() = default;
};

/// Makes a `C`, seen as `I`, when both ids are its own. The ids outlive the factory.
template <class C, class I>
class TObjectFactory : public IObjectFactory {
    static_assert(std::is_base_of_v<I, C> && std::is_base_of_v<IDynamicObject, I>);

public:
    TObjectFactory(const char* ownClassId, const char* ownInterfaceId)
        : classId(ownClassId), interfaceId(ownInterfaceId) {}

    IDynamicObject* CreateObject(const char* wantedClass, const char* wantedInterface) override {
        if (!wantedClass || !wantedInterface || std::strcmp(wantedClass, classId) != 0 ||
            std::strcmp(wantedInterface, interfaceId) != 0) {
            return nullptr;
        }
        return static_cast<I*>(new C);
    }

private:
    const char* classId;
    const char* interfaceId;
};

/// The registry of the process: from class id and interface id to a factory.
///
/// Written only during static initialisation, by the globals of the classes' files; read later
/// from any thread. Usable before `main`, in any order of the files.
class CObjectsFactory {
public:
    /// The one registry of the process, made on first use.
    static CObjectsFactory& Instance();

    /// Makes `factory`, which stays the caller's and outlives its use, responsible for the pair of
    /// ids. A second registration of a pair replaces the first. False for a null.
    static bool Register(const char* classId, const char* interfaceId, IObjectFactory* factory);

    /// A new object that the caller owns and narrows with `dynamic_cast`, or null when nobody
    /// makes that pair of ids.
    virtual IDynamicObject* CreateObject(const char* classId, const char* interfaceId);

    /// The same with one id for both.
    virtual IDynamicObject* CreateObject(const char* id);

    virtual ~CObjectsFactory() = default;

    CObjectsFactory(const CObjectsFactory&) = delete;
    CObjectsFactory& operator=(const CObjectsFactory&) = delete;

private:
    CObjectsFactory() = default;

    Containers::TTextMap<IObjectFactory*> factories;
};

/// A factory that registers itself: a global of it in the file of `C` makes `C` known.
///
/// Nothing refers to such a global, so a linker that takes the file from a static library drops
/// the registration with it, unless something else of that file is used.
template <class C, class I>
class TRegisteredObjectFactory final : public TObjectFactory<C, I> {
public:
    TRegisteredObjectFactory(const char* ownClassId, const char* ownInterfaceId)
        : TObjectFactory<C, I>(ownClassId, ownInterfaceId) {
        CObjectsFactory::Register(ownClassId, ownInterfaceId, this);
    }
    TRegisteredObjectFactory(const TRegisteredObjectFactory&) = delete;
    TRegisteredObjectFactory& operator=(const TRegisteredObjectFactory&) = delete;
};

} // namespace Vorin::Runtime
