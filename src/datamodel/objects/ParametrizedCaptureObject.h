#pragma once

#include "containers/TextMap.h"
#include "core/Command.h"
#include "datamodel/objects/CaptureCurve.h"
#include "datamodel/objects/CaptureSurface.h"
#include "datamodel/objects/ChangePass.h"
#include "datamodel/objects/ConstantToCaptureParamAdapter.h"
#include "datamodel/objects/LentFunction.h"
#include "math/ParametrizedFunction.h"

#include <memory>

namespace Vorin::DataModel::Objects {

/// A formula with open names, as a model object to read: each name is connected to another model
/// object, and a change of that one is a change of this. One thread.
///
/// Nothing is computed until somebody reads: parameters are written into the formula when they
/// change, curves and surfaces are read at the moment of the evaluation. `F` is the interface of
/// the formula, `O` the class of the object made of it, `W` its wrapper interface; see the three
/// names below. Objects that lead back to this one are allowed, and do not evaluate for ever.
///
/// A connected object is not owned, and outlives this one or its `Disconnect`. After `Disconnect`
/// parameters keep their last value, and curves and surfaces count as not connected.
template <class F, class O, class W>
class TParametrizedCaptureObject : public O, public virtual W {
public:
    using CFunction = Math::TParametrizedFunction<F>;

    /// Copies the info and takes the formula, which is not null, over.
    template <class I>
    TParametrizedCaptureObject(const I& source, CFunction* newFunction)
        : O(source, newFunction->GetFunction(), Core::kDontOwn), function(newFunction) {}

    ~TParametrizedCaptureObject() override { TParametrizedCaptureObject::Disconnect(); }

    /// To see what names there are.
    const CFunction& GetFunction() const { return *function; }

    /// Connects the name to an object, instead of the one it is connected to. False when the
    /// formula has no such name; otherwise notifies. One name can stand for a parameter, a curve
    /// and a surface at once. `name` is copied, and is not null.
    bool Connect(const char* name, IConstCaptureParam& object) {
        return Bind(params, name, object);
    }
    bool Connect(const char* name, IConstCaptureCurve& object) {
        return Bind(curves, name, object);
    }
    bool Connect(const char* name, IConstCaptureSurface& object) {
        return Bind(surfaces, name, object);
    }

    void Disconnect() override {
        DisconnectAll(params);
        DisconnectAll(curves);
        DisconnectAll(surfaces);
    }

private:
    /// What a name is connected to: its value and its info, of which the range is a part.
    template <class L>
    class TInput {
    public:
        using Object = typename L::Object;

        TInput(TParametrizedCaptureObject& formula, Object& inputObject)
            : owner(formula), lent(inputObject) {
            inputObject.GetValueChangedEvents().Connect(changed);
            inputObject.GetInfo().GetInfoChangedEvents().Connect(changed);
        }
        ~TInput() { Disconnect(); }

        TInput(const TInput&) = delete;
        TInput& operator=(const TInput&) = delete;

        void Disconnect() {
            if (Object* object = lent.TakeBack()) {
                object->GetInfo().GetInfoChangedEvents().Disconnect(changed);
                object->GetValueChangedEvents().Disconnect(changed);
            }
        }

        /// False when the formula has no such name.
        bool SetIn(const char* name) { return lent.SetIn(*owner.function, name); }

    private:
        // A listener of the formula may replace this input: nothing of it is used behind Notify.
        void OnChanged() {
            lent.Update();
            const CChangePass pass;
            if (pass.IsAllowed()) {
                owner.NotifyValueChanged();
            }
        }

        TParametrizedCaptureObject& owner;
        L lent;
        Core::TCommand<TInput> changed{this, &TInput::OnChanged};
    };

    template <class L>
    using TInputs = Containers::TTextMap<std::unique_ptr<TInput<L>>>;

    template <class L>
    bool Bind(TInputs<L>& inputs, const char* name, typename L::Object& object) {
        auto input = std::make_unique<TInput<L>>(*this, object);
        if (!input->SetIn(name)) {
            return false;
        }
        // What was there goes last: up to here the formula may have borrowed from it.
        std::swap(inputs.Obtain(name).value, input);
        input.reset();
        this->NotifyValueChanged();
        return true;
    }

    template <class L>
    static void DisconnectAll(TInputs<L>& inputs) {
        for (auto* entry = inputs.GetFirst(); entry; entry = inputs.GetNext(entry)) {
            entry->value->Disconnect();
        }
    }

    const std::unique_ptr<CFunction> function;
    TInputs<TLentParam<F>> params;
    TInputs<CLentCurve> curves;
    TInputs<CLentSurface> surfaces;
};

using CParametrizedCaptureParam =
    TParametrizedCaptureObject<Math::IConstant, CConstantToCaptureParamAdapter,
                               TIConstCaptureObjectWrapper<double, IConstParamInfo>>;
using CParametrizedCaptureCurve = TParametrizedCaptureObject<
    Math::IFunction, CConstCaptureCurve,
    TIConstCaptureObjectWrapper<const Math::IFunction&, IConstCurveInfo>>;
using CParametrizedCaptureSurface = TParametrizedCaptureObject<
    Math::IBinaryFunction, CConstCaptureSurface,
    TIConstCaptureObjectWrapper<const Math::IBinaryFunction&, IConstSurfaceInfo>>;

} // namespace Vorin::DataModel::Objects
