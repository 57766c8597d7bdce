#pragma once

#include "datamodel/CurveInfo.h"
#include "datamodel/CustomPropertyInfo.h"
#include "datamodel/ParamInfo.h"
#include "datamodel/StringInfo.h"
#include "datamodel/SurfaceInfo.h"

#include <utility>

namespace Vorin::DataModel::Objects {

/// What belongs to a kind of model object: the value it has, and its info by interface and class.
template <class T, class I, class IC>
struct TObjectKind {
    using Value = T;
    using Interface = I;
    using Info = IC;
};

// Declared only: the kind of an info, by the interface it has.
TObjectKind<double, IConstParamInfo, CParamInfo> KindOf(const IConstParamInfo&);
TObjectKind<const char*, IConstStringInfo, CStringInfo> KindOf(const IConstStringInfo&);
TObjectKind<const Math::IFunction&, IConstCurveInfo, CCurveInfo> KindOf(const IConstCurveInfo&);
TObjectKind<const Math::IBinaryFunction&, IConstSurfaceInfo, CSurfaceInfo>
KindOf(const IConstSurfaceInfo&);
TObjectKind<const IDynamicPropertyValue&, IConstCustomPropertyInfo, CCustomPropertyInfo>
KindOf(const IConstCustomPropertyInfo&);

template <class Info>
using TKindOf = decltype(KindOf(std::declval<const Info&>()));

} // namespace Vorin::DataModel::Objects
