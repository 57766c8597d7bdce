#include "datamodel/ProductInfo.h"

namespace Vorin::DataModel::Objects {

CProductInfo::CProductInfo(const char* nameText, const char* shortNameText, const char* versionText,
                           const char* vendorText)
    : name(nameText), shortName(shortNameText), version(versionText), vendor(vendorText) {}

CProductInfo& CProductInfo::operator=(const CProductInfo& other) {
    CProductInfo::CopyFrom(other);
    return *this;
}

void CProductInfo::CopyFrom(const IConstProductInfo& other) {
    name = other.GetName();
    shortName = other.GetShortName();
    version = other.GetVersion();
    vendor = other.GetVendor();
    changed.Notify();
}

void CProductInfo::Store(Containers::CCharString& field, const char* text) {
    field = text;
    changed.Notify();
}

} // namespace Vorin::DataModel::Objects
