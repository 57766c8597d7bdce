#pragma once

#include "audio/plugin/midi/MIDICCSettings.h"
#include "core/Command.h"
#include "core/Value.h"
#include "system/CriticalSection.h"
#include "system/MTEventProvider.h"

#include <atomic>
#include <memory>
#include <vector>

namespace Vorin::Audio::Plugin {

/// The flag that says that the settings of a plug-in instance follow the global ones: while it is
/// true each setting is made equal to its global one at each change of that, and all of them when
/// it turns true. It starts true.
///
/// The flag may be set and read by any thread but the audio thread. The global settings may change
/// on any thread, the audio thread of another instance among them; the copy is made there, or by
/// whoever is copying the same setting just then. Once the flag was set to false no copy is made
/// any more. Its change event fires on the thread that set it. [any]
class CMIDICCSettingsFollower : public virtual Core::TIValue<bool> {
public:
    /// Settings behind the last global one follow nothing. All are borrowed and outlive this.
    template <class S>
    CMIDICCSettingsFollower(TMIDICCSettings<S>& settings, IMIDICCSettings& globalSettings) {
        for (int i = 0; i < settings.GetCount() && i < globalSettings.GetCount(); ++i) {
            links.push_back(std::make_unique<CLink>(settings.Get(i), globalSettings.Get(i)));
        }
        Start();
    }
    CMIDICCSettingsFollower(const CMIDICCSettingsFollower&) = delete;
    CMIDICCSettingsFollower& operator=(const CMIDICCSettingsFollower&) = delete;
    ~CMIDICCSettingsFollower() override;

    Core::IEventProvider& GetValueChangedEvents() override { return flagChanged; }
    bool GetValue() const override { return isFollowing.load(); }
    void SetValue(bool follow) override;

    /// Makes all settings equal to the global ones once, whatever the flag says. [any, not audio]
    void CopyGlobalSettings();

    /// Makes the copies that could not be made at once; their owner calls it now and then.
    void NotifyIfKept();

private:
    /// One setting and the global one that it follows.
    class CLink {
    public:
        CLink(CMIDICCSetting& ownSetting, IMIDICCSetting& globalSetting)
            : own(ownSetting), global(globalSetting) {}
        CLink(const CLink&) = delete;
        CLink& operator=(const CLink&) = delete;

        void Start();
        void Stop();
        void Copy() { own.CopyFrom(global); }
        /// Copies between Start and Stop, beside other threads that do.
        void RequestCopy() { copying.Notify(); }
        void NotifyIfKept() { copying.NotifyIfKept(); }

    private:
        CMIDICCSetting& own;
        IMIDICCSetting& global;
        // Copies go through a provider so that one thread at a time makes them: with two at it, an
        // older state could be written over a newer one.
        System::CRealtimeEventProvider copying;
        Core::TCommand<CLink> copyCommand{this, &CLink::Copy};
        Core::TCommand<CLink> globalChangedCommand{this, &CLink::RequestCopy};
    };

    void Start();
    void Stop();

    std::vector<std::unique_ptr<CLink>> links;
    System::CCriticalSection lock; // the flag and whether the links run change together
    std::atomic<bool> isFollowing{true};
    System::CMTEventProvider flagChanged;
};

/// How the settings of a direction and their flag are named in a preset.
struct CMIDICCSettingsKeys {
    const char* useDefaults; ///< the flag, a bool
    const char* settings;    ///< the list, an object that is there only when the flag is false
    const char* item;        ///< the word of its items
};

/// False when anything could not be written.
template <class S>
bool WriteFollowingSettings(Serialization::IWriteDataStream& stream,
                            const CMIDICCSettingsKeys& keys, const TMIDICCSettings<S>& settings,
                            const CMIDICCSettingsFollower& follower) {
    const bool isFollowing = follower.GetValue();
    const bool isFlagWritten = stream.WriteBool(keys.useDefaults, isFollowing);
    return (isFollowing || WriteMIDICCSettings(stream, keys.settings, settings, keys.item)) &&
           isFlagWritten;
}

/// Starts from the global settings, then reads the flag, then, when it is false, the settings.
/// False when the flag or one of the settings was missing or damaged: such a one stays as it was,
/// a setting as the global one. A tolerant stream holds only what differs from the state as it is:
/// this stays, and what is missing is no failure.
template <class S>
bool ReadFollowingSettings(const Serialization::IReadDataStream& stream,
                           const CMIDICCSettingsKeys& keys, TMIDICCSettings<S>& settings,
                           CMIDICCSettingsFollower& follower) {
    const bool isTolerant = stream.IsTolerant();
    if (!isTolerant) {
        follower.CopyGlobalSettings();
    }
    bool follow = follower.GetValue();
    const bool isFlagRead = stream.ReadBool(keys.useDefaults, follow) || isTolerant;
    follower.SetValue(follow);
    const bool isComplete = follow || (isTolerant && !stream.Exists(keys.settings)) ||
                            ReadMIDICCSettings(stream, keys.settings, settings, keys.item);
    return isFlagRead && isComplete;
}

} // namespace Vorin::Audio::Plugin
