#pragma once

#include "core/Ownership.h"
#include "datamodel/DynamicPropertyValue.h"
#include "datamodel/ObjectInfo.h"

namespace Vorin::DataModel::Objects {

/// What a custom property is: name, comment and default.
class IConstCustomPropertyInfo : public virtual IConstObjectInfo {
public:
    /// Null when there is none. Lives until the info changes.
    virtual const IDynamicPropertyValue* GetDefaultValue() const = 0;
};

class CCustomPropertyInfo : public CObjectInfo, public virtual IConstCustomPropertyInfo {
public:
    CCustomPropertyInfo() = default;

    /// Takes `initial`, which may be null, over.
    CCustomPropertyInfo(const char* nameText, const char* commentText,
                        IDynamicPropertyValue* initial = nullptr);
    CCustomPropertyInfo(const CCustomPropertyInfo&) = default;
    CCustomPropertyInfo& operator=(const CCustomPropertyInfo& other);

    const IDynamicPropertyValue* GetDefaultValue() const override { return defaultValue.Get(); }

    /// Takes `value`, which may be null, over and deletes the previous default.
    void SetDefaultValue(IDynamicPropertyValue* value);

    using CObjectInfo::CopyFrom;
    /// Takes over all fields, with a clone of the default, and fires once.
    void CopyFrom(const IConstCustomPropertyInfo& other);

private:
    Core::TOwnershipWithClone<IDynamicPropertyValue> defaultValue;
};

} // namespace Vorin::DataModel::Objects
