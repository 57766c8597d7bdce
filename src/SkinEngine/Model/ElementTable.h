#pragma once

#include <span>

namespace Vorin::AppEngine {

class CModelElement;
class CSkinModelFactory;

/// An element of the model's language.
struct CElementKind {
    const char* name;

    /// Its start, and its end where that means something. False when it has failed.
    bool (*make)(CModelElement& element);
    bool (*end)(CSkinModelFactory& factory) = nullptr;

    /// The attributes, parted by ";", that name objects which the element refers to: one or a list.
    const char* usedIds = "";

    /// What else it refers to, and what its end does then: for the pre-pass.
    bool (*declare)(CModelElement& element) = nullptr;
    bool (*declareEnd)(CSkinModelFactory& factory) = nullptr;
};

/// All of them.
std::span<const CElementKind> GetElementKinds();

// The families, a file each.

bool MakeModel(CModelElement& element);
bool EndModel(CSkinModelFactory& factory);

bool MakeParam(CModelElement& element);
bool MakeCurve(CModelElement& element);
bool MakeString(CModelElement& element);

bool MakeFormulaParam(CModelElement& element);
bool MakeFormulaCurve(CModelElement& element);
bool MakeFormulaSurface(CModelElement& element);
bool DeclareFormula(CModelElement& element);

bool MakeCurveValueParam(CModelElement& element);
bool MakeSurfaceValueParam(CModelElement& element);

bool MakeCurveFromParamOverTime(CModelElement& element);
bool MakeSurfaceFromCurveOverTime(CModelElement& element);
bool MakeParamAnimator(CModelElement& element);

bool MakeParamLink(CModelElement& element);
bool MakeParamToStringLink(CModelElement& element);
bool MakeParamConnection(CModelElement& element);
bool MakeParamAnimatedLink(CModelElement& element);
bool MakeCurveLink(CModelElement& element);
bool MakeStringLink(CModelElement& element);

bool MakeParamMultiLink(CModelElement& element);
bool MakeCurveMultiLink(CModelElement& element);
bool MakeStringMultiLink(CModelElement& element);

bool MakeFunctionInvokeAction(CModelElement& element);
bool DeclareFunctionInvokeAction(CModelElement& element);
bool MakeAction(CModelElement& element);
bool DeclareAction(CModelElement& element);

bool MakePersistentObjects(CModelElement& element);
bool MakeExposedObjects(CModelElement& element);

bool MakeCollection(CModelElement& element);
bool MakeForEach(CModelElement& element);
bool EndCollection(CSkinModelFactory& factory);
bool DeclareCollection(CModelElement& element);
bool EndDeclaredCollection(CSkinModelFactory& factory);

} // namespace Vorin::AppEngine
