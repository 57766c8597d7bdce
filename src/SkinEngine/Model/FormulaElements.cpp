// FORMULA_PARAM, FORMULA_CURVE, FORMULA_SURFACE.

#include "SkinEngine/Formula/ParseFormula.h"
#include "SkinEngine/Model/ElementTable.h"
#include "SkinEngine/Model/InfoAttributes.h"
#include "SkinEngine/Model/LinkCommands.h"
#include "SkinEngine/Model/ModelElement.h"

#include "datamodel/objects/ParametrizedCaptureObject.h"

#include <algorithm>
#include <memory>

namespace Vorin::AppEngine {

namespace {

/// The open names of one kind, in the order of the alphabet: messages about them come in an order
/// that stays.
std::vector<std::string> CollectNames(Containers::IConstValueIterator<const char*>* iterator) {
    const std::unique_ptr<Containers::IConstValueIterator<const char*>> cursor(iterator);
    std::vector<std::string> names;
    for (; !cursor->IsAtEnd(); cursor->Next()) {
        names.emplace_back(cursor->GetValue());
    }
    std::sort(names.begin(), names.end());
    return names;
}

/// Connects the names of one kind. A name whose object goes is left with the placeholder of its
/// kind.
template <class I, class T>
void ConnectNames(CModelElement& element, const std::vector<std::string>& names, T& object,
                  I& placeholder) {
    for (const std::string& name : names) {
        using CConnect = TConnectByRefWithIdCommand<T, I, bool>;
        element.AddLinkCommand(std::make_unique<CConnect>(
            element.GetFactory(), name.c_str(), object,
            static_cast<bool (T::*)(const char*, I&)>(&T::Connect),
            [&object, &placeholder](const char* id, I&) { object.Connect(id, placeholder); }));
    }
}

template <class T>
void ConnectFormula(CModelElement& element, T& object) {
    const auto& formula = object.GetFunction();
    CPlaceholderObjects& placeholders = element.GetModel().GetPlaceholders();
    ConnectNames<Objects::IConstCaptureParam>(
        element, CollectNames(formula.CreateConstantIterator()), object, placeholders.param);
    ConnectNames<Objects::IConstCaptureCurve>(
        element, CollectNames(formula.CreateFunctionIterator()), object, placeholders.curve);
    ConnectNames<Objects::IConstCaptureSurface>(
        element, CollectNames(formula.CreateBinaryFunctionIterator()), object,
        placeholders.surface);
}

template <class T, class I, class Info, class Formula>
bool AddFormula(CModelElement& element, const Info& info, std::unique_ptr<Formula> formula) {
    auto made = std::make_unique<T>(info, formula.release());
    T& object = *made;
    element.GetModel().AddDisconnect(object);
    if (!element.Add<I>(std::move(made))) {
        return false;
    }
    ConnectFormula(element, object);
    return true;
}

/// Declares the open names of a formula of which one kind of value is taken.
template <class Formula>
bool DeclareNames(CModelElement& element, std::unique_ptr<Formula> formula) {
    if (!formula) {
        // Told here, and found again by the main pass: one run is to list all faults.
        element.Fail(std::string(element.GetId()) + ": cannot create object (invalid formula)");
        return true;
    }
    for (auto* iterator : {formula->CreateConstantIterator(), formula->CreateFunctionIterator(),
                           formula->CreateBinaryFunctionIterator()}) {
        for (const std::string& name : CollectNames(iterator)) {
            element.GetUsage().Declare(name.c_str());
        }
    }
    return true;
}

} // namespace

bool MakeFormulaParam(CModelElement& element) {
    if (!element.RequireId("Cannot create param, id field is empty.")) {
        return false;
    }
    if (element.GetUsage().GetParamCount(element.GetId()) == 0) {
        return true;
    }
    auto formula = ParseParametrizedConstant(element.Get("formula"));
    if (!formula) {
        return element.Fail("Cannot create param, invalid formula.");
    }
    Objects::CParamInfo info;
    ReadInfoAttributes(element, info);
    return AddFormula<Objects::CParametrizedCaptureParam, Objects::IConstCaptureParam>(
        element, info, std::move(formula));
}

bool MakeFormulaCurve(CModelElement& element) {
    if (!element.RequireId("Cannot create curve, id field is empty.")) {
        return false;
    }
    if (element.GetUsage().GetCurveCount(element.GetId()) == 0) {
        return true;
    }
    auto formula = ParseParametrizedFunction(element.Get("formula"), element.Get("variable"));
    if (!formula) {
        return element.Fail("Cannot create curve, invalid formula.");
    }
    Objects::CCurveInfo info;
    ReadCurveInfoAttributes(element, info);
    return AddFormula<Objects::CParametrizedCaptureCurve, Objects::IConstCaptureCurve>(
        element, info, std::move(formula));
}

bool MakeFormulaSurface(CModelElement& element) {
    if (!element.RequireId("Cannot create surface, id field is empty.")) {
        return false;
    }
    if (element.GetUsage().GetSurfaceCount(element.GetId()) == 0) {
        return true;
    }
    auto formula = ParseParametrizedBinaryFunction(
        element.Get("formula"), element.Get("x_variable"), element.Get("y_variable"));
    if (!formula) {
        return element.Fail("Cannot create surface, invalid formula.");
    }
    Objects::CSurfaceInfo info;
    ReadSurfaceInfoAttributes(element, info);
    return AddFormula<Objects::CParametrizedCaptureSurface, Objects::IConstCaptureSurface>(
        element, info, std::move(formula));
}

/// With the default variables, whatever the element calls them: that a variable is declared too
/// does no harm.
bool DeclareFormula(CModelElement& element) {
    const std::string kind = element.GetName();
    const char* text = element.Get("formula");
    if (kind == "FORMULA_PARAM") {
        return DeclareNames(element, ParseParametrizedConstant(text));
    }
    if (kind == "FORMULA_CURVE") {
        return DeclareNames(element, ParseParametrizedFunction(text));
    }
    return DeclareNames(element, ParseParametrizedBinaryFunction(text));
}

} // namespace Vorin::AppEngine
