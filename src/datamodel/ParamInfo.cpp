#include "datamodel/ParamInfo.h"

namespace Vorin::DataModel::Objects {

namespace {

/// Less or greater, deliberately not `!=`: a NaN never replaces a number.
bool Differs(double a, double b) { return a < b || a > b; }

} // namespace

CParamInfo::CParamInfo() : CParamInfo(kParamReal, "", "", "", nullptr, nullptr, 0.0, 0.0, 0.0) {}

CParamInfo::CParamInfo(EParamType paramType, const char* nameText, const char* unitText,
                       const char* commentText, IParamValueToText* newValueToText,
                       IParamPositionMapper* mapper, double rangeMin, double rangeMax,
                       double initial)
    : type(paramType), name(nameText), unit(unitText), comment(commentText), min(rangeMin),
      max(rangeMax), defaultValue(initial), linearMapper(paramType, rangeMin, rangeMax) {
    HoldValueToText(newValueToText, Core::kOwn);
    HoldPositionMapper(mapper, Core::kOwn);
}

CParamInfo::CParamInfo(const CParamInfo& other) : CParamInfo() { Assign(other); }

CParamInfo& CParamInfo::operator=(const CParamInfo& other) {
    CParamInfo::CopyFrom(other);
    return *this;
}

void CParamInfo::SetType(EParamType newType) {
    if (type == newType) {
        return;
    }
    type = newType;
    linearMapper.SetType(newType);
    changed.Notify();
}

void CParamInfo::SetName(const char* text) {
    name = text;
    changed.Notify();
}

void CParamInfo::SetUnit(const char* text) {
    unit = text;
    changed.Notify();
}

void CParamInfo::SetComment(const char* text) {
    comment = text;
    changed.Notify();
}

void CParamInfo::SetMin(double value) {
    if (Differs(value, min)) {
        min = value;
        linearMapper.SetMin(value);
        changed.Notify();
    }
}

void CParamInfo::SetDefault(double value) {
    if (Differs(value, defaultValue)) {
        defaultValue = value;
        changed.Notify();
    }
}

void CParamInfo::SetMax(double value) {
    if (Differs(value, max)) {
        max = value;
        linearMapper.SetMax(value);
        changed.Notify();
    }
}

void CParamInfo::SetValueToText(IParamValueToText* newValueToText, Core::EOwnership ownership) {
    HoldValueToText(newValueToText, ownership);
    changed.Notify();
}

void CParamInfo::CopyFrom(const IConstParamInfo& other) {
    Assign(other);
    changed.Notify();
}

void CParamInfo::SetPositionMapper(IParamPositionMapper* mapper, Core::EOwnership ownership) {
    HoldPositionMapper(mapper, ownership);
    changed.Notify();
}

void CParamInfo::Assign(const IConstParamInfo& other) {
    comment = other.GetComment();
    defaultValue = other.GetDefault();
    max = other.GetMax();
    min = other.GetMin();
    name = other.GetName();
    type = other.GetType();
    unit = other.GetUnit();
    linearMapper = CLinearPositionMapper(type, min, max);
    HoldValueToText(other.GetValueToText().Clone(), Core::kOwn);
    HoldCloneOfMapper(other);
}

void CParamInfo::HoldValueToText(IParamValueToText* newValueToText, Core::EOwnership ownership) {
    if (newValueToText) {
        valueToText.Set(newValueToText, ownership);
    } else {
        valueToText.Set(new CParamValueToText(GetDefaultFormat(type), false, "{value}"),
                        Core::kOwn);
    }
}

void CParamInfo::HoldPositionMapper(IParamPositionMapper* mapper, Core::EOwnership ownership) {
    if (mapper) {
        positionMapper.Set(mapper, ownership);
    } else {
        positionMapper.Set(&linearMapper, Core::kDontOwn);
    }
}

void CParamInfo::HoldCloneOfMapper(const IConstParamInfo& other) {
    // A straight line over the range is what our own linear mapper is. A clone would keep the range
    // of today when min or max change later.
    const auto* linear = dynamic_cast<const CLinearPositionMapper*>(&other.GetPositionMapper());
    if (linear && linear->GetType() == type && linear->GetMin() == min && linear->GetMax() == max) {
        HoldPositionMapper(nullptr, Core::kDontOwn);
    } else {
        HoldPositionMapper(other.GetPositionMapper().Clone(), Core::kOwn);
    }
}

} // namespace Vorin::DataModel::Objects
