#pragma once

#include "containers/CharString.h"
#include "core/EventProvider.h"

namespace Vorin::DataModel::Objects {

/// What a model object is called. An info describes an object and is apart from its value.
///
/// Infos belong to the thread that owns their object; another thread gets a copy. A copy has no
/// listeners. Texts are never null, and live until the next change of the info.
class IConstObjectInfo {
public:
    virtual const char* GetName() const = 0;
    virtual const char* GetComment() const = 0;

    /// Fired once after each change of the info. Listening does not change it, hence const.
    virtual Core::IEventProvider& GetInfoChangedEvents() const = 0;

    virtual ~IConstObjectInfo() = default;
};

/// An info that can be changed. Its setters store and fire without comparing.
class IObjectInfo : public virtual IConstObjectInfo {
public:
    /// Null counts as the empty text.
    virtual void SetName(const char* text) = 0;
    virtual void SetComment(const char* text) = 0;

    /// Takes over all fields and fires once.
    virtual void CopyFrom(const IConstObjectInfo& other) = 0;
};

/// Name and comment; also the base of the infos that add no more than fields.
class CObjectInfo : public virtual IObjectInfo {
public:
    CObjectInfo() = default;
    CObjectInfo(const char* nameText, const char* commentText);
    CObjectInfo(const CObjectInfo&) = default;
    CObjectInfo& operator=(const CObjectInfo& other);

    const char* GetName() const override { return name.Get(); }
    const char* GetComment() const override { return comment.Get(); }
    Core::IEventProvider& GetInfoChangedEvents() const override { return changed; }

    void SetName(const char* text) override;
    void SetComment(const char* text) override;
    void CopyFrom(const IConstObjectInfo& other) override;

protected:
    void NotifyChanged() { changed.Notify(); }

    /// Takes over the fields without firing.
    void AssignTexts(const IConstObjectInfo& other);

private:
    mutable Core::CEventProvider changed;
    Containers::CCharString name;
    Containers::CCharString comment;
};

} // namespace Vorin::DataModel::Objects
