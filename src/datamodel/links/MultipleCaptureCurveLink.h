#pragma once

#include "datamodel/links/MultipleCaptureObjectLink.h"
#include "datamodel/objects/CaptureObject.h"

#include <memory>

namespace Vorin::DataModel::Objects {

/// A curve follows many others: it gets a clone of the one that changed last, or all of them folded
/// into one function.
class CMultipleCaptureCurveLink
    : public TMultipleCaptureObjectLink<IConstCaptureCurve, ICaptureCurve> {
public:
    /// How many functions a fold may consist of, counting those that its parts are folds of. One
    /// that has more is not passed on: where a fold leads back into its own sources it grows with
    /// each change.
    static constexpr int kMaxParts = 1000;

    /// "+", "-", "*" and "/" fold the values of the curves in the order of the sources, leaving out
    /// the target itself. Null or any other word: the curve that changed last.
    void SetMuxFunction(const char* word);

protected:
    void OnSourceChanged() override;

private:
    using Maker = std::unique_ptr<Math::IFunction> (*)(const CMultipleCaptureCurveLink& link);

    template <class F>
    static std::unique_ptr<Math::IFunction> Fold(const CMultipleCaptureCurveLink& link);

    Maker maker = nullptr;
};

} // namespace Vorin::DataModel::Objects
