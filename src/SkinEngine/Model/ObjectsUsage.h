#pragma once

#include "SkinEngine/Document/NameMap.h"

#include <string>
#include <string_view>

namespace Vorin::AppEngine {

/// Tells and records which identifiers a skin refers to, so that nothing is built that nobody uses.
///
/// Names of items in a collection, "bands[2].gain", and the one that stands for all of them,
/// "bands[*].gain", are one and the same here. Who refers to what comes with an object, such as
/// "gain.max", refers to the object too. One thread.
class IObjectsUsage {
public:
    /// Counts a use. The identifier "*" means that everything is used.
    virtual void Declare(const char* id) = 0;

    /// How often the identifier is used. A use does not say of what kind the object is: all of
    /// these have one answer. Once everything is used it is at least 1.
    virtual int GetParamCount(const char* id) const = 0;
    virtual int GetStringCount(const char* id) const = 0;
    virtual int GetCurveCount(const char* id) const = 0;
    virtual int GetSurfaceCount(const char* id) const = 0;

    virtual ~IObjectsUsage() = default;
};

/// The identifier with "[*]" in the place of each index.
std::string GetUsageName(std::string_view id);

class CObjectsUsage : public virtual IObjectsUsage {
public:
    void Declare(const char* id) override;
    int GetParamCount(const char* id) const override { return GetUseCount(id); }
    int GetStringCount(const char* id) const override { return GetUseCount(id); }
    int GetCurveCount(const char* id) const override { return GetUseCount(id); }
    int GetSurfaceCount(const char* id) const override { return GetUseCount(id); }

private:
    int GetUseCount(const char* id) const;

    TNameMap<int> uses;
    bool isEverythingUsed = false;
};

} // namespace Vorin::AppEngine
