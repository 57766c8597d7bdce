#pragma once

#include "datamodel/CustomPropertyInfo.h"

namespace Vorin::DataModel::Objects {

/// What a curve or a surface of this info shows while it has no value of its own.
template <class I>
const auto& GetDefaultOf(const I& info) {
    return info.GetDefaultValue();
}

/// What a custom property shows: the default, or the null object when there is none.
inline const IDynamicPropertyValue& GetDefaultOf(const IConstCustomPropertyInfo& info) {
    static const CEmptyDynamicPropertyValue none;
    const IDynamicPropertyValue* value = info.GetDefaultValue();
    return value ? *value : none;
}

} // namespace Vorin::DataModel::Objects
