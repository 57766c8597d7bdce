#include "datamodel/links/CaptureParamToStringLink.h"

namespace Vorin::DataModel::Objects {

void CCaptureParamToStringLink::OnSourceChanged() {
    Containers::CCharString text;
    valueToText.ValueToText(source->GetValue(), text);
    Write(text.Get());
}

void CCaptureParamToStringLink::OnConnectSource() {
    TBaseCaptureObjectLink::OnConnectSource();
    source->GetInfo().GetInfoChangedEvents().Connect(infoChanged);
    // Before the text's own event is listened to: whether to write now is not for the info to say.
    TakeInfo();
    valueToText.GetChangedEvents().Connect(textChanged);
}

void CCaptureParamToStringLink::OnDisconnectSource() {
    valueToText.GetChangedEvents().Disconnect(textChanged);
    source->GetInfo().GetInfoChangedEvents().Disconnect(infoChanged);
    TBaseCaptureObjectLink::OnDisconnectSource();
}

} // namespace Vorin::DataModel::Objects
