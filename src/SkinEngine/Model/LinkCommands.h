#pragma once

#include "SkinEngine/Model/SkinModelFactory.h"

#include <functional>
#include <string>
#include <utility>

namespace Vorin::AppEngine {

/// Connects something to the object of an identifier, once all objects exist. Messages stand where
/// the element does that asked for the connection. When the object goes before the model of the
/// factory does, the connection is undone.
///
/// `I` is the interface that the object must have; `kindWord` is what messages call that kind.
template <class I>
class TLinkCommand : public CSkinModelFactory::CLinkCommand {
public:
    TLinkCommand(CSkinModelFactory& modelFactory, const char* objectId, const char* objectKindWord)
        : factory(modelFactory), id(objectId), kindWord(objectKindWord),
          place(modelFactory.GetLog().GetPlace()) {}

    bool Execute() override {
        const Core::CPlaceScope scope(factory.GetLog(), place);
        auto* found = dynamic_cast<CModelObject*>(factory.FindObject(id.c_str()));
        if (!found) {
            return factory.LogError(id + ": Unknown identifier (object does not exist).");
        }
        I* object = CastModelObject<I>(found);
        if (!object) {
            return factory.LogError(id + ": Unknown " + kindWord +
                                    " identifier (wrong object type).");
        }
        factory.GetModel().AddUse(*found, Connect(*object));
        return true;
    }

protected:
    const std::string& GetId() const { return id; }

    /// Connects, and gives what undoes it.
    virtual std::function<void()> Connect(I& object) = 0;

private:
    CSkinModelFactory& factory;
    const std::string id;
    const char* kindWord;
    const Core::CDocumentPlace place;
};

/// Connects by a member that takes a pointer; null undoes it.
template <class C, class I, class O = C>
class TConnectCommand final : public TLinkCommand<I> {
public:
    using Function = void (O::*)(I*);

    TConnectCommand(CSkinModelFactory& modelFactory, const char* objectId, C& connectedTarget,
                    Function connectFunction, const char* word = TModelKind<I>::kWord)
        : TLinkCommand<I>(modelFactory, objectId, word), target(connectedTarget),
          function(connectFunction) {}

private:
    std::function<void()> Connect(I& object) override {
        (target.*function)(&object);
        return [&target = target, function = function] { (target.*function)(nullptr); };
    }

    C& target;
    Function function;
};

/// Connects by a member that takes a reference; another one undoes it.
template <class C, class I, class O = C>
class TConnectByRefCommand final : public TLinkCommand<I> {
public:
    using Function = void (O::*)(I&);

    TConnectByRefCommand(CSkinModelFactory& modelFactory, const char* objectId, C& connectedTarget,
                         Function connectFunction, std::function<void()> undoFunction,
                         const char* word = TModelKind<I>::kWord)
        : TLinkCommand<I>(modelFactory, objectId, word), target(connectedTarget),
          function(connectFunction), undo(std::move(undoFunction)) {}

private:
    std::function<void()> Connect(I& object) override {
        (target.*function)(object);
        return undo;
    }

    C& target;
    Function function;
    std::function<void()> undo;
};

/// Connects by a member that takes the identifier too. Its result, if any, is not asked for.
/// `undo` is given the object that goes.
template <class C, class I, class R = void, class O = C>
class TConnectByRefWithIdCommand final : public TLinkCommand<I> {
public:
    using Function = R (O::*)(const char*, I&);
    using Undo = std::function<void(const char* id, I& object)>;

    TConnectByRefWithIdCommand(CSkinModelFactory& modelFactory, const char* objectId,
                               C& connectedTarget, Function connectFunction, Undo undoFunction,
                               const char* word = TModelKind<I>::kWord)
        : TLinkCommand<I>(modelFactory, objectId, word), target(connectedTarget),
          function(connectFunction), undo(std::move(undoFunction)) {}

private:
    std::function<void()> Connect(I& object) override {
        static_cast<void>((target.*function)(this->GetId().c_str(), object));
        return [undo = undo, id = this->GetId(), &object] { undo(id.c_str(), object); };
    }

    C& target;
    Function function;
    Undo undo;
};

} // namespace Vorin::AppEngine
