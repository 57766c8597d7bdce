#pragma once

#include "SkinEngine/Document/NameMap.h"
#include "SkinEngine/Model/ModelObject.h"
#include "core/ArgEventProvider.h"
#include "core/MessageLog.h"
#include "core/Ownership.h"
#include "runtime/DynamicObjectsDictionary.h"

#include <functional>
#include <string>
#include <vector>

namespace Vorin::AppEngine {

/// Model objects by identifier, case-sensitive. One thread.
class ISkinDynamicObjectsDictionary : public virtual Runtime::IDynamicObjectsDictionary {
public:
    struct Entry {
        const char* id;
        Runtime::IDynamicObject* object;
    };

    /// Takes an owned object over in any case. An identifier that stands already, or that comes
    /// with an object that does, is an error in the log, and false: the first object stays.
    virtual bool Add(const char* id, Runtime::IDynamicObject* object,
                     Core::EOwnership ownership) = 0;

    /// False for an unknown identifier.
    virtual bool Remove(const char* id) = 0;

    /// All that were added, in the order of their identifiers. What comes with them is left out.
    virtual std::vector<Entry> GetEntries() const = 0;

    /// Told of each addition.
    virtual Core::TIArgEventProvider<Entry&>& GetAddedEvents() = 0;
};

/// The dictionary. Looks also for what comes with its objects: "a.info" when "a" is a parameter.
class CDynamicObjectsDictionary : public virtual ISkinDynamicObjectsDictionary {
public:
    /// Without a log nothing is said. It outlives the dictionary, or another one is set before.
    explicit CDynamicObjectsDictionary(Core::IMessageLog* messageLog = nullptr) : log(messageLog) {}

    void SetLog(Core::IMessageLog* messageLog) { log = messageLog; }
    Core::IMessageLog* GetLog() const { return log; }

    Runtime::IDynamicObject* Get(const char* id) const override;
    bool Add(const char* id, Runtime::IDynamicObject* object, Core::EOwnership ownership) override;
    bool Remove(const char* id) override;
    std::vector<Entry> GetEntries() const override;
    Core::TIArgEventProvider<Entry&>& GetAddedEvents() override { return addedEvents; }

    /// What was added under exactly this identifier, or null.
    Runtime::IDynamicObject* GetOwn(const char* id) const;

    int GetCount() const { return static_cast<int>(objects.size()); }
    void Clear() { objects.clear(); }

private:
    bool Refuse(const char* id);
    bool RefuseDerivedOf(const char* id, Runtime::IDynamicObject* object);

    TNameMap<Core::TOwnership<Runtime::IDynamicObject>> objects;
    Core::TArgEventProvider<Entry&> addedEvents;
    Core::IMessageLog* log;
};

} // namespace Vorin::AppEngine
