#include "datamodel/controls/ParamViewer.h"

namespace Vorin::DataModel::Controls {

CBaseParamViewer::CBaseParamViewer(Objects::IConstCaptureParam& source)
    : CParamViewerConfig(source.GetInfo()), object(&source) {
    ConnectEvents();
    CParamViewerConfig::GetConfigEvents().Connect(configChanged);
    MirrorCapture();
    CBaseParamViewer::Update();
}

CBaseParamViewer::~CBaseParamViewer() {
    CParamViewerConfig::GetConfigEvents().Disconnect(configChanged);
    DisconnectEvents();
}

void CBaseParamViewer::Update() {
    const double newPosition = ValueToPosition(true, object->GetValue());
    if (newPosition != position) {
        position = newPosition;
        positionEvents.Notify();
    }
}

void CBaseParamViewer::ConnectObject(Objects::IConstCaptureParam& source) {
    DisconnectEvents();
    object = &source;
    ConnectEvents();
    MirrorCapture();
    SetInfo(source.GetInfo());
    Update();
}

void CBaseParamViewer::ConnectEvents() {
    object->GetValueChangedEvents().Connect(valueChanged);
    object->GetCaptureEvents().Connect(sourceCaptured);
    object->GetReleaseEvents().Connect(sourceReleased);
}

void CBaseParamViewer::DisconnectEvents() {
    object->GetValueChangedEvents().Disconnect(valueChanged);
    object->GetCaptureEvents().Disconnect(sourceCaptured);
    object->GetReleaseEvents().Disconnect(sourceReleased);
}

void CBaseParamViewer::MirrorCapture() {
    if (object->IsCaptured()) {
        sourceCapture.Capture();
    } else {
        sourceCapture.Release();
    }
}

} // namespace Vorin::DataModel::Controls
