#include "datamodel/links/LinkSwitch.h"

namespace Vorin::DataModel {

void CLinkSwitch::SetEnabled(bool enable) {
    if (enable != enabled) {
        Switch(enable);
        enableEvents.Notify();
    }
}

void CLinkSwitch::SetPaused(bool pause) {
    if (pause == paused) {
        return;
    }
    paused = pause;
    if (!paused && enabled) {
        Switch(false);
        Switch(true);
    }
}

void CLinkSwitch::PassNow() {
    if (IsActive() && trigger == kLinkTriggerAlways) {
        OnEnabled();
    }
}

void CLinkSwitch::Switch(bool enable) {
    if (enable == enabled) {
        return;
    }
    enabled = enable;
    if (enabled) {
        TurnOn();
    } else {
        TurnOff();
    }
}

} // namespace Vorin::DataModel
