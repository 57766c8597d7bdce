#include "datamodel/ObjectInfo.h"

namespace Vorin::DataModel::Objects {

CObjectInfo::CObjectInfo(const char* nameText, const char* commentText)
    : name(nameText), comment(commentText) {}

CObjectInfo& CObjectInfo::operator=(const CObjectInfo& other) {
    CObjectInfo::CopyFrom(other);
    return *this;
}

void CObjectInfo::SetName(const char* text) {
    name = text;
    changed.Notify();
}

void CObjectInfo::SetComment(const char* text) {
    comment = text;
    changed.Notify();
}

void CObjectInfo::CopyFrom(const IConstObjectInfo& other) {
    AssignTexts(other);
    changed.Notify();
}

void CObjectInfo::AssignTexts(const IConstObjectInfo& other) {
    name = other.GetName();
    comment = other.GetComment();
}

} // namespace Vorin::DataModel::Objects
