#include "datamodel/StringInfo.h"

namespace Vorin::DataModel::Objects {

CStringInfo::CStringInfo(const char* nameText, const char* commentText, bool initialFlag,
                         const char* initialText)
    : CObjectInfo(nameText, commentText), defaultText(initialText), flag(initialFlag) {}

CStringInfo& CStringInfo::operator=(const CStringInfo& other) {
    CStringInfo::CopyFrom(other);
    return *this;
}

void CStringInfo::SetDefaultText(const char* text) {
    defaultText = text;
    NotifyChanged();
}

void CStringInfo::SetFlag(bool value) {
    flag = value;
    NotifyChanged();
}

void CStringInfo::CopyFrom(const IConstStringInfo& other) {
    AssignTexts(other);
    defaultText = other.GetDefaultText();
    flag = other.GetFlag();
    NotifyChanged();
}

} // namespace Vorin::DataModel::Objects
