#pragma once

#include "containers/CharString.h"
#include "core/EventProvider.h"

namespace Vorin::DataModel::Objects {

/// Who made a product and what it is called. Texts are never null, and live until the next change.
class IConstProductInfo {
public:
    virtual const char* GetName() const = 0;
    virtual const char* GetShortName() const = 0;
    virtual const char* GetVersion() const = 0;
    virtual const char* GetVendor() const = 0;

    /// Fired once after each change of the info.
    virtual Core::IEventProvider& GetInfoChangedEvents() const = 0;

    virtual ~IConstProductInfo() = default;
};

/// Setters copy the text, where null counts as the empty text, and always fire. One thread. A copy
/// has no listeners.
class CProductInfo : public virtual IConstProductInfo {
public:
    CProductInfo() = default;
    CProductInfo(const char* nameText, const char* shortNameText, const char* versionText,
                 const char* vendorText);
    CProductInfo(const CProductInfo&) = default;
    CProductInfo& operator=(const CProductInfo& other);

    const char* GetName() const override { return name.Get(); }
    const char* GetShortName() const override { return shortName.Get(); }
    const char* GetVersion() const override { return version.Get(); }
    const char* GetVendor() const override { return vendor.Get(); }
    Core::IEventProvider& GetInfoChangedEvents() const override { return changed; }

    void SetName(const char* text) { Store(name, text); }
    void SetShortName(const char* text) { Store(shortName, text); }
    void SetVersion(const char* text) { Store(version, text); }
    void SetVendor(const char* text) { Store(vendor, text); }

    /// Takes over all fields and fires once.
    void CopyFrom(const IConstProductInfo& other);

private:
    void Store(Containers::CCharString& field, const char* text);

    Containers::CCharString name;
    Containers::CCharString shortName;
    Containers::CCharString version;
    Containers::CCharString vendor;
    mutable Core::CEventProvider changed;
};

} // namespace Vorin::DataModel::Objects
