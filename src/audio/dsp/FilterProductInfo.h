#pragma once

#include "containers/CharString.h"
#include "datamodel/ProductInfo.h"

namespace Vorin::Audio::DSP {

/// Says what a filter is: its names, its maker and its category. Constant after construction, so
/// any thread may read it.
class IConstFilterProductInfo {
public:
    virtual const char* GetName() const = 0;
    virtual const char* GetDescription() const = 0;
    virtual const DataModel::Objects::IConstProductInfo& GetProductInfo() const = 0;
    virtual ~IConstFilterProductInfo() = default;

    virtual const char* GetVendor() const = 0;
    /// The name under which a host lists it; the name when none was given.
    virtual const char* GetEffectName() const = 0;
    virtual const char* GetVersion() const = 0;
    virtual const char* GetCopyright() const = 0;
    /// 0 analysis; 1 and 3 mastering; 2, 4 and 5 effect; any other code belongs to none of these.
    virtual int GetCategory() const = 0;
};

class CFilterProductInfo : public IConstFilterProductInfo {
public:
    CFilterProductInfo(const char* vendor, const char* name, const char* version,
                       const char* copyright, const char* description, int category,
                       const char* effectName);

    const char* GetName() const override { return product.GetName(); }
    const char* GetDescription() const override { return description.Get(); }
    const DataModel::Objects::IConstProductInfo& GetProductInfo() const override { return product; }
    const char* GetVendor() const override { return product.GetVendor(); }
    const char* GetEffectName() const override;
    const char* GetVersion() const override { return product.GetVersion(); }
    const char* GetCopyright() const override { return copyright.Get(); }
    int GetCategory() const override { return category; }

private:
    DataModel::Objects::CProductInfo product;
    Containers::CCharString copyright;
    Containers::CCharString description;
    int category;
};

} // namespace Vorin::Audio::DSP
