#include "datamodel/CustomPropertyInfo.h"

namespace Vorin::DataModel::Objects {

CCustomPropertyInfo::CCustomPropertyInfo(const char* nameText, const char* commentText,
                                         IDynamicPropertyValue* initial)
    : CObjectInfo(nameText, commentText), defaultValue(initial, Core::kOwn) {}

CCustomPropertyInfo& CCustomPropertyInfo::operator=(const CCustomPropertyInfo& other) {
    CCustomPropertyInfo::CopyFrom(other);
    return *this;
}

void CCustomPropertyInfo::SetDefaultValue(IDynamicPropertyValue* value) {
    defaultValue.Set(value, Core::kOwn);
    NotifyChanged();
}

void CCustomPropertyInfo::CopyFrom(const IConstCustomPropertyInfo& other) {
    const IDynamicPropertyValue* value = other.GetDefaultValue();
    IDynamicPropertyValue* clone = value ? value->Clone() : nullptr;
    AssignTexts(other);
    defaultValue.Set(clone, Core::kOwn);
    NotifyChanged();
}

} // namespace Vorin::DataModel::Objects
