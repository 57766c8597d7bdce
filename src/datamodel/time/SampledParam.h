#pragma once

#include "core/Command.h"
#include "datamodel/objects/CaptureObject.h"
#include "datamodel/objects/CaptureState.h"

namespace Vorin::DataModel::Objects {

/// What the parameters read from a curve or a surface have in common: any number of ends, each of
/// which may change the value and may be held.
///
/// Whatever an end tells about its value is told on. The parameter is captured while any end is;
/// capture and release are told once, by the first end that is taken and the last one that is let
/// go. An end counts from the moment it is set, when it is held already, until it is replaced.
///
/// Setting or losing an end does not notify the value, deliberately: a link that listens would
/// pass on what is read from half of the ends.
///
/// One thread. The ends are not owned, and outlive their stay here.
class CSampledParam : public TCaptureState<>,
                      public virtual TIConstCaptureObjectWrapper<double, IConstParamInfo> {
public:
    ~CSampledParam() override;

    /// Evaluated at each read. While an end is missing, the default of the info; the same is read
    /// by an end that reads this parameter in turn.
    double GetValue() const final;

    const IConstParamInfo& GetInfo() const override { return info; }
    CParamInfo& GetInfo() { return info; }

protected:
    /// The listeners at one end.
    class CEnd {
    public:
        explicit CEnd(CSampledParam& endOwner) : owner(endOwner) {}
        CEnd(const CEnd&) = delete;
        CEnd& operator=(const CEnd&) = delete;

    protected:
        ~CEnd() { StopListening(); }

        /// Listens to another object, or to none: null in both.
        void Listen(Core::IValueChangedEventProvider* newValue, Core::IConstCapture* newCapture);

    private:
        void StopListening();
        void SetCaptured(bool isHeld);

        void OnValueChanged() { owner.NotifyValueChanged(); }
        void OnCapture() { SetCaptured(true); }
        void OnRelease() { SetCaptured(false); }

        CSampledParam& owner;
        Core::IValueChangedEventProvider* value = nullptr;
        Core::IConstCapture* capture = nullptr;
        bool captured = false;
        Core::TCommand<CEnd> valueCommand{this, &CEnd::OnValueChanged};
        Core::TCommand<CEnd> captureCommand{this, &CEnd::OnCapture};
        Core::TCommand<CEnd> releaseCommand{this, &CEnd::OnRelease};
    };

    /// An end of type O, null at first.
    template <class O>
    class TEnd : public CEnd {
    public:
        using CEnd::CEnd;

        O* Get() const { return object; }
        void Set(O* newObject) {
            object = newObject; // before the listeners hear of it
            Listen(newObject, newObject);
        }

    private:
        O* object = nullptr;
    };

    CSampledParam() = default;

    /// The info becomes a copy of `axis` whenever that changes, from now on. Null: it stays as it
    /// is.
    void FollowInfo(const IConstParamInfo* axis);

private:
    /// What the ends give. False: an end is missing.
    virtual bool Sample(double& result) const = 0;

    void OnAxisChanged() { info.CopyFrom(*followed); }

    CParamInfo info;
    mutable bool sampling = false; // documents of strangers may connect a parameter to itself
    int capturedEnds = 0;
    const IConstParamInfo* followed = nullptr;
    Core::TCommand<CSampledParam> axisChanged{this, &CSampledParam::OnAxisChanged};
};

} // namespace Vorin::DataModel::Objects
