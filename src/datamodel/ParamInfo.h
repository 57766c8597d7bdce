#pragma once

#include "containers/CharString.h"
#include "core/EventProvider.h"
#include "core/Ownership.h"
#include "datamodel/ObjectInfo.h"
#include "datamodel/ParamType.h"
#include "datamodel/ParamValueToText.h"
#include "datamodel/PositionMapper.h"

namespace Vorin::DataModel::Objects {

/// What a parameter, or an axis of a curve or surface, is: name, unit, range, default, how its
/// value reads as text and where it stands within the range.
class IConstParamInfo : public virtual IConstObjectInfo {
public:
    virtual EParamType GetType() const = 0;
    virtual const char* GetUnit() const = 0;

    /// Both live until the info gets another one, or dies.
    virtual const IParamValueToText& GetValueToText() const = 0;
    virtual const IParamPositionMapper& GetPositionMapper() const = 0;

    virtual double GetMin() const = 0;
    virtual double GetDefault() const = 0;
    virtual double GetMax() const = 0;
};

/// A parameter info that can be changed.
///
/// Type and numbers are stored and fired only when they differ; all other setters always fire. A
/// number differs when it is less or greater, so that setting NaN does nothing.
class IParamInfo : public virtual IConstParamInfo {
public:
    virtual void SetType(EParamType newType) = 0;
    virtual void SetName(const char* text) = 0;
    virtual void SetUnit(const char* text) = 0;
    virtual void SetComment(const char* text) = 0;
    virtual void SetMin(double value) = 0;
    virtual void SetDefault(double value) = 0;
    virtual void SetMax(double value) = 0;

    /// Null takes back what a new info of this type has.
    virtual void SetValueToText(IParamValueToText* newValueToText, Core::EOwnership ownership) = 0;

    /// Takes over all fields, with clones of value text and mapper, and fires once.
    virtual void CopyFrom(const IConstParamInfo& other) = 0;

    /// Null takes back the linear mapper of the info.
    virtual void SetPositionMapper(IParamPositionMapper* mapper, Core::EOwnership ownership) = 0;
};

/// A new one is a real without name and with the range 0 to 0. Thread rules as in IConstObjectInfo.
class CParamInfo : public virtual IParamInfo {
public:
    CParamInfo();

    /// Takes `newValueToText` and `mapper` over. Null makes a CParamValueToText of the type's
    /// default format, and the linear mapper of the info.
    CParamInfo(EParamType paramType, const char* nameText, const char* unitText,
               const char* commentText, IParamValueToText* newValueToText,
               IParamPositionMapper* mapper, double rangeMin, double rangeMax, double initial);

    CParamInfo(const CParamInfo& other);
    CParamInfo& operator=(const CParamInfo& other);

    const char* GetName() const override { return name.Get(); }
    const char* GetComment() const override { return comment.Get(); }
    Core::IEventProvider& GetInfoChangedEvents() const override { return changed; }
    EParamType GetType() const override { return type; }
    const char* GetUnit() const override { return unit.Get(); }
    const IParamValueToText& GetValueToText() const override { return *valueToText.Get(); }
    const IParamPositionMapper& GetPositionMapper() const override { return *positionMapper.Get(); }
    double GetMin() const override { return min; }
    double GetDefault() const override { return defaultValue; }
    double GetMax() const override { return max; }

    void SetType(EParamType newType) override;
    void SetName(const char* text) override;
    void SetUnit(const char* text) override;
    void SetComment(const char* text) override;
    void SetMin(double value) override;
    void SetDefault(double value) override;
    void SetMax(double value) override;
    void SetValueToText(IParamValueToText* newValueToText, Core::EOwnership ownership) override;
    void CopyFrom(const IConstParamInfo& other) override;
    void SetPositionMapper(IParamPositionMapper* mapper, Core::EOwnership ownership) override;

private:
    void Assign(const IConstParamInfo& other);
    void HoldValueToText(IParamValueToText* newValueToText, Core::EOwnership ownership);
    void HoldPositionMapper(IParamPositionMapper* mapper, Core::EOwnership ownership);
    void HoldCloneOfMapper(const IConstParamInfo& other);

    EParamType type = kParamReal;
    Containers::CCharString name;
    Containers::CCharString unit;
    Containers::CCharString comment;
    double min = 0.0;
    double max = 0.0;
    double defaultValue = 0.0;
    CLinearPositionMapper linearMapper; // follows type, min and max
    Core::TOwnership<IParamValueToText> valueToText;
    Core::TOwnership<IParamPositionMapper> positionMapper;
    mutable Core::CEventProvider changed;
};

} // namespace Vorin::DataModel::Objects
