#include "datamodel/controls/ActionControl.h"

namespace Vorin::DataModel::Controls {

CActionControl::CActionControl(Objects::IConstAction& first) { TakeAction(&first); }

CActionControl::~CActionControl() { TakeAction(nullptr); }

bool CActionControl::IsEnabled() const { return !action || action->IsEnabled(); }

void CActionControl::Connect(Objects::IConstAction& newAction) {
    const bool wasEnabled = IsEnabled();
    TakeAction(&newAction);
    connectEvents.Notify();
    if (IsEnabled() != wasEnabled) {
        enableEvents.Notify();
    }
}

void CActionControl::TakeAction(Objects::IConstAction* newAction) {
    if (action) {
        action->GetEnableEvents().Disconnect(enableChanged);
    }
    action = newAction;
    if (action) {
        action->GetEnableEvents().Connect(enableChanged);
    }
}

} // namespace Vorin::DataModel::Controls
