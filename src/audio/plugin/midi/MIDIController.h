#pragma once

#include "audio/plugin/midi/MIDICCInput.h"
#include "audio/plugin/midi/MIDICCOutput.h"
#include "audio/plugin/midi/MIDICCSettingsFollower.h"
#include "audio/plugin/midi/MIDILearner.h"

namespace Vorin::Audio::Plugin {

/// The MIDI control of a plug-in instance as its GUI sees it.
class IMIDIController {
public:
    virtual IMIDICCSettings& GetInputSettings() = 0;
    virtual IMIDICCSettings& GetOutputSettings() = 0;
    virtual CMIDILearner& GetLearner() = 0;
    /// Written on the audio thread; see CConstMIDICCMessageTimerProxy for the GUI thread.
    virtual IConstMIDICCMessage& GetLastMessage() = 0;
    /// Whether the settings of a direction follow the global ones.
    virtual Core::TIValue<bool>& GetInputDefaultFlag() = 0;
    virtual Core::TIValue<bool>& GetOutputDefaultFlag() = 0;
    virtual ~IMIDIController() = default;
};

/// The hub of the MIDI control: holds the settings of both directions, their flags, the learner and
/// the last message, and runs events on the audio thread.
///
/// It starts with both flags true. Infos and global settings are borrowed and outlive it.
class CMIDIController : public virtual IMIDIController {
public:
    using IConstInfos = CInputMIDICCSettings::IConstInfos;

    CMIDIController(const IConstInfos& inputInfos, IMIDICCSettings& globalInputSettings,
                    const IConstInfos& outputInfos, IMIDICCSettings& globalOutputSettings);
    CMIDIController(const CMIDIController&) = delete;
    CMIDIController& operator=(const CMIDIController&) = delete;

    CInputMIDICCSettings& GetInputSettings() override { return inputCCSettings; }
    COutputMIDICCSettings& GetOutputSettings() override { return outputCCSettings; }
    CMIDILearner& GetLearner() override { return learner; }
    CMIDICCMessage& GetLastMessage() override { return lastMessage; }
    CMIDICCSettingsFollower& GetInputDefaultFlag() override { return inputFollower; }
    CMIDICCSettingsFollower& GetOutputDefaultFlag() override { return outputFollower; }

    /// See the function of this name. [audio]
    bool ApplyMIDI(const MIDI::IConstMIDIEvent& event, CMIDICCValues& message,
                   IMIDIValueReceiver& receiver) const {
        return Plugin::ApplyMIDI(event, inputCCSettings, message, receiver);
    }

    /// See CMIDICCOutput::Make. [audio]
    bool MakeOutputCC(int index, double value, MIDI::IMIDIEvent& event) {
        return output.Make(index, value, event);
    }

    /// See CMIDICCOutput::Reset. [any]
    void ResetOutputCC() { output.Reset(); }

    /// The state of a direction as it stands in presets. [any, not audio]
    bool WriteInputSettings(Serialization::IWriteDataStream& stream,
                            const CMIDICCSettingsKeys& keys) const {
        return WriteFollowingSettings(stream, keys, inputCCSettings, inputFollower);
    }
    bool WriteOutputSettings(Serialization::IWriteDataStream& stream,
                             const CMIDICCSettingsKeys& keys) const {
        return WriteFollowingSettings(stream, keys, outputCCSettings, outputFollower);
    }
    bool ReadInputSettings(const Serialization::IReadDataStream& stream,
                           const CMIDICCSettingsKeys& keys) {
        return ReadFollowingSettings(stream, keys, inputCCSettings, inputFollower);
    }
    bool ReadOutputSettings(const Serialization::IReadDataStream& stream,
                            const CMIDICCSettingsKeys& keys) {
        return ReadFollowingSettings(stream, keys, outputCCSettings, outputFollower);
    }

    /// Delivers every event, and makes every copy of a global setting, that could not be delivered
    /// at once because another thread was at it. To be called now and then, in the host's idle
    /// time. [any, not audio]
    void NotifyIfKept();

private:
    CInputMIDICCSettings inputCCSettings;
    COutputMIDICCSettings outputCCSettings;
    CMIDICCSettingsFollower inputFollower;
    CMIDICCSettingsFollower outputFollower;
    CMIDICCOutput output;
    CMIDICCMessage lastMessage;
    CMIDILearner learner;
};

} // namespace Vorin::Audio::Plugin
