#include "math/CircularLUTFunction.h"
#include "math/Constant.h"
#include "math/FunctionsOperation.h"
#include "math/LUTFunction.h"
#include "math/LibraryFunction.h"
#include "runtime/ObjectsFactory.h"

namespace Vorin::Math {

namespace {

/// The class identifier is what the objects themselves report, so the two cannot differ.
template <class C, class I>
void Register(const char* interfaceId) {
    const char* classId = C().GetType();
    static Runtime::TObjectFactory<C, I> factory(classId, interfaceId);
    Runtime::CObjectsFactory::Register(classId, interfaceId, &factory);
}

template <class C>
void RegisterFunction() {
    Register<C, IFunction>(kFunctionInterface);
}

template <class T>
void RegisterTables() {
    using Spline = TLookupTable<T, TConstrainedSplineInterpolator<T, T>>;
    RegisterFunction<TLUTFunction<TLookupTable<T, TNearestInterpolator<T, T>>>>();
    RegisterFunction<TLUTFunction<TLookupTable<T, TLinearInterpolator<T, T>>>>();
    RegisterFunction<TLUTFunction<Spline>>();
    RegisterFunction<TCircularLUTFunction<Spline>>();
}

bool RegisterAll() {
    LibraryFunctions::ForEach([]<double (*F)(double)>() { RegisterFunction<TFunction<F>>(); });
    LibraryBinaryFunctions::ForEach([]<double (*F)(double, double)>() {
        Register<TBinaryFunction<F>, IBinaryFunction>(kBinaryFunctionInterface);
    });
    FunctionsOperations::ForEach(
        []<double (*F)(double, double)>() { RegisterFunction<TFunctionsOperation<F>>(); });
    RegisterTables<double>();
    RegisterTables<float>();
    Register<CConstant, IConstant>(kConstantInterface);
    RegisterFunction<CConstantFunction>();
    Register<CConstantBinaryFunction, IBinaryFunction>(kBinaryFunctionInterface);
    return true;
}

} // namespace

bool RegisterFunctions() {
    static const bool registered = RegisterAll();
    return registered;
}

} // namespace Vorin::Math
