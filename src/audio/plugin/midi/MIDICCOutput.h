#pragma once

#include "audio/midi/MIDIEvent.h"
#include "audio/plugin/midi/MIDICCSettings.h"

#include <atomic>
#include <vector>

namespace Vorin::Audio::Plugin {

/// Makes controller events of output values, one each time a value has moved by a step of its
/// controller. [audio]
class CMIDICCOutput {
public:
    using IConstInfos = COutputMIDICCSettings::IConstInfos;

    /// Both are borrowed, and the infos are constant as long as values go out.
    CMIDICCOutput(const IConstInfos& outputInfos, const COutputMIDICCSettings& outputSettings);

    /// Fills the event, which has its 3 bytes, with the controller that output `index` sends for
    /// `value`. False, with the event left alone, when the setting is not enabled, when the
    /// controller would be sent the same value as the last time, and for an index that does not
    /// exist.
    ///
    /// A setting for any channel sends on the first: a message has exactly one.
    bool Make(int index, double value, MIDI::IMIDIEvent& event);

    /// Forgets what was sent: the next value of each output is sent in any case. [any]
    void Reset();

private:
    static constexpr int kNone = -1;

    const IConstInfos& infos;
    const COutputMIDICCSettings& settings;
    std::vector<std::atomic<int>> lastOutputCC; // the last value sent, by output
};

} // namespace Vorin::Audio::Plugin
