#pragma once

#include "SkinEngine/Model/DynamicObjectsDictionary.h"

#include <vector>

namespace Vorin::AppEngine {

/// The objects of a model that others may reach: the plug-in, or another model. One thread.
class ISkinModelExposure : public virtual Runtime::IDynamicObjectsDictionary {
public:
    /// Exposes an object of the model, with all that comes with it. False when the model has no
    /// such object, or it is exposed already.
    virtual bool MakeExposed(const char* id) = 0;

    virtual bool IsExposed(const char* id) const = 0;

    /// In the order of the identifiers.
    virtual std::vector<ISkinDynamicObjectsDictionary::Entry> GetEntries() const = 0;
};

class CSkinModelExposure : public virtual ISkinModelExposure {
public:
    /// The objects to choose from, which outlive the exposure.
    explicit CSkinModelExposure(const CDynamicObjectsDictionary& modelObjects)
        : objects(modelObjects) {}

    bool MakeExposed(const char* id) override {
        Runtime::IDynamicObject* object = objects.Get(id);
        return object && !IsExposed(id) && exposedObjects.Add(id, object, Core::kDontOwn);
    }
    bool IsExposed(const char* id) const override { return exposedObjects.Get(id) != nullptr; }
    Runtime::IDynamicObject* Get(const char* id) const override { return exposedObjects.Get(id); }
    std::vector<ISkinDynamicObjectsDictionary::Entry> GetEntries() const override {
        return exposedObjects.GetEntries();
    }

    /// For an object that goes.
    void Remove(const char* id) { exposedObjects.Remove(id); }

private:
    const CDynamicObjectsDictionary& objects;
    CDynamicObjectsDictionary exposedObjects;
};

} // namespace Vorin::AppEngine
