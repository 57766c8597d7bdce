#pragma once

#include "core/Capture.h"
#include "core/Connect.h"
#include "core/Enable.h"
#include "datamodel/objects/Action.h"

namespace Vorin::DataModel::Controls {

/// What a button has of its action: whether it may be run, and the capture that the button keeps
/// while the mouse is down. [gui]
///
/// The action outlives the control, or its connection to it. Without one the control is enabled.
class CActionControl : public Core::CCapture,
                       public virtual Core::TIConnect<Objects::IConstAction>,
                       public virtual Core::IConstEnable {
public:
    CActionControl() = default;
    explicit CActionControl(Objects::IConstAction& first);
    ~CActionControl() override;

    CActionControl(const CActionControl&) = delete;
    CActionControl& operator=(const CActionControl&) = delete;

    bool IsEnabled() const override;
    Core::IEventProvider& GetEnableEvents() override { return enableEvents; }

    /// Fires the connect event, then the enable event when the new action makes a difference.
    void Connect(Objects::IConstAction& newAction) override;

    /// Null when there is none.
    Objects::IConstAction* GetAction() const { return action; }
    Core::IEventProvider& GetConnectEvents() { return connectEvents; }

private:
    void TakeAction(Objects::IConstAction* newAction);

    Objects::IConstAction* action = nullptr;
    Core::CEventProvider connectEvents;
    Core::CEventProvider enableEvents;
    Core::TCommand<Core::CEventProvider> enableChanged{&enableEvents,
                                                       &Core::CEventProvider::Notify};
};

} // namespace Vorin::DataModel::Controls
