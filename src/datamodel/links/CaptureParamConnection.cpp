#include "datamodel/links/CaptureParamConnection.h"

#include "datamodel/objects/ChangePass.h"

namespace Vorin::DataModel::Objects {

CCaptureParamConnection::CCaptureParamConnection() : first(*this, second), second(*this, first) {}

void CCaptureParamConnection::Disconnect() {
    SetObject1(nullptr);
    SetObject2(nullptr);
}

void CCaptureParamConnection::SetObject(CEnd& end, ICaptureParam* object) {
    ChangeSwitchedOff([&end, object] {
        end.LetGo();
        end.object = object;
    });
}

void CCaptureParamConnection::SetFunctions(Math::IFunction* function, Math::IFunction* inverse,
                                           Core::EOwnership ownership) {
    first.HoldFunction(function, ownership);
    second.HoldFunction(inverse, ownership);
    PassNow();
}

void CCaptureParamConnection::SetResponseCurve(EParamValueCurve curve) {
    CParamValueCurveFunctions functions = CreateParamValueCurveFunctions(curve);
    SetFunctions(functions.forward.release(), functions.inverse.release(), Core::kOwn);
}

void CCaptureParamConnection::SetReversed(bool reverse) {
    if (reverse != reversed) {
        reversed = reverse;
        PassNow();
        reverseEvents.Notify();
    }
}

void CCaptureParamConnection::SetNormalized(bool normalize) {
    if (normalize != normalized) {
        normalized = normalize;
        PassNow();
    }
}

void CCaptureParamConnection::TurnOn() {
    first.Connect();
    second.Connect();
    if (first.object && first.object->IsCaptured()) {
        ForwardCapture(first);
    }
    if (second.object && second.object->IsCaptured()) {
        ForwardCapture(second);
    }
    for (CEnd* end : {&first, &second}) {
        if (end->object) {
            end->lastValue = end->object->GetValue();
        }
    }
    PassNow();
}

void CCaptureParamConnection::TurnOff() {
    ForwardRelease(first);
    ForwardRelease(second);
    if (!IsEnabled()) {
        first.LetGo();
        second.LetGo();
    }
}

void CCaptureParamConnection::OnEnabled() { Pass(syncFromFirst ? first : second); }

void CCaptureParamConnection::Pass(CEnd& from) {
    if (!from.object) {
        return;
    }
    const double last = from.lastValue;
    const double value = from.object->GetValue();
    from.lastValue = value;
    ICaptureParam* const to = from.other.object;
    const CChangePass pass;
    if (updating || !to || !pass.IsAllowed()) {
        return;
    }
    const CParamTransform transform{*from.function.Get(), reversed, normalized};
    const IConstParamInfo& info = from.object->GetInfo();
    double next = TransformValue(value, transform, info, to->GetInfo());
    if (differential) {
        // The difference first: an end that did not move adds exactly nothing.
        next = to->GetValue() + (next - TransformValue(last, transform, info, to->GetInfo()));
    }
    {
        const CScopedFlag writing(updating);
        to->SetValue(next);
    }
    if (from.other.object == to) {
        from.other.lastValue = to->GetValue();
    }
}

// An end that is held because the other one is has nothing to forward.
void CCaptureParamConnection::ForwardCapture(CEnd& from) {
    ICaptureParam* const to = from.other.object;
    const CChangePass pass;
    if (IsActive() && to && to != from.object && !from.other.captured.IsOpen() &&
        pass.IsAllowed()) {
        from.captured.Open(*from.object, *to);
        to->Capture();
    }
}

// Also while the connection rests: what was opened has to be closed.
void CCaptureParamConnection::ForwardRelease(CEnd& from) {
    if (from.captured.Close() && from.other.object) {
        from.other.object->Release();
    }
}

void CCaptureParamConnection::CEnd::OnChanged() {
    if (connection.IsActive()) {
        connection.Pass(*this);
    }
}

void CCaptureParamConnection::CEnd::Connect() {
    if (object && !connected) {
        connected = true;
        object->GetValueChangedEvents().Connect(changedCommand);
        object->GetCaptureEvents().Connect(capturedCommand);
        object->GetReleaseEvents().Connect(releasedCommand);
        object->GetInfo().GetInfoChangedEvents().Connect(infoChangedCommand);
    }
}

void CCaptureParamConnection::CEnd::LetGo() {
    if (connected) {
        connected = false;
        object->GetValueChangedEvents().Disconnect(changedCommand);
        object->GetCaptureEvents().Disconnect(capturedCommand);
        object->GetReleaseEvents().Disconnect(releasedCommand);
        object->GetInfo().GetInfoChangedEvents().Disconnect(infoChangedCommand);
    }
}

void CCaptureParamConnection::CEnd::HoldFunction(Math::IFunction* newFunction,
                                                 Core::EOwnership ownership) {
    if (newFunction) {
        function.Set(newFunction, ownership);
    } else {
        function.Set(&GetIdentityFunction(), Core::kDontOwn);
    }
}

} // namespace Vorin::DataModel::Objects
