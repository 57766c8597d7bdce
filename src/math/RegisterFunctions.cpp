#include "math/CircularLUTFunction.h"
#include "math/Constant.h"
#include "math/DeprecatedCircularLUTFunction.h"
#include "math/FunctionProxy.h"
#include "math/FunctionsCombination.h"
#include "math/FunctionsComposition.h"
#include "math/FunctionsOperation.h"
#include "math/LUTFunction.h"
#include "math/LibraryFunction.h"
#include "math/RegisteredFunctions.h"
#include "math/SweptCurvesFunction.h"
#include "math/SweptValues.h"
#include "runtime/ObjectsFactory.h"

namespace Vorin::Math {

namespace {

// Filled before main, whichever file comes first.
std::vector<CRegisteredFunction>& Registered() {
    static std::vector<CRegisteredFunction> functions;
    return functions;
}

/// The class identifier is what the objects themselves report, so the two cannot differ.
template <class C, class I>
void Register(const char* interfaceId) {
    const char* classId = C().GetType();
    static Runtime::TObjectFactory<C, I> factory(classId, interfaceId);
    Runtime::CObjectsFactory::Register(classId, interfaceId, &factory);
    Registered().push_back({classId, interfaceId});
}

template <class C>
void RegisterFunction() {
    Register<C, IFunction>(kFunctionInterface);
}

template <class C>
void RegisterBinaryFunction() {
    Register<C, IBinaryFunction>(kBinaryFunctionInterface);
}

template <class C>
void RegisterConstant() {
    Register<C, IConstant>(kConstantInterface);
}

template <class T>
void RegisterTables() {
    using Spline = TLookupTable<T, TConstrainedSplineInterpolator<T, T>>;
    RegisterFunction<TLUTFunction<TLookupTable<T, TNearestInterpolator<T, T>>>>();
    RegisterFunction<TLUTFunction<TLookupTable<T, TLinearInterpolator<T, T>>>>();
    RegisterFunction<TLUTFunction<Spline>>();
    RegisterFunction<TCircularLUTFunction<Spline>>();
}

void RegisterLibrary() {
    LibraryFunctions::ForEach([]<double (*F)(double)>() { RegisterFunction<TFunction<F>>(); });
    LibraryBinaryFunctions::ForEach(
        []<double (*F)(double, double)>() { RegisterBinaryFunction<TBinaryFunction<F>>(); });
    FunctionsOperations::ForEach(
        []<double (*F)(double, double)>() { RegisterFunction<TFunctionsOperation<F>>(); });
}

void RegisterCompounds() {
    RegisterFunction<CFunctionProxy>();
    RegisterBinaryFunction<CBinaryFunctionProxy>();
    RegisterFunction<CFunctionsComposition>();
    RegisterBinaryFunction<CBinaryFunctionComposition>();
    RegisterConstant<CConstantComposition>();
    RegisterFunction<CFunctionsCombination>();
    RegisterBinaryFunction<CBinaryFunctionsCombination>();
    RegisterConstant<CConstantsCombination>();
}

bool RegisterAll() {
    RegisterLibrary();
    RegisterTables<double>();
    RegisterTables<float>();
    RegisterFunction<TDeprecatedCircularLUTFunction<
        TLookupTable<float, TConstrainedSplineInterpolator<float, float>>>>();
    RegisterConstant<CConstant>();
    RegisterFunction<CConstantFunction>();
    RegisterBinaryFunction<CConstantBinaryFunction>();
    RegisterCompounds();
    RegisterFunction<CSweptValues>();
    RegisterBinaryFunction<CSweptCurvesFunction>();
    return true;
}

} // namespace

bool RegisterFunctions() {
    static const bool registered = RegisterAll();
    return registered;
}

const std::vector<CRegisteredFunction>& GetRegisteredFunctions() { return Registered(); }

} // namespace Vorin::Math
