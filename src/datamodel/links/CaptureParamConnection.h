#pragma once

#include "core/Command.h"
#include "datamodel/links/CaptureForward.h"
#include "datamodel/links/LinkSwitch.h"
#include "datamodel/links/ParamTransform.h"
#include "datamodel/objects/CaptureObject.h"

namespace Vorin::DataModel::Objects {

/// Two parameters that follow each other: from the first to the second through the function, back
/// through its inverse. Either is shown to be held while the other one is.
///
/// Each direction is the transform of a link, with the ends in their places: mirroring comes behind
/// the function both ways, within the range of the end that is written. So a mirrored connection
/// leads back to where it came from when the function is the identity and both ranges are alike. A
/// write never comes back: what it brings about at its own end, a clamp for one, is taken note of
/// and not passed on. The rules of CLinkSwitch hold.
class CCaptureParamConnection : public CLinkSwitch, public virtual Core::IReverse {
public:
    CCaptureParamConnection();
    ~CCaptureParamConnection() override { Switch(false); }

    ICaptureParam* GetObject1() const { return first.object; }
    ICaptureParam* GetObject2() const { return second.object; }

    /// Both start the connection anew if it is enabled. Null leaves the other end alone.
    void SetObject1(ICaptureParam* object) { SetObject(first, object); }
    void SetObject2(ICaptureParam* object) { SetObject(second, object); }

    void Disconnect() override;

    const Math::IFunction& GetFunction() const { return *first.function.Get(); }
    const Math::IFunction& GetInverse() const { return *second.function.Get(); }

    /// From the first end to the second, and back. Takes both over with `kOwn`; null is the
    /// identity.
    void SetFunctions(Math::IFunction* function, Math::IFunction* inverse,
                      Core::EOwnership ownership);

    /// The curve's pair of functions.
    void SetResponseCurve(EParamValueCurve curve);

    bool IsReversed() const override { return reversed; }
    Core::IEventProvider& GetReverseEvents() override { return reverseEvents; }
    void SetReversed(bool reverse) override;

    bool IsNormalized() const { return normalized; }
    void SetNormalized(bool normalize);

    /// Whether moves of one end are added to the other. Changing the mode moves nothing.
    bool IsDifferential() const { return differential; }
    void SetDifferential(bool differences) { differential = differences; }

    /// Which end gives its value to the other when the connection starts, when its way changes, or
    /// when the info of an end does: the first, unless this is false.
    bool IsSyncFromFirst() const { return syncFromFirst; }
    void SetSyncFromFirst(bool fromFirst) { syncFromFirst = fromFirst; }

protected:
    void TurnOn() override;
    void TurnOff() override;
    void OnEnabled() override;

private:
    class CEnd {
    public:
        CEnd(CCaptureParamConnection& owner, CEnd& otherEnd)
            : connection(owner), other(otherEnd), function(&GetIdentityFunction(), Core::kDontOwn) {
        }

        void Connect();
        void LetGo();
        void HoldFunction(Math::IFunction* newFunction, Core::EOwnership ownership);

        ICaptureParam* object = nullptr; // not owned
        CCaptureParamConnection& connection;
        CEnd& other;
        Core::TOwnership<Math::IFunction> function; // from here to the other end
        double lastValue = 0.0;
        CCaptureForward captured; // the other end is held because this one is

    private:
        void OnChanged();
        void OnCaptured() { connection.ForwardCapture(*this); }
        void OnReleased() { ForwardRelease(*this); }
        void OnInfoChanged() { connection.PassNow(); }

        Core::TCommand<CEnd> changedCommand{this, &CEnd::OnChanged};
        Core::TCommand<CEnd> capturedCommand{this, &CEnd::OnCaptured};
        Core::TCommand<CEnd> releasedCommand{this, &CEnd::OnReleased};
        Core::TCommand<CEnd> infoChangedCommand{this, &CEnd::OnInfoChanged};
        bool connected = false;
    };

    void SetObject(CEnd& end, ICaptureParam* object);
    void Pass(CEnd& from);
    void ForwardCapture(CEnd& from);
    static void ForwardRelease(CEnd& from);

    CEnd first;
    CEnd second;
    bool reversed = false;
    Core::CEventProvider reverseEvents;
    bool normalized = false;
    bool syncFromFirst = true;
    bool differential = false;
    bool updating = false; // an end is being written
};

} // namespace Vorin::DataModel::Objects
