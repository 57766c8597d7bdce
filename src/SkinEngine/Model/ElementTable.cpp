#include "SkinEngine/Model/ElementTable.h"

namespace Vorin::AppEngine {

namespace {

constexpr CElementKind kElementKinds[] = {
    {.name = "MODEL", .make = &MakeModel, .end = &EndModel},
    {.name = "PARAM", .make = &MakeParam},
    {.name = "CURVE", .make = &MakeCurve},
    {.name = "STRING", .make = &MakeString},
    {.name = "FORMULA_PARAM", .make = &MakeFormulaParam, .declare = &DeclareFormula},
    {.name = "FORMULA_CURVE", .make = &MakeFormulaCurve, .declare = &DeclareFormula},
    {.name = "FORMULA_SURFACE", .make = &MakeFormulaSurface, .declare = &DeclareFormula},
    {.name = "CURVE_VALUE_PARAM", .make = &MakeCurveValueParam, .usedIds = "curve_id;x_param_id"},
    {.name = "SURFACE_VALUE_PARAM",
     .make = &MakeSurfaceValueParam,
     .usedIds = "surface_id;x_param_id;y_param_id"},
    {.name = "CURVE_FROM_PARAM_OVER_TIME",
     .make = &MakeCurveFromParamOverTime,
     .usedIds = "param_id"},
    {.name = "SURFACE_FROM_CURVE_OVER_TIME",
     .make = &MakeSurfaceFromCurveOverTime,
     .usedIds = "curve_id"},
    {.name = "PARAM_ANIMATOR", .make = &MakeParamAnimator, .usedIds = "param_id"},
    {.name = "PARAM_LINK", .make = &MakeParamLink, .usedIds = "from;to"},
    {.name = "PARAM_TO_STRING_LINK", .make = &MakeParamToStringLink, .usedIds = "from;to"},
    {.name = "PARAM_CONNECTION", .make = &MakeParamConnection, .usedIds = "id1;id2"},
    {.name = "PARAM_ANIMATED_LINK", .make = &MakeParamAnimatedLink, .usedIds = "from;to"},
    {.name = "CURVE_LINK", .make = &MakeCurveLink, .usedIds = "from;to"},
    {.name = "STRING_LINK", .make = &MakeStringLink, .usedIds = "from;to"},
    {.name = "PARAM_MULTI_LINK", .make = &MakeParamMultiLink, .usedIds = "from;to"},
    {.name = "CURVE_MULTI_LINK", .make = &MakeCurveMultiLink, .usedIds = "from;to"},
    {.name = "STRING_MULTI_LINK", .make = &MakeStringMultiLink, .usedIds = "from;to"},
    {.name = "FUNCTION_INVOKE_ACTION",
     .make = &MakeFunctionInvokeAction,
     .declare = &DeclareFunctionInvokeAction},
    {.name = "ACTION", .make = &MakeAction, .declare = &DeclareAction},
    {.name = "PERSISTENT_PARAMS",
     .make = &MakePersistentObjects,
     .usedIds = "object_ids;param_ids"},
    {.name = "PERSISTENT_OBJECTS",
     .make = &MakePersistentObjects,
     .usedIds = "object_ids;param_ids"},
    {.name = "EXPOSED_OBJECTS", .make = &MakeExposedObjects, .usedIds = "object_ids;param_ids"},
    {.name = "COLLECTION",
     .make = &MakeCollection,
     .end = &EndCollection,
     .declare = &DeclareCollection,
     .declareEnd = &EndDeclaredCollection},
    {.name = "FOREACH",
     .make = &MakeForEach,
     .end = &EndCollection,
     .declare = &DeclareCollection,
     .declareEnd = &EndDeclaredCollection},
};

} // namespace

std::span<const CElementKind> GetElementKinds() { return kElementKinds; }

} // namespace Vorin::AppEngine
