#include "datamodel/controls/StringViewer.h"

#include "containers/CharString.h"

namespace Vorin::DataModel::Controls {

CBaseStringViewer::CBaseStringViewer(Objects::IConstCaptureString& source) : object(&source) {
    ConnectEvents();
}

CBaseStringViewer::~CBaseStringViewer() { DisconnectEvents(); }

void CBaseStringViewer::ConnectObject(Objects::IConstCaptureString& source) {
    DisconnectEvents();
    const Containers::CCharString previous(object->GetValue());
    object = &source;
    ConnectEvents();
    if (!(previous == object->GetValue())) {
        valueEvents.Notify();
    }
}

void CBaseStringViewer::ConnectEvents() {
    object->GetValueChangedEvents().Connect(valueChanged);
    object->GetCaptureEvents().Connect(sourceCaptured);
    object->GetReleaseEvents().Connect(sourceReleased);
    if (object->IsCaptured()) {
        capture.Capture();
    } else {
        capture.Release();
    }
}

void CBaseStringViewer::DisconnectEvents() {
    object->GetValueChangedEvents().Disconnect(valueChanged);
    object->GetCaptureEvents().Disconnect(sourceCaptured);
    object->GetReleaseEvents().Disconnect(sourceReleased);
}

} // namespace Vorin::DataModel::Controls
