#include "datamodel/ParamValueCurve.h"

#include "math/LibraryFunction.h"

#include <cstring>

namespace Vorin::DataModel::Objects {

namespace {

using Library = Math::FunctionsLibrary;
using Maker = std::unique_ptr<Math::IFunction> (*)();

template <double (*F)(double)>
std::unique_ptr<Math::IFunction> Make() {
    return std::make_unique<Math::TFunction<F>>();
}

struct CCurve {
    const char* name;
    const char* displayName;
    Maker forward;
    Maker inverse;
};

constexpr Maker kIdentity = &Make<&Library::Identity>;

constexpr CCurve kCurves[kParamValueCurvesCount] = {
    {"Log3", "Fast 5", &Make<&Library::NormLog3>, &Make<&Library::NormExp3>},
    {"Log2", "Fast 4", &Make<&Library::NormLog2>, &Make<&Library::NormExp2>},
    {"Log1", "Fast 3", &Make<&Library::NormLog1>, &Make<&Library::NormExp1>},
    {"Log0", "Fast 2", kIdentity, kIdentity},
    {"Square Root", "Fast 1", &Make<&Library::SquareRoot>, &Make<&Library::Square>},
    {"Log", "Fast", &Make<&Library::NormLog>, &Make<&Library::NormExp>},
    {"Linear", "Linear", kIdentity, kIdentity},
    {"Exp", "Slow", &Make<&Library::NormExp>, &Make<&Library::NormLog>},
    {"Square", "Slow 1", &Make<&Library::Square>, &Make<&Library::SquareRoot>},
    {"Exp0", "Slow 2", kIdentity, kIdentity},
    {"Exp1", "Slow 3", &Make<&Library::NormExp1>, &Make<&Library::NormLog1>},
    {"Exp2", "Slow 4", &Make<&Library::NormExp2>, &Make<&Library::NormLog2>},
    {"Exp3", "Slow 5", &Make<&Library::NormExp3>, &Make<&Library::NormLog3>},
};

const CCurve* FindCurve(EParamValueCurve curve) {
    return curve >= 0 && curve < kParamValueCurvesCount ? &kCurves[curve] : nullptr;
}

} // namespace

const char* GetParamValueCurveName(EParamValueCurve curve) {
    const CCurve* found = FindCurve(curve);
    return found ? found->name : nullptr;
}

const char* GetParamValueCurveDisplayName(EParamValueCurve curve) {
    const CCurve* found = FindCurve(curve);
    return found ? found->displayName : nullptr;
}

bool FindParamValueCurve(const char* name, EParamValueCurve& curve) {
    for (int i = 0; name && i < kParamValueCurvesCount; ++i) {
        if (std::strcmp(name, kCurves[i].name) == 0) {
            curve = static_cast<EParamValueCurve>(i);
            return true;
        }
    }
    return false;
}

CParamValueCurveFunctions CreateParamValueCurveFunctions(EParamValueCurve curve) {
    const CCurve* found = FindCurve(curve);
    return {found ? found->forward() : kIdentity(), found ? found->inverse() : kIdentity()};
}

} // namespace Vorin::DataModel::Objects
