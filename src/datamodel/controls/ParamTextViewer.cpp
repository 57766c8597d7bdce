#include "datamodel/controls/ParamTextViewer.h"

namespace Vorin::DataModel::Controls {

namespace {

bool IsWhole(Objects::EParamType type) {
    return type == Objects::kParamBoolean || type == Objects::kParamInteger ||
           type == Objects::kParamSwitch;
}

} // namespace

CBaseParamTextViewer::CBaseParamTextViewer(Objects::IConstCaptureParam& source) : object(&source) {
    TakeObject();
    CBaseParamTextViewer::Update();
}

CBaseParamTextViewer::~CBaseParamTextViewer() { DisconnectEvents(); }

void CBaseParamTextViewer::Update() {
    Containers::CCharString written;
    dataToText.ValueToText(object->GetValue(), written);
    if (!(written == text)) {
        text = written;
        valueEvents.Notify();
    }
}

void CBaseParamTextViewer::ConnectObject(Objects::IConstCaptureParam& source) {
    DisconnectEvents();
    object = &source;
    TakeObject();
    Update();
}

/// Connects last: the converter's own events would show texts that are half of this object and half
/// of the one before.
void CBaseParamTextViewer::TakeObject() {
    const Objects::IConstParamInfo& info = object->GetInfo();
    dataToText.SetInfo(info);
    if (IsWhole(info.GetType())) {
        dataToText.SetFormat("%.0f");
    }
    ConnectEvents();
}

void CBaseParamTextViewer::ConnectEvents() {
    object->GetValueChangedEvents().Connect(update);
    object->GetCaptureEvents().Connect(sourceCaptured);
    object->GetReleaseEvents().Connect(sourceReleased);
    object->GetInfo().GetInfoChangedEvents().Connect(infoChanged);
    dataToText.GetChangedEvents().Connect(update);
}

void CBaseParamTextViewer::DisconnectEvents() {
    object->GetValueChangedEvents().Disconnect(update);
    object->GetCaptureEvents().Disconnect(sourceCaptured);
    object->GetReleaseEvents().Disconnect(sourceReleased);
    object->GetInfo().GetInfoChangedEvents().Disconnect(infoChanged);
    dataToText.GetChangedEvents().Disconnect(update);
}

/// The converter has a copy of the info. Its change is an update, but not when this happens inside
/// of one.
void CBaseParamTextViewer::OnInfoChanged() {
    dataToText.SetInfo(object->GetInfo());
    Update();
}

} // namespace Vorin::DataModel::Controls
