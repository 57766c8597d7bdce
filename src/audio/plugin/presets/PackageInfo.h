#pragma once

#include "containers/CharString.h"

namespace Vorin::Audio::Plugin {

/// Whose product a package is. The texts are never null, and constant.
class IPackageInfo {
public:
    virtual const char* GetVendor() const = 0;
    virtual const char* GetProduct() const = 0;
    virtual const char* GetSubPath() const = 0;
    virtual ~IPackageInfo() = default;
};

class CPackageInfo : public virtual IPackageInfo {
public:
    CPackageInfo(const char* vendorText, const char* productText, const char* subPathText = "")
        : vendor(vendorText), product(productText), subPath(subPathText) {}

    const char* GetVendor() const override { return vendor.Get(); }
    const char* GetProduct() const override { return product.Get(); }
    const char* GetSubPath() const override { return subPath.Get(); }

private:
    Containers::CCharString vendor;
    Containers::CCharString product;
    Containers::CCharString subPath;
};

} // namespace Vorin::Audio::Plugin
