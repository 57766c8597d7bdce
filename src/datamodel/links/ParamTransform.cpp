#include "datamodel/links/ParamTransform.h"

#include "math/LibraryFunction.h"

namespace Vorin::DataModel::Objects {

namespace {

/// Into 0 to 1; NaN becomes 1, as a parameter makes its maximum of it.
double ClampPosition(double position) {
    if (0.0 > position) {
        return 0.0;
    }
    return 1.0 >= position ? position : 1.0;
}

} // namespace

double MapSourceValue(double value, const IConstParamInfo& source, bool normalized) {
    return normalized ? source.GetPositionMapper().ValueToPosition(value) : value;
}

double TransformMapped(double mapped, const CParamTransform& transform,
                       const IConstParamInfo& target) {
    const double y = transform.function.Evaluate(mapped);
    if (transform.normalized) {
        const double position = ClampPosition(transform.reversed ? 1.0 - y : y);
        return target.GetPositionMapper().PositionToValue(position);
    }
    return transform.reversed ? target.GetMin() + target.GetMax() - y : y;
}

double TransformValue(double value, const CParamTransform& transform, const IConstParamInfo& source,
                      const IConstParamInfo& target) {
    return TransformMapped(MapSourceValue(value, source, transform.normalized), transform, target);
}

Math::IFunction& GetIdentityFunction() { return *Math::GetNeutralFunction<Math::IFunction>(); }

} // namespace Vorin::DataModel::Objects
