#include "audio/plugin/midi/MIDICCSettingsFollower.h"

namespace Vorin::Audio::Plugin {

void CMIDICCSettingsFollower::CLink::Start() {
    copying.Connect(copyCommand);
    global.GetChangedEvent().Connect(globalChangedCommand);
    RequestCopy();
}

void CMIDICCSettingsFollower::CLink::Stop() {
    global.GetChangedEvent().Disconnect(globalChangedCommand);
    copying.Disconnect(copyCommand);
}

CMIDICCSettingsFollower::~CMIDICCSettingsFollower() { Stop(); }

void CMIDICCSettingsFollower::Start() {
    for (const std::unique_ptr<CLink>& link : links) {
        link->Start();
    }
}

void CMIDICCSettingsFollower::Stop() {
    for (const std::unique_ptr<CLink>& link : links) {
        link->Stop();
    }
}

void CMIDICCSettingsFollower::SetValue(bool follow) {
    {
        const Core::CAutoLock held(lock);
        if (follow == GetValue()) {
            return;
        }
        isFollowing.store(follow);
        if (follow) {
            Start();
        } else {
            Stop();
        }
    }
    flagChanged.Notify();
}

void CMIDICCSettingsFollower::CopyGlobalSettings() {
    const Core::CAutoLock held(lock);
    for (const std::unique_ptr<CLink>& link : links) {
        if (GetValue()) {
            link->RequestCopy();
        } else {
            link->Copy();
        }
    }
}

void CMIDICCSettingsFollower::NotifyIfKept() {
    for (const std::unique_ptr<CLink>& link : links) {
        link->NotifyIfKept();
    }
}

} // namespace Vorin::Audio::Plugin
