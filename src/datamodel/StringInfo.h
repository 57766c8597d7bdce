#pragma once

#include "datamodel/ObjectInfo.h"

namespace Vorin::DataModel::Objects {

/// What a string object is: name, comment, default text, and a flag that is the using filter's own.
class IConstStringInfo : public virtual IConstObjectInfo {
public:
    virtual const char* GetDefaultText() const = 0;
    virtual bool GetFlag() const = 0;
};

class CStringInfo : public CObjectInfo, public virtual IConstStringInfo {
public:
    CStringInfo() = default;
    CStringInfo(const char* nameText, const char* commentText, bool initialFlag = false,
                const char* initialText = "");
    CStringInfo(const CStringInfo&) = default;
    CStringInfo& operator=(const CStringInfo& other);

    const char* GetDefaultText() const override { return defaultText.Get(); }
    bool GetFlag() const override { return flag; }

    void SetDefaultText(const char* text);
    void SetFlag(bool value);

    using CObjectInfo::CopyFrom;
    /// Takes over all fields and fires once.
    void CopyFrom(const IConstStringInfo& other);

private:
    Containers::CCharString defaultText;
    bool flag = false;
};

} // namespace Vorin::DataModel::Objects
