#pragma once

#include "datamodel/objects/CaptureObject.h"
#include "math/LibraryFunction.h"
#include "math/ParametrizedFunction.h"

#include <utility>

namespace Vorin::DataModel::Objects {

/// A parameter as a formula of the interface `F` reads it: by its value, at the places of a name.
template <class F>
class TLentParam {
public:
    using Object = IConstCaptureParam;
    using CFormula = Math::TParametrizedFunction<F>;

    explicit TLentParam(Object& lender) : object(&lender) {}

    /// Writes the value at a name of the formula; false when there is no such name.
    bool SetIn(CFormula& formula, const char* name) {
        places = formula.FindConstant(name);
        if (places) {
            Update();
        }
        return static_cast<bool>(places);
    }

    /// Writes the value, which has changed, where it was written before.
    void Update() {
        places.ForEach([value = object->GetValue()](auto& place) { place.SetValue(value); });
    }

    /// What was lent, or null when it was taken back before.
    Object* TakeBack() { return std::exchange(object, nullptr); }

private:
    Object* object;
    typename Math::TPlaceholders<typename CFormula::Constant>::CPlaces places;
};

/// The function of a model object of type `O`, as a function that is looked up at each use: the
/// object replaces its function whenever it likes, and a formula that borrowed the function itself
/// would be left with what is gone. Once taken back it is the neutral function.
///
/// A clone is a clone of the function as it is then.
template <class F, class O>
class TLentFunction : public virtual F {
public:
    using Object = O;

    explicit TLentFunction(Object& lender) : object(&lender) {}
    TLentFunction(const TLentFunction&) = delete;
    TLentFunction& operator=(const TLentFunction&) = delete;

    const char* GetType() const override { return Get().GetType(); }
    F* Clone() const override { return Get().Clone(); }
    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return Get().Serialize(stream);
    }

    /// False: the function belongs to the object.
    bool DeSerialize(const Serialization::IReadDataStream&) override { return false; }

    /// The function is looked up at its next use.
    void Update() {}

    Object* TakeBack() { return std::exchange(object, nullptr); }

protected:
    const F& Get() const { return object ? object->GetValue() : *Math::GetNeutralFunction<F>(); }

private:
    Object* object;
};

class CLentCurve : public TLentFunction<Math::IFunction, IConstCaptureCurve> {
public:
    using TLentFunction::TLentFunction;

    double Evaluate(double x) const override { return Get().Evaluate(x); }

    template <class F>
    bool SetIn(F& formula, const char* name) {
        return formula.SetFunction(name, *this);
    }
};

class CLentSurface : public TLentFunction<Math::IBinaryFunction, IConstCaptureSurface> {
public:
    using TLentFunction::TLentFunction;

    double Evaluate(double x, double y) const override { return Get().Evaluate(x, y); }

    template <class F>
    bool SetIn(F& formula, const char* name) {
        return formula.SetBinaryFunction(name, *this);
    }
};

} // namespace Vorin::DataModel::Objects
