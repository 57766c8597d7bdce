#pragma once

#include "audio/midi/MIDIEvent.h"
#include "audio/plugin/midi/MIDICCMessage.h"
#include "audio/plugin/midi/MIDICCSettings.h"

namespace Vorin::Audio::Plugin {

/// Takes the values that controllers give to parameters.
class IMIDIValueReceiver {
public:
    /// `value` is in the units of the parameter. [audio]
    virtual void SetFromMIDI(int index, double value) = 0;
    virtual ~IMIDIValueReceiver() = default;
};

/// What a controller event says. False, with `message` left alone, for other events and for one
/// that lacks a byte. [any, audio]
bool ReadMIDIController(const MIDI::IConstMIDIEvent& event, CMIDICCValues& message);

/// Gives the receiver a value for each parameter, in order, whose setting the event matches: one
/// that is enabled and of type CC, for the event's controller on its channel or on any. `message`
/// becomes what the event says.
///
/// True for every complete controller event, whether it matches a setting or not; for any other
/// event nothing is done. [audio]
bool ApplyMIDI(const MIDI::IConstMIDIEvent& event, const CInputMIDICCSettings& settings,
               CMIDICCValues& message, IMIDIValueReceiver& receiver);

} // namespace Vorin::Audio::Plugin
