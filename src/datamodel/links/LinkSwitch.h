#pragma once

#include "core/Enable.h"
#include "core/EventProvider.h"
#include "datamodel/links/DisconnectAndPause.h"

namespace Vorin::DataModel {

/// What makes a link pass a value.
enum ELinkTrigger : int {
    kLinkTriggerAlways = 0, ///< also that it starts or changes its way, so that the ends agree
    kLinkTriggerModify = 1  ///< only that a source tells of a change
};

/// The two switches that all links have: enabled, false at first, and paused.
///
/// An enabled link is connected to its source; a paused one stays connected and passes nothing.
/// A link belongs to one thread, that of its ends. It owns neither of them, and must let go of both
/// by `Disconnect` before one dies. It must not be destroyed by what its own write sets off.
class CLinkSwitch : public virtual Core::IEnable, public virtual IDisconnectAndPause {
public:
    CLinkSwitch() = default;
    CLinkSwitch(const CLinkSwitch&) = delete;
    CLinkSwitch& operator=(const CLinkSwitch&) = delete;

    bool IsEnabled() const override { return enabled; }
    Core::IEventProvider& GetEnableEvents() override { return enableEvents; }

    /// Connects or lets go first, then notifies.
    void SetEnabled(bool enable) override;

    bool IsPaused() const { return paused; }

    /// Turning false starts an enabled link anew, so that it reads its source again and its target
    /// catches up. A gesture that is being forwarded stays open while the link rests, until the
    /// source is released.
    void SetPaused(bool pause) override;

    ELinkTrigger GetTrigger() const { return trigger; }
    void SetTrigger(ELinkTrigger newTrigger) { trigger = newTrigger; }

protected:
    /// `enabled` is stored already when these run. What they call is foreign code, which may throw
    /// the switch back under them.
    virtual void TurnOn() = 0;
    virtual void TurnOff() = 0;

    /// The link runs from now on, or its way has changed: passes the value as it stands.
    virtual void OnEnabled() = 0;

    bool IsActive() const { return enabled && !paused; }

    /// OnEnabled, if the link is to pass values without being told of a change.
    void PassNow();

    /// Throws the switch without telling.
    void Switch(bool enable);

    /// Changes something that the link must not be connected for.
    template <class C>
    void ChangeSwitchedOff(C change) {
        const bool wasEnabled = enabled;
        Switch(false);
        change();
        Switch(wasEnabled);
    }

private:
    bool enabled = false;
    bool paused = false;
    ELinkTrigger trigger = kLinkTriggerAlways;
    Core::CEventProvider enableEvents;
};

/// Sets a flag for as long as it lives, then puts back what was there.
class CScopedFlag {
public:
    explicit CScopedFlag(bool& scopedFlag) : flag(scopedFlag), before(scopedFlag) { flag = true; }
    ~CScopedFlag() { flag = before; }

    CScopedFlag(const CScopedFlag&) = delete;
    CScopedFlag& operator=(const CScopedFlag&) = delete;

private:
    bool& flag;
    bool before;
};

} // namespace Vorin::DataModel
